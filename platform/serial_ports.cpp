#include "platform/serial_ports.h"

#include <string_view>

namespace calyx {

namespace {

std::size_t NumberStart(std::string_view name) {
    const std::size_t last = name.find_last_not_of("0123456789");
    return last == std::string_view::npos ? 0 : last + 1;
}

}  // namespace

bool PortNameBefore(const SerialPortInfo& a, const SerialPortInfo& b) {
    const std::size_t numberA = NumberStart(a.name);
    const std::size_t numberB = NumberStart(b.name);
    const int letters = a.name.compare(0, numberA, b.name, 0, numberB);
    if (letters != 0) return letters < 0;
    // Numbers have no leading zeros: the longer one is greater.
    if (a.name.size() != b.name.size()) return a.name.size() < b.name.size();
    return a.name < b.name;
}

}  // namespace calyx
