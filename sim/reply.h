#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace calyx::sim {

inline constexpr std::string_view kAccepted = "OK\r\n";
inline constexpr std::string_view kRefused = "??\r\n";

// What the indicator sends back, and how it leaves.
struct Reply {
    std::string bytes;
    std::size_t pieceBytes = 0;  // bytes of each separate write; 0: all in one
    bool close = false;          // the connection closes once the bytes are out
};

}  // namespace calyx::sim
