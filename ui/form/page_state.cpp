#include "ui/form/page_state.h"

#include <utility>

#include "model/language/text.h"

namespace calyx::ui::form {

PageState PageState::Of(const DocumentSession& session, const std::string& section,
                        std::set<std::string> differing) {
    PageState state;
    state.differing = std::move(differing);
    const ChangeSet sinceSave = session.ChangesSinceSave();
    for (const Change& change : sinceSave.Changes()) state.sinceSave.emplace(Upper(change.key), change);
    for (const BrokenRule& rule : session.Problems()) {
        if (rule.section == section) state.problems.emplace(Upper(rule.key), rule.text);
    }
    return state;
}

}  // namespace calyx::ui::form
