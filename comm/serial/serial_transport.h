#pragma once

#include "comm/serial/opening.h"
#include "comm/stream_transport.h"

namespace calyx {

// A wire over a serial port of this computer.
class SerialTransport final : public StreamTransport<asio::serial_port> {
  public:
    // To be called once, before anything else. `name` is "COM3", "ttyUSB0" or a path.
    serial::Opening Open(const std::string& name, const PortSettings& settings);

  private:
    void ClearSystemBuffers() override;
};

}  // namespace calyx
