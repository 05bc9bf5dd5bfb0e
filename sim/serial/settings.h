#pragma once

#include <string>

namespace calyx::sim {

// How characters go over a simulated indicator's serial line.
struct SerialSettings {
    int baud = 9600;
    char parity = 'N';  // N, E, O
    int dataBits = 8;   // 7, 8
    int stopBits = 1;   // 1, 2

    // Of a character, with start, parity and stop bits.
    int Bits() const { return 1 + dataBits + (parity == 'N' ? 0 : 1) + stopBits; }
};

// From "9600,N,8,1", with one of the usual rates from 300 to 115200. Raises std::invalid_argument.
SerialSettings ReadSerialSettings(const std::string& text);

}  // namespace calyx::sim
