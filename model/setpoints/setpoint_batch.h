#pragma once

#include <vector>

#include "model/setpoints/setpoints.h"

namespace calyx {

// Whether a setpoint is a step of the batch sequence, by its kind or by its parameter BATCH.
bool IsBatchStep(const SetpointFields& fields);

// One setpoint of the batch. A step has one place in the sequence; a timer or a concurrent setpoint runs
// beside the steps, from the place of its start to that of its end. Places count from 1; 0: its start or
// end is no step.
struct BatchPlace {
    int number = 0;  // of the setpoint
    bool isStep = true;
    int first = 0, last = 0;
    friend bool operator==(const BatchPlace&, const BatchPlace&) = default;
};

// The batch in its order: the steps by number, each followed by what starts with it; what starts at no
// step stands at the end.
std::vector<BatchPlace> BatchOrder(const CSetpoints& setpoints);

}  // namespace calyx
