#include "comm/detection.h"

#include <array>
#include <cmath>
#include <string>

namespace calyx {

namespace {

// The usual rate first, then faster ones, then those hardly in use.
constexpr std::array<std::string_view, kBaudCount> kBauds{"9600", "19200", "38400", "57600", "115200",
                                                          "4800", "2400",  "1200",  "600",   "300"};
constexpr std::array<std::string_view, kFramingCount> kFramings{"E,7,1", "O,7,1", "N,8,1"};

struct Factor {
    std::string_view baud;
    double factor;
};
constexpr Factor kFactors[] = {{"300", 10.0}, {"600", 7.0},  {"1200", 3.0},
                               {"2400", 2.0}, {"4800", 1.5}, {"9600", 1.5}};

}  // namespace

std::string_view GetNextBaud(std::size_t index) {
    return index < kBauds.size() ? kBauds[index] : std::string_view{};
}

std::string_view GetNextParityDataBitsStopBits(std::size_t index) {
    return index < kFramings.size() ? kFramings[index] : std::string_view{};
}

double GetBaudTimeFactor(std::string_view baud) {
    for (const Factor& entry : kFactors) {
        if (entry.baud == baud) return entry.factor;
    }
    return 1.0;
}

int DetectionTimeLeft(std::string_view tried) {
    double left = 0;
    for (std::size_t baud = kBaudCount; baud-- > 0;) {
        const double pair = kStreamingMs + GetBaudTimeFactor(kBauds[baud]) * (kSettleMs + kVersionMs);
        for (std::size_t framing = kFramingCount; framing-- > 0;) {
            left += pair;
            if (tried == std::string(kBauds[baud]) + "," + std::string(kFramings[framing]))
                return static_cast<int>(std::lround(left));
        }
    }
    return static_cast<int>(std::lround(left));
}

}  // namespace calyx
