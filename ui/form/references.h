#pragma once

#include <QString>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "model/document/indicator.h"

// Parameters that name something of the document by its number, and what there is to name.
namespace calyx::ui::form {

struct Reference {
    std::string text;   // as the parameter's line has it: "SCALE2", "NONE", "7"
    QString name = {};  // what stands beside the number: an alias, a kind
    QString words;      // in a list: "2: SiloW, Analog Scale"
};

// Asked anew each time, since the document changes.
using Offers = std::function<std::vector<Reference>()>;

bool IsReference(std::string_view key);
// What the parameter of that key can name at present: scales that are configured, setpoints that are in
// use, slots and points of digital cards. Nothing for pulse inputs, of which the document knows none.
std::vector<Reference> References(const CIndicator& document, std::string_view key);

}  // namespace calyx::ui::form
