#pragma once

#include <string>
#include <vector>

#include "model/document/indicator.h"

namespace calyx::ui {

// The lines with values that a download to this target would send with everything chosen.
std::vector<KeyValue> SentLines(const CIndicator& document, const Target& target);

// What differs between the document, as a download to this target would send it, and what the indicator
// holds; `before` of a change is the document's side, `after` the indicator's. Parameters that are never
// sent are left out on both sides.
ChangeSet AgainstIndicator(const CIndicator& document, const std::string& dump, const Target& target);

}  // namespace calyx::ui
