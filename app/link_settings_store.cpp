#include "app/link_settings_store.h"

#include <algorithm>

#include "model/language/text.h"

namespace calyx {

int LinkSettingsStore::Address() const {
    const auto number = ReadInteger(settings_.TargetAddress);
    if (number && number->whole && number->value >= 1 && number->value <= 255) return number->value;
    recorder_(Error(code::kSetting, "Calyx.CIndicatorComm.InitComm",
                    texts_.Format(code::kSetting, {"TargetAddress", '"' + settings_.TargetAddress + '"'})));
    return 1;
}

LinkSettings LinkSettingsStore::Load() {
    LinkSettings link;
    link.method = settings_.CommMethod;
    link.port = settings_.IndicatorPort;
    link.baud = settings_.IndicatorBaud;
    link.parity = settings_.IndicatorParity;
    link.dataBits = settings_.IndicatorDataBits;
    link.stopBits = settings_.IndicatorStopBits;
    link.host = settings_.IPAddress;
    link.tcpPort = static_cast<std::uint16_t>(settings_.TCPPort);
    link.address = Address();
    link.delayMs = std::max(settings_.CommDelayTime, 0);
    link.logging = settings_.LogComm;
    link.searchText = settings_.AutoDetectSearch;
    link.storedFirst = !settings_.AutoDetectIndicatorSettings;
    return link;
}

void LinkSettingsStore::Store(const LinkSettings& found) {
    settings_.IndicatorPort = found.port;
    settings_.IndicatorBaud = found.baud;
    settings_.IndicatorParity = found.parity;
    settings_.IndicatorDataBits = found.dataBits;
    settings_.IndicatorStopBits = found.stopBits;
    settings_.IPAddress = found.host;
    settings_.TCPPort = static_cast<std::int16_t>(found.tcpPort);
    try {
        settings_.Save();
    } catch (Error& error) {
        error.PassedOnBy("Calyx.CIndicatorComm.StoreSettings");
        recorder_(error);
    }
}

void LinkSettingsStore::Keep(const LinkSettings& chosen) {
    settings_.CommMethod = chosen.method;
    settings_.AutoDetectIndicatorSettings = !chosen.storedFirst;
    settings_.TargetAddress = std::to_string(chosen.address);
    Store(chosen);
}

}  // namespace calyx
