#pragma once

#include "model/document/indicator.h"

namespace calyx {

// What is wrong between sections: names that occur twice, references to items of another section that are
// not there. Each rule names the section, item and key of the field to mend.
void CrossCheck(const CIndicator& document, CBrokenRules& rules);

}  // namespace calyx
