#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/language/change_set.h"
#include "model/scales/scales.h"

namespace calyx {

// Edits of whole scales, each as the changes that make one step of undo. Nothing is changed here. The values
// are a document's own, so the changes are to be taken with Section::Check::None.

// Scales as the lines of the file have them, calibration included, for a clipboard; numbers in their order.
// `withKind`: with the line SC.KIND, which no file has, so that a serial scale is known without its port.
std::string CopyScales(const CScales& scales, const std::vector<int>& numbers, bool withKind);

// Such lines, of this document or of another, put in from a number on, one scale after the other. Totals of
// scales among them add these in their new places. An alias that another scale has is left out. What stood
// there is replaced, but for the statistics: those are the indicator's. 10002 for a number outside 1 to 32.
struct PastedScales {
    int count = 0;                // scales in the lines; those with a source
    std::vector<Change> changes;  // none where there is no room for all of them
    ReadReport report;            // what of the lines was not taken as given
};
PastedScales PasteScales(const CScales& scales, std::string_view lines, int first, const PortInput& inputOf);

// As new. Totals that add it stay as they are and show up as broken rules.
std::vector<Change> ClearScale(const CScales& scales, int number);

}  // namespace calyx
