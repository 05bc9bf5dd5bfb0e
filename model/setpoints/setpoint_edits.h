#pragma once

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
// As new. References to it stay as they are and show up as broken rules.
std::vector<Change> ClearSetpoint(const CSetpoints& setpoints, int number);

}  // namespace calyx
