#include "comm/serial/serial_transport.h"

#include "comm/serial/device.h"

namespace calyx {

serial::Opening SerialTransport::Open(const std::string& name, const PortSettings& settings) {
    std::error_code error;
    stream_.open(serial::DevicePath(name), error);  // never as the controlling terminal
    // Asio's own category tells nothing about Windows' numbers for files and devices.
    if (error) return {serial::Opening::Refused::Port, {error.value(), std::system_category()}};
    const serial::Opening opening = serial::ApplySettings(settings, [this](const PortSettings& tried) {
        return serial::Apply(stream_.native_handle(), tried);
    });
    if (opening.error) {
        stream_.close(error);
        return opening;
    }
    // What came before the settings were right says nothing.
    serial::Clear(stream_.native_handle());
    Opened();
    return {};
}

void SerialTransport::ClearSystemBuffers() {
    serial::Clear(stream_.native_handle());
}

}  // namespace calyx
