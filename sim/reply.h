#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace calyx::sim {

inline constexpr std::string_view kAccepted = "OK\r\n";
inline constexpr std::string_view kRefused = "??\r\n";

// What the indicator sends back, and how it leaves. Before the answer go the stray bytes, then the echo;
// neither is ever framed.
struct Reply {
    std::string bytes;
    std::string stray{};
    bool echo = false;           // what was received goes back first
    int address = 0;             // another one to answer under, on an addressed line; 0: the own
    std::size_t pieceBytes = 0;  // bytes of each separate write; 0: all in one
    int delayMs = 0;             // rest before the first byte
    bool close = false;          // the connection closes once the bytes are out
};

// What the indicator sends although nobody asked.
struct Unasked {
    std::string bytes;
    int everyMs = 0;  // 0: nothing
};

}  // namespace calyx::sim
