#pragma once

#include <asio.hpp>

#include "comm/clock.h"
#include "comm/transport.h"
#include "model/language/resource_texts.h"

namespace calyx {

// Opens the wires of this machine. A look-up of a host's name that was given up goes on by itself and is
// waited for when the factory ends, so one factory lives as long as the program.
class TransportFactory final : public ITransportFactory {
  public:
    TransportFactory(const ResourceTexts& texts, IClock& clock) : texts_(texts), clock_(clock) {}

    // Gives up after sixty seconds.
    std::unique_ptr<ITransport> MakeTcp(const std::string& host, std::uint16_t port,
                                        const GoOn& goOn) override;
    std::unique_ptr<ITransport> MakeSerial(const std::string& port, const std::string& settings) override;

  private:
    const ResourceTexts& texts_;
    IClock& clock_;
    asio::io_context names_;
};

}  // namespace calyx
