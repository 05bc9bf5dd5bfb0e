#pragma once

#include <functional>
#include <string>
#include <system_error>

#include "comm/serial/port_settings.h"
#include "model/language/resource_texts.h"

namespace calyx::serial {

// How opening a port ended.
struct Opening {
    enum class Refused { Nothing, Port, Rate, Framing };
    Refused refused = Refused::Nothing;
    std::error_code error{};  // the system's; comparable with std::errc
};

// Applies the settings and, where that fails, finds out by others whether it is the rate, the framing or the
// port as such.
Opening ApplySettings(const PortSettings& settings,
                      const std::function<std::error_code(const PortSettings&)>& apply);

// Raises calyx::Error 12801 in words; SettingsRefused where other settings may do.
[[noreturn]] void FailOpening(const ResourceTexts& texts, const std::string& port,
                              const std::string& settings, const Opening& opening);

}  // namespace calyx::serial
