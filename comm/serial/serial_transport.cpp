#include "comm/serial/serial_transport.h"

#include "comm/serial/device.h"

namespace calyx {

std::error_code SerialTransport::Open(const std::string& name, const PortSettings& settings) {
    std::error_code error;
    stream_.open(serial::DevicePath(name), error);  // never as the controlling terminal
    if (!error) error = serial::Apply(stream_.native_handle(), settings);
    if (error) {
        std::error_code ignored;
        stream_.close(ignored);
        return error;
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
