#pragma once

#include <map>
#include <set>
#include <string>

#include "ui/document_session.h"

namespace calyx::ui::form {

// What the marks of a page say, gathered once for all its fields. Keys are in capitals.
struct PageState {
    std::map<std::string, Change> sinceSave;
    std::map<std::string, std::string> problems;  // the first broken rule of a key
    std::set<std::string> differing;              // from what the indicator holds

    static PageState Of(const DocumentSession& session, const std::string& section,
                        std::set<std::string> differing);
};

}  // namespace calyx::ui::form
