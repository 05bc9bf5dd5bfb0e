#pragma once

#include <cstdint>
#include <string>

#include "model/language/row.h"

namespace calyx {

// The line settings, role and stream choice of one serial port.
struct PortFields {
    FixedText<8> alias;
    FixedText<10> inputType;  // what the indicator does with characters that arrive
    FixedText<10> baudRate, bits, stopBits, terminator, handshaking;
    std::int32_t endOfLineDelay = 0;  // 0 to 255
    bool commandEcho = true;
    bool commandResponse = true;
    FixedText<10> portType, duplex;
    std::int32_t address = 0;  // RS-485 address, 0 to 255
    std::int32_t source = 0;   // scale whose data is streamed, 0: none
    FixedText<10> streamType;  // "OFF": nothing is streamed
    FixedText<10> streamFormat;

    friend bool operator==(const PortFields&, const PortFields&) = default;

    bool IsKeyboard() const;
    // Ports that feed a scale or a junction box do not stream.
    bool CanStream() const;
    bool Streams() const { return streamType.Trimmed() != "OFF"; }
    // The port's own stream definition is in use.
    bool UsesStreamDefinition() const;
};

// A custom stream definition: what the indicator puts into a stream, character by character.
struct StreamFields {
    static constexpr std::size_t kTokenWidth = 8;
    static constexpr std::size_t kFormatWidth = 200;

    std::int32_t positive = 2;  // 1 the sign, 2 a blank, 3 nothing
    std::int32_t negative = 1;
    std::string primary, secondary, tertiary, gross, net, tare, motion, range, ok, invalid,
        coz;             // 1 to 8 characters
    std::string format;  // at most 200 characters

    friend bool operator==(const StreamFields&, const StreamFields&) = default;
};

extern const RowTable<PortFields> kPortTable;
extern const RowTable<StreamFields> kStreamTable;

}  // namespace calyx
