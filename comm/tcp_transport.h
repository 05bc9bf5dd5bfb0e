#pragma once

#include <vector>

#include "comm/clock.h"
#include "comm/stream_transport.h"

namespace calyx {

// A wire over TCP.
class TcpTransport final : public StreamTransport<asio::ip::tcp::socket> {
  public:
    using Endpoints = std::vector<asio::ip::tcp::endpoint>;

    // Connects to the first of the addresses that accepts. Time runs out, or `goOn` gives up:
    // timed_out, operation_aborted. To be called once, before anything else.
    std::error_code Connect(const Endpoints& endpoints, IClock& clock, std::int64_t deadlineMs,
                            const ITransportFactory::GoOn& goOn);

  private:
    std::size_t WriteNow(std::string_view bytes, std::error_code& error) override;
    void EndStream(std::error_code& error) override;
};

}  // namespace calyx
