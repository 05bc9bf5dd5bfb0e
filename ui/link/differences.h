#pragma once

#include <string>

#include "model/document/indicator.h"

namespace calyx::ui {

// What differs between the document, as a download to this target would send it, and what the indicator
// holds; `before` of a change is the document's side, `after` the indicator's. Parameters that are never
// sent are left out on both sides.
ChangeSet AgainstIndicator(const CIndicator& document, const std::string& dump, const Target& target);

}  // namespace calyx::ui
