#pragma once

#include "comm/serial/port_settings.h"
#include "comm/stream_transport.h"

namespace calyx {

// A wire over a serial port of this computer.
class SerialTransport final : public StreamTransport<asio::serial_port> {
  public:
    // To be called once, before anything else. `name` is "COM3", "ttyUSB0" or a path.
    std::error_code Open(const std::string& name, const PortSettings& settings);

  private:
    void ClearSystemBuffers() override;
};

}  // namespace calyx
