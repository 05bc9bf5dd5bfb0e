#pragma once

#include <string>
#include <vector>

#include "model/document/indicator.h"

namespace calyx {

// Values of a changed document that its file will not hold: of the lines named, and of those that were
// among `before`, the document's Lines() before the change, and no longer are. Nothing that is only read.
std::vector<Refusal> NotKept(const std::vector<KeyValue>& before, const CIndicator& after,
                             std::vector<std::string> named);

}  // namespace calyx
