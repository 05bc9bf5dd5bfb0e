#include "comm/serial/port_settings.h"

#include "model/language/text.h"

namespace calyx {

namespace {

constexpr int kLeastBaud = 110;
constexpr int kMostBaud = 921'600;

std::optional<int> Number(std::string_view text, int least, int most) {
    const auto number = ReadInteger(Trim(text));
    if (!number || !number->whole || number->value < least || number->value > most) return std::nullopt;
    return number->value;
}

std::optional<PortSettings::Parity> ReadParity(std::string_view text) {
    using enum PortSettings::Parity;
    const std::string_view word = Trim(text);
    if (StartsNoCase(word, "N")) return None;
    if (StartsNoCase(word, "E")) return Even;
    if (StartsNoCase(word, "O")) return Odd;
    return std::nullopt;
}

}  // namespace

std::optional<PortSettings> ReadPortSettings(std::string_view text) {
    const auto fields = Split(text, ',');
    if (fields.size() != 4) return std::nullopt;
    const auto baud = Number(fields[0], kLeastBaud, kMostBaud);
    const auto parity = ReadParity(fields[1]);
    const auto dataBits = Number(fields[2], 7, 8);
    const auto stopBits = Number(fields[3], 1, 2);
    if (!baud || !parity || !dataBits || !stopBits) return std::nullopt;
    return PortSettings{*baud, *parity, *dataBits, *stopBits};
}

}  // namespace calyx
