#pragma once

#include <asio.hpp>
#include <string>
#include <system_error>

#include "comm/serial/port_settings.h"

namespace calyx::serial {

// What each system does for itself with a serial port that Asio has opened.
using Handle = asio::serial_port::native_handle_type;

// The name as the system opens it: "COM3" as it stands, "ttyUSB0" with its folder.
std::string DevicePath(const std::string& name);

// Applies all settings in one call, since some drivers refuse them one by one: raw characters of eight bits,
// no flow control, lines DTR and RTS on. Another program that uses the port: device_or_resource_busy.
std::error_code Apply(Handle port, const PortSettings& settings);

// Forgets what the system has received and not passed on, and what it was given and has not sent.
void Clear(Handle port);

}  // namespace calyx::serial
