#include "model/setpoints/setpoint_batch.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace calyx {

bool IsBatchStep(const SetpointFields& fields) {
    const BatchStep step = BatchStepOf(fields.kind);
    return step == BatchStep::Always || (step == BatchStep::Chosen && fields.batch);
}

std::vector<BatchPlace> BatchOrder(const CSetpoints& setpoints) {
    std::array<int, kSetpoints + 1> places{};  // by number; 0: no step
    int count = 0;
    for (const CSetpoint& setpoint : setpoints) {
        if (IsBatchStep(setpoint.Values())) places[static_cast<std::size_t>(setpoint.Number())] = ++count;
    }
    const auto placeOf = [&](double number) {
        const bool exists = number >= 1 && number <= kSetpoints && number == std::floor(number);
        return exists ? places[static_cast<std::size_t>(number)] : 0;
    };
    std::vector<BatchPlace> beside;
    for (const CSetpoint& setpoint : setpoints) {
        const SetpointFields& fields = setpoint.Values();
        if (!HasSetpointLine(fields, "START")) continue;
        beside.push_back({setpoint.Number(), false, placeOf(fields.start), placeOf(fields.end)});
    }
    std::vector<BatchPlace> order;
    const auto addBeside = [&](int start) {
        for (const BatchPlace& one : beside) {
            if (one.first == start) order.push_back(one);
        }
    };
    for (int number = 1; number <= kSetpoints; ++number) {
        const int place = places[static_cast<std::size_t>(number)];
        if (place == 0) continue;
        order.push_back({number, true, place, place});
        addBeside(place);
    }
    addBeside(0);
    return order;
}

}  // namespace calyx
