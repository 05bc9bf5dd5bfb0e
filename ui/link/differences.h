#pragma once

#include <string>
#include <vector>

#include "model/document/indicator.h"

namespace calyx::ui {

// The lines with values that a download to this target would send with everything chosen.
std::vector<KeyValue> SentLines(const CIndicator& document, const Target& target);

}  // namespace calyx::ui
