#pragma once

#include <string>
#include <vector>

#include "model/ports/port_fields.h"

namespace calyx {

// A weight to show a stream with.
struct SampleWeight {
    enum class Mode { Gross, Net, Tare };
    enum class State { Ok, Motion, OutOfRange, CentreOfZero, Invalid };
    double value = 1234.5;
    int decimals = 1;
    int units = 1;  // 1 primary, 2 secondary, 3 tertiary
    Mode mode = Mode::Gross;
    State state = State::Ok;
};

// One piece of what a stream sends.
struct StreamPiece {
    enum class Kind {
        Text,     // characters as they are sent
        Control,  // the one control character `text`
        Unknown,  // a token that this program does not know; the indicator may
    };
    Kind kind;
    std::string text;
    friend bool operator==(const StreamPiece&, const StreamPiece&) = default;
};

// What a port sends for the weight by its stream definition.
std::vector<StreamPiece> StreamSample(const StreamFields& stream, const SampleWeight& weight);

}  // namespace calyx
