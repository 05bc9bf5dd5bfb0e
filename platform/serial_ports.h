#pragma once

#include <string>
#include <vector>

namespace calyx {

// A serial port of this computer.
struct SerialPortInfo {
    std::string name;         // as the link is given it: "COM3", "/dev/ttyUSB0"
    std::string description;  // what it is in the system's words, UTF-8; empty: not known
    friend bool operator==(const SerialPortInfo&, const SerialPortInfo&) = default;
};

// The ports that are there at present, in the order of their names and numbers (COM2 before COM10). Never
// fails: what cannot be looked at is left out.
std::vector<SerialPortInfo> ListSerialPorts();

// The order of the list: names by their letters, then by the number at their end.
bool PortNameBefore(const SerialPortInfo& a, const SerialPortInfo& b);

}  // namespace calyx
