#include "comm/serial/opening.h"

#include <algorithm>
#include <initializer_list>

#include "comm/link_texts.h"
#include "comm/transport.h"
#include "model/language/reason.h"

namespace calyx::serial {

namespace {

constexpr const char* kSource = "Calyx.CIndicatorComm.Connect";

bool IsOneOf(const std::error_code& error, std::initializer_list<std::errc> kinds) {
    return std::any_of(kinds.begin(), kinds.end(), [&](std::errc kind) { return error == kind; });
}

int PortText(const std::error_code& error) {
    using enum std::errc;
    // Windows refuses access to a port that another program has open.
    if (IsOneOf(error, {device_or_resource_busy, permission_denied})) return link_text::kPortBusy;
    const bool missing =
        IsOneOf(error, {no_such_file_or_directory, no_such_device, no_such_device_or_address});
    return missing ? link_text::kNoSuchPort : link_text::kNoSerial;
}

}  // namespace

Opening ApplySettings(const PortSettings& settings,
                      const std::function<std::error_code(const PortSettings&)>& apply) {
    using enum Opening::Refused;
    const std::error_code error = apply(settings);
    if (!error) return {};
    PortSettings others;  // these no port refuses
    if (apply(others)) return {Port, error};
    others.baud = settings.baud;
    return {apply(others) ? Rate : Framing, error};
}

void FailOpening(const ResourceTexts& texts, const std::string& port, const std::string& settings,
                 const Opening& opening) {
    const std::string reason = Reason(opening.error);
    if (opening.refused == Opening::Refused::Port)
        throw Error(code::kLink, kSource, texts.Format(PortText(opening.error), {port, reason}));
    const bool rate = opening.refused == Opening::Refused::Rate;
    const std::size_t comma = settings.find(',');
    throw SettingsRefused(
        code::kLink, kSource,
        texts.Format(rate ? link_text::kRateRefused : link_text::kFramingRefused,
                     {port, rate ? settings.substr(0, comma) : settings.substr(comma + 1), reason}));
}

}  // namespace calyx::serial
