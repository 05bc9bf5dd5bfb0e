#pragma once

#include <asio.hpp>
#include <string>

#include "sim/serial/settings.h"

namespace calyx::sim {

// Opens a serial device of this machine with these settings: "COM3", "ttyUSB0" or a path. One file a system.
// Raises std::system_error.
void OpenDevice(asio::serial_port& port, const std::string& device, const SerialSettings& settings);

}  // namespace calyx::sim
