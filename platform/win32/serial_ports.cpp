#include "platform/serial_ports.h"

#include <windows.h>

#include <setupapi.h>

#include <algorithm>
#include <array>

#include "platform/win32/wide_text.h"

namespace calyx {

namespace {

// "Ports (COM & LPT)", as the system numbers that class of devices.
constexpr GUID kPortsClass = {0x4d36e978, 0xe325, 0x11ce, {0xbf, 0xc1, 0x08, 0x00, 0x2b, 0xe1, 0x03, 0x18}};

// Every port that is open to programs, also those of drivers that describe nothing.
std::vector<SerialPortInfo> NamesInUse() {
    std::vector<SerialPortInfo> ports;
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"HARDWARE\\DEVICEMAP\\SERIALCOMM", 0, KEY_READ, &key) !=
        ERROR_SUCCESS)
        return ports;
    for (DWORD index = 0;; ++index) {
        std::array<wchar_t, 256> name{}, value{};
        DWORD nameSize = static_cast<DWORD>(name.size());
        DWORD bytes = static_cast<DWORD>((value.size() - 1) * sizeof(wchar_t));
        DWORD type = 0;
        const LSTATUS status = RegEnumValueW(key, index, name.data(), &nameSize, nullptr, &type,
                                             reinterpret_cast<BYTE*>(value.data()), &bytes);
        if (status != ERROR_SUCCESS && status != ERROR_MORE_DATA) break;  // their end, or the key went away
        if (status == ERROR_SUCCESS && type == REG_SZ) ports.push_back({win32::Narrow(value.data()), {}});
    }
    RegCloseKey(key);
    return ports;
}

std::string PortNameOf(HDEVINFO devices, SP_DEVINFO_DATA& device) {
    HKEY key = SetupDiOpenDevRegKey(devices, &device, DICS_FLAG_GLOBAL, 0, DIREG_DEV, KEY_READ);
    if (key == INVALID_HANDLE_VALUE) return {};
    std::array<wchar_t, 256> value{};
    DWORD bytes = static_cast<DWORD>((value.size() - 1) * sizeof(wchar_t));
    DWORD type = 0;
    const LSTATUS status =
        RegQueryValueExW(key, L"PortName", nullptr, &type, reinterpret_cast<BYTE*>(value.data()), &bytes);
    RegCloseKey(key);
    return status == ERROR_SUCCESS && type == REG_SZ ? win32::Narrow(value.data()) : std::string();
}

void AddDescriptions(std::vector<SerialPortInfo>& ports) {
    HDEVINFO devices = SetupDiGetClassDevsW(&kPortsClass, nullptr, nullptr, DIGCF_PRESENT);
    if (devices == INVALID_HANDLE_VALUE) return;
    SP_DEVINFO_DATA device{};
    device.cbSize = sizeof(device);
    for (DWORD index = 0; SetupDiEnumDeviceInfo(devices, index, &device); ++index) {
        std::array<wchar_t, 256> text{};
        if (!SetupDiGetDeviceRegistryPropertyW(
                devices, &device, SPDRP_FRIENDLYNAME, nullptr, reinterpret_cast<BYTE*>(text.data()),
                static_cast<DWORD>((text.size() - 1) * sizeof(wchar_t)), nullptr))
            continue;
        const std::string name = PortNameOf(devices, device);
        for (SerialPortInfo& port : ports) {
            if (port.name == name) port.description = win32::Narrow(text.data());
        }
    }
    SetupDiDestroyDeviceInfoList(devices);
}

}  // namespace

std::vector<SerialPortInfo> ListSerialPorts() {
    std::vector<SerialPortInfo> ports = NamesInUse();
    AddDescriptions(ports);
    std::sort(ports.begin(), ports.end(), PortNameBefore);
    return ports;
}

}  // namespace calyx
