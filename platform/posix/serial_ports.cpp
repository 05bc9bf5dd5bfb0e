#include "platform/posix/serial_ports.h"

#include <algorithm>
#include <fstream>
#include <string_view>
#include <system_error>

namespace calyx {

namespace {

namespace fs = std::filesystem;

std::string FirstLineOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::string line;
    std::getline(in, line);
    return line;
}

// Chips of the main board are listed for every place there could be one; type 0 is none.
bool IsThere(const fs::path& terminal) {
    std::error_code failure;
    return fs::exists(terminal / "device", failure) && FirstLineOf(terminal / "type") != "0";
}

// An adaptor names itself some folders above its terminal.
std::string Describe(const fs::path& terminal) {
    constexpr int kLevels = 5;
    std::error_code failure;
    fs::path device = fs::canonical(terminal / "device", failure);
    const std::string driver = fs::read_symlink(device / "driver", failure).filename().string();
    for (int level = 0; level < kLevels && device.has_relative_path();
         ++level, device = device.parent_path()) {
        const std::string product = FirstLineOf(device / "product");
        if (product.empty()) continue;
        const std::string maker = FirstLineOf(device / "manufacturer");
        return maker.empty() || product.find(maker) == 0 ? product : maker + " " + product;
    }
    return driver;
}

// Systems without that folder name their ports for calling out so.
std::vector<SerialPortInfo> CallOutPorts() {
    std::vector<SerialPortInfo> ports;
    std::error_code failure;
    for (fs::directory_iterator entry("/dev", failure), end; !failure && entry != end;
         entry.increment(failure)) {
        const std::string name = entry->path().filename().string();
        if (name.starts_with("cu.")) ports.push_back({entry->path().string(), name.substr(3)});
    }
    return ports;
}

}  // namespace

std::vector<SerialPortInfo> platform::SerialPortsIn(const fs::path& terminals) {
    std::vector<SerialPortInfo> ports;
    std::error_code failure;
    for (fs::directory_iterator entry(terminals, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        if (!IsThere(entry->path())) continue;
        ports.push_back({"/dev/" + entry->path().filename().string(), Describe(entry->path())});
    }
    std::sort(ports.begin(), ports.end(), PortNameBefore);
    return ports;
}

std::vector<SerialPortInfo> ListSerialPorts() {
    const fs::path terminals = "/sys/class/tty";
    std::error_code failure;
    if (fs::is_directory(terminals, failure)) return platform::SerialPortsIn(terminals);
    auto ports = CallOutPorts();
    std::sort(ports.begin(), ports.end(), PortNameBefore);
    return ports;
}

}  // namespace calyx
