#pragma once

#include <functional>

#include "model/language/broken_rules.h"
#include "model/language/resource_texts.h"
#include "model/setpoints/setpoints.h"

namespace calyx {

// What the setpoints themselves break between one another: references to setpoints that are off, branches
// out of the batch, aliases and digital outputs used twice, sources, inputs and outputs that are not chosen.
void CheckSetpoints(const CSetpoints& setpoints, const ResourceTexts& texts, CBrokenRules& rules);

// What the setpoints need of other sections. What is not set is not checked.
struct SetpointSurroundings {
    std::function<bool(int scale)> scaleExists;
    std::function<bool(int input)> pulseInputExists;
    std::function<int(int slot)> digitalPoints;         // how many; slot 0: the main board; 0: no such card
    std::function<bool(int slot, int point)> isOutput;  // whether the point is set up as an output
};
// Scales, pulse inputs, digital cards and points that setpoints use and that are not there, and outputs that
// they watch as inputs. The rules stand under "setpoints", each with the setpoint's number and the key of the
// line that is wrong.
void CheckSetpointSurroundings(const CSetpoints& setpoints, const SetpointSurroundings& surroundings,
                               const ResourceTexts& texts, CBrokenRules& rules);

}  // namespace calyx
