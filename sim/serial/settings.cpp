#include "sim/serial/settings.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <stdexcept>
#include <string_view>
#include <system_error>

namespace calyx::sim {

namespace {

constexpr int kRates[] = {300, 600, 1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200};

}  // namespace

SerialSettings ReadSerialSettings(const std::string& text) {
    SerialSettings settings;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, settings.baud);
    const std::string framing(error == std::errc() ? rest : end, end);
    const bool rate = std::find(std::begin(kRates), std::end(kRates), settings.baud) != std::end(kRates);
    const bool fits = framing.size() == 6 && framing[0] == ',' && framing[2] == ',' && framing[4] == ',' &&
                      std::string_view("NEO").find(framing[1]) != std::string_view::npos &&
                      (framing[3] == '7' || framing[3] == '8') && (framing[5] == '1' || framing[5] == '2');
    if (!rate || !fits) throw std::invalid_argument("the settings \"" + text + "\" are not like 9600,N,8,1");
    settings.parity = framing[1];
    settings.dataBits = framing[3] - '0';
    settings.stopBits = framing[5] - '0';
    return settings;
}

}  // namespace calyx::sim
