#pragma once

#include <cstddef>
#include <string_view>

namespace calyx {

inline constexpr std::size_t kBaudCount = 10;
inline constexpr std::size_t kFramingCount = 3;

// The rates and framings in the order in which detection tries them; empty beyond the last.
std::string_view GetNextBaud(std::size_t index);
std::string_view GetNextParityDataBitsStopBits(std::size_t index);

// What the waits of the link are multiplied by, so that slow lines get their time.
double GetBaudTimeFactor(std::string_view baud);

// What is waited for while settings are tried, at the most, in ms: for streaming, after a lone CR, for the
// answer to VERSION. The last two times the factor of the rate.
inline constexpr int kStreamingMs = 100;
inline constexpr int kSettleMs = 250;
inline constexpr int kVersionMs = 500;

// The longest time in ms that detection can still take, the pair tried at present ("9600,E,7,1") included.
// A pair that is none of the thirty (the stored one, tried first) counts before them all.
int DetectionTimeLeft(std::string_view tried);

}  // namespace calyx
