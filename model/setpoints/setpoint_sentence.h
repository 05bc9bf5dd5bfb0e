#pragma once

#include <string>

#include "model/language/resource_texts.h"
#include "model/setpoints/setpoint.h"

namespace calyx {

// What a setpoint does, in a sentence for people: "Closes output 3 of slot 1 when the gross weight of
// scale 2 rises to 1200, 25 before it (preact), with hysteresis 5; then prints." It tells of what the
// setpoint's lines say and of nothing that its kind does not have.
std::string SetpointSentence(const CSetpoint& setpoint, const ResourceTexts& texts);

}  // namespace calyx
