#include "model/setpoints/setpoint_lists.h"

#include "model/language/error.h"

namespace calyx {

const CTextList& CSetpointLists::Get(std::string_view name) const {
    const CTextList* list = context_->lists.List(name);
    if (list == nullptr) {
        throw Error(code::kNoList, "Calyx.CSetpointLists", context_->texts.Format(code::kNoList, {name}));
    }
    return *list;
}

}  // namespace calyx
