#pragma once

#include <filesystem>
#include <vector>

#include "platform/serial_ports.h"

namespace calyx::platform {

// The ports that the kernel's folder of terminals ("/sys/class/tty") lists, each a device that is there.
std::vector<SerialPortInfo> SerialPortsIn(const std::filesystem::path& terminals);

}  // namespace calyx::platform
