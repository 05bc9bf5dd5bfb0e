#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/language/change_set.h"
#include "model/setpoints/setpoints.h"

namespace calyx {

// Edits of whole setpoints, each as the changes that make one step of undo. Nothing is changed here. The
// values are the document's own, so the changes are to be taken with Section::Check::None.
//
// Where a setpoint gets another number, the references to it follow: RELNUM, BRANCH, START and END of all
// setpoints. All numbers are 1 to 100, others raise 10002.

// A copy of one setpoint in the place of another; the copy has no alias, and where the first referred to
// itself it does as well. What stood there is replaced.
std::vector<Change> DuplicateSetpoint(const CSetpoints& setpoints, int from, int to);
// A setpoint gets another number, and its own becomes free. What stood there is replaced, and references
// to it are references to the one that took its place.
std::vector<Change> RenumberSetpoint(const CSetpoints& setpoints, int from, int to);
// A setpoint is taken out and put in elsewhere; those between move up or down by one.
std::vector<Change> MoveSetpoint(const CSetpoints& setpoints, int from, int to);
std::vector<Change> SwapSetpoints(const CSetpoints& setpoints, int one, int other);
// Setpoints as the lines of the file have them, for a clipboard; numbers in their order.
std::string CopySetpoints(const CSetpoints& setpoints, const std::vector<int>& numbers);
// Such lines, of this document or of another, put in from a number on, one setpoint after the other. Where
// they refer to one another they do so in their new places; other references stay. An alias that another
// setpoint has is left out. What stood there is replaced.
struct PastedSetpoints {
    int count = 0;                // setpoints in the lines; those with a kind
    std::vector<Change> changes;  // none where there is no room for all of them
    ReadReport report;            // what of the lines was not taken as given
};
PastedSetpoints PasteSetpoints(const CSetpoints& setpoints, std::string_view lines, int first);
// As new. References to it stay as they are and show up as broken rules.
std::vector<Change> ClearSetpoint(const CSetpoints& setpoints, int number);

}  // namespace calyx
