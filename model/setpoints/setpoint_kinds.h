#pragma once

#include <cstdint>
#include <string_view>

namespace calyx {

// The kinds of setpoint; the numbers are fixed. The kind decides which parameters a setpoint has.
enum class SetpointKind : std::uint8_t {
    Off = 1,
    Gross,
    Net,
    NegativeGross,
    NegativeNet,
    Accumulator,
    DigitalInput,
    RelativeAbove,
    RelativeBelow,
    RelativePercent,
    RelativeResettable,
    WaitStandstill,
    Delay,
    Counter,
    Pause,
    AutoJog,
    Always,
    CentreOfZero,
    InMotion,
    InRange,
    BatchPrint,
    Timer,
    Concurrent,
    TimeOfDay,
    Delta,
    Average,
    CheckWeigher,
    RateOfChange,
    PulseCount,
    PulseRate,
    Never,
    InputCount,  // since 2.05
};
inline constexpr int kFirstSetpointKind = 1;
inline constexpr int kLastSetpointKind = 32;

// The word of the parameter line: "GROSS", "+REL".
std::string_view CommandOf(SetpointKind kind);
// The kind number of a word, 1 to 32; a word that is none reads as "OFF".
int FindKindByCommand(std::string_view command);
bool IsKindCommand(std::string_view command);
// Number of the resource text with the kind's name.
constexpr int KindName(SetpointKind kind) {
    return 7499 + static_cast<int>(kind);
}

// Whether a setpoint of the kind is a step of the batch sequence: by itself, by its parameter BATCH, or
// not at all.
enum class BatchStep : std::uint8_t { No, Chosen, Always };
BatchStep BatchStepOf(SetpointKind kind);

constexpr bool WatchesPulses(SetpointKind kind) {  // the source is a pulse input, not a scale
    return kind == SetpointKind::PulseCount || kind == SetpointKind::PulseRate;
}

}  // namespace calyx
