#pragma once

#include <optional>
#include <string_view>

namespace calyx {

// How characters go over a serial line.
struct PortSettings {
    enum class Parity { None, Even, Odd };

    int baud = 9600;
    Parity parity = Parity::None;
    int dataBits = 8;  // 7, 8
    int stopBits = 1;  // 1, 2

    friend bool operator==(const PortSettings&, const PortSettings&) = default;
};

// From "9600,N,8,1": baud, first letter of the parity, data bits, stop bits, with or without blanks around
// each. Nothing for a text that is not like this.
std::optional<PortSettings> ReadPortSettings(std::string_view text);

}  // namespace calyx
