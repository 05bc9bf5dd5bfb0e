#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "model/language/change_set.h"

namespace calyx {

// The commands of a live calibration. n is the number of the scale, k that of a linear point, 1 to 5.
std::string GetZeroCalCommand(int n);      // zero count
std::string GetSpanCalCommand(int n);      // span count
std::string GetWeightValueCommand(int n);  // test weight
std::string GetDoZeroCalCommand(int n);    // calibrates zero
std::string GetDoSpanCalCommand(int n);    // calibrates span
std::string GetDoReZeroCommand(int n);     // takes the weight of hooks and chains out of the zero
std::string GetLinearWeightCalCommand(int k, int n);
std::string GetLinearCountsCalCommand(int k, int n);
std::string GetDoLinearCalCommand(int k, int n);  // calibrates a linear point

// The value in the reply to a query: without the echo of the command, without a "KEY=" in front, without line
// ends and blanks around it. Empty: the reply has none.
std::string StripEcho(std::string_view reply, std::string_view command);

// What a calibration consists of, as the indicator writes it: weights in primary units, counts of the
// converter.
struct CalibrationValues {
    static constexpr int kPoints = 5;

    std::string zeroCount, testWeight, spanCount;
    std::array<std::string, kPoints> linearWeights, linearCounts;

    // As parameter lines of the scale, in the order in which they are put back.
    std::vector<KeyValue> Lines(int scale) const;
    // False: one of the thirteen is missing or empty.
    static bool Read(const std::vector<KeyValue>& lines, int scale, CalibrationValues& values);

    friend bool operator==(const CalibrationValues&, const CalibrationValues&) = default;
};

}  // namespace calyx
