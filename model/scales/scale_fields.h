#pragma once

#include <array>
#include <cstdint>

#include "model/language/date.h"
#include "model/language/row.h"
#include "model/language/text.h"

namespace calyx {

inline constexpr int kScaleCount = 32;
inline constexpr std::int32_t kMostSources = 32;

// Where a scale's weight comes from. The numbers are those of ScaleType.
namespace scale_kind {
inline constexpr std::int32_t kNone = 1;  // not configured
inline constexpr std::int32_t kAnalog = 2;
inline constexpr std::int32_t kSerial = 3;
inline constexpr std::int32_t kTotal = 4;
inline constexpr std::int32_t kVexal = 5;
inline constexpr std::int32_t kProgrammable = 6;
inline constexpr std::int32_t kAnalogInput = 7;
inline constexpr std::int32_t kIndustrial = 8;

constexpr bool IsKind(std::int32_t kind) {
    return kind >= kNone && kind <= kIndustrial;
}
// The three kinds that share the letter "S".
constexpr bool IsOnPort(std::int32_t kind) {
    return kind == kSerial || kind == kVexal || kind == kIndustrial;
}
constexpr std::int32_t MaxSources(std::int32_t kind) {
    return kind == kNone || kind == kAnalog || kind == kTotal ? kMostSources : 1;
}
}  // namespace scale_kind

// One scale. Which of the fields it has, its kind decides.
struct ScaleFields {
    std::int32_t number = 0;  // 1 to 32
    std::int32_t kind = scale_kind::kNone;
    std::array<std::int32_t, kMostSources> sources{};  // zero beyond the count
    std::int32_t sourceCount = 0;
    FixedText<8> alias;
    bool visible = false;

    std::int32_t grads = 0;  // divisions of the capacity
    FixedText<10> overload;
    float zeroTrackBand = 0;      // display divisions
    float zeroRange = 0;          // percent of the capacity
    std::int16_t motionBand = 0;  // display divisions
    std::int32_t standstillTime = 0;
    std::array<FixedText<10>, 3> digitalFilter;
    FixedText<10> filterSensitivity, filterThreshold, sampleRate;
    bool rattleTrap = false;
    FixedText<10> tareFunction, peakHold, powerUpMode;
    bool accumulator = false;

    FixedText<10> priDecimalPoint, priDisplayDivision, priUnits;
    FixedText<8> priCustomUnits;
    FixedText<10> secDecimalPoint, secDisplayDivision, secUnits;
    FixedText<8> secCustomUnits;
    float secMultiplier = 0;  // secondary for one primary unit
    FixedText<10> terDecimalPoint, terDisplayDivision, terUnits;
    FixedText<8> terCustomUnits;
    float terMultiplier = 0;
    FixedText<10> split;  // "OFF": one range
    std::array<float, 3> range{};

    FixedText<10> rocDecimalPoint, rocDisplayDivision, rocUnits;
    float rocMultiplier = 0;
    std::int32_t rocInterval = 0;
    float rocRefresh = 0;

    FixedText<10> analogInputRange, analogInputSampleRate, thermocoupleType;
    std::array<FixedText<10>, 3> thermocoupleDecimalPoint, thermocoupleUnits;  // primary to tertiary
    float analogInCurrentMax = 0;

    FixedText<10> testWeight, zeroCount, spanCount, zeroReference;
    std::array<FixedText<10>, 5> linearCounts, linearWeight;

    std::int32_t weighmentThreshold = 0;
    // What the indicator has counted; read, never written.
    std::int32_t numberOfWeighments = 0;
    float maxWeight = 0;
    Date maxWeightDate;

    friend bool operator==(const ScaleFields&, const ScaleFields&) = default;
};

// What follows from another kind: no sources (a programmable scale has itself), and the graduations and
// calibration values that the kind starts with. A scale that is not configured has no line for its alias,
// and one that nobody sees could stand in another's way: it goes.
void ChangeKind(ScaleFields& fields, std::int32_t kind);

extern const RowTable<ScaleFields> kScaleTable;

}  // namespace calyx
