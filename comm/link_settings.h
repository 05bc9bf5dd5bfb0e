#pragma once

#include <cstdint>
#include <string>

namespace calyx {

// How the link reaches the indicator. Any other number is a plain serial line with the stored settings.
namespace comm_method {
inline constexpr int kAddressed = 1;  // serial, every command framed with the indicator's address
inline constexpr int kTcp = 2;
inline constexpr int kDetect = 3;  // serial, settings found anew at every connect
}  // namespace comm_method

// The program's settings that concern the link.
struct LinkSettings {
    int method = 0;
    std::string port = "COM1";  // name of the serial port
    std::string baud = "9600";
    std::string parity = "N";
    std::string dataBits = "8";
    std::string stopBits = "1";
    std::string host = "128.1.1.1";
    std::uint16_t tcpPort = 10001;
    int address = 1;                    // `TargetAddress`, 1..255
    int delayMs = 100;                  // `CommDelayTime`, unit of the reception waits
    bool logging = false;               // `LogComm`
    std::string searchText = "Merrin";  // `AutoDetectSearch`, must stand in the reply to VERSION
    bool storedFirst = false;           // detection tries the stored settings before its own thirty
};

// Where the settings of the link are kept.
class ILinkSettingsStore {
  public:
    virtual ~ILinkSettingsStore() = default;
    virtual LinkSettings Load() = 0;
    // Keeps what a successful connect found: port, the four serial fields, host and TCP port.
    virtual void Store(const LinkSettings& found) = 0;
};

}  // namespace calyx
