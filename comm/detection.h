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

}  // namespace calyx
