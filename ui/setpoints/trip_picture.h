#pragma once

#include <optional>
#include <vector>

#include "model/setpoints/setpoints.h"

namespace calyx::ui {

// Where a setpoint trips, as it is drawn on an axis of weight (or of whatever its kind watches).
struct TripPicture {
    enum class Style { Trip, Preact, Ready };  // Ready: behind the hysteresis, where it can trip again
    struct Mark {
        double at = 0;
        Style style = Style::Trip;
        int text = 0;  // resource text, {1} the number
        friend bool operator==(const Mark&, const Mark&) = default;
    };
    // Nothing on a side: without end.
    struct Stretch {
        std::optional<double> from, to;
        Style style = Style::Trip;
        friend bool operator==(const Stretch&, const Stretch&) = default;
    };

    std::vector<Mark> marks;         // ascending
    std::vector<Stretch> stretches;  // those of the trip first
    friend bool operator==(const TripPicture&, const TripPicture&) = default;
};

// Nothing for a kind without a trip or limits, and for one whose target follows a setpoint that has none.
std::optional<TripPicture> PictureOf(const CSetpoints& setpoints, int number);

// The target in the unit of the scale: of a relative setpoint that of the other one and its own value.
std::optional<double> TargetOf(const CSetpoints& setpoints, int number);

}  // namespace calyx::ui
