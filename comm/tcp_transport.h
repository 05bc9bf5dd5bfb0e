#pragma once

#include <array>
#include <asio.hpp>
#include <system_error>
#include <vector>

#include "comm/clock.h"
#include "comm/transport.h"

namespace calyx {

// A wire over TCP. One read is always under way, so that whatever arrives, the end of the connection
// included, wakes Wait.
class TcpTransport final : public ITransport {
  public:
    using Endpoints = std::vector<asio::ip::tcp::endpoint>;

    TcpTransport() : socket_(io_) {}
    ~TcpTransport() override;
    TcpTransport(const TcpTransport&) = delete;
    TcpTransport& operator=(const TcpTransport&) = delete;

    // Connects to the first of the addresses that accepts. Time runs out, or `goOn` gives up:
    // timed_out, operation_aborted. To be called once, before anything else.
    std::error_code Connect(const Endpoints& endpoints, IClock& clock, std::int64_t deadlineMs,
                            const ITransportFactory::GoOn& goOn);

    bool IsOpen() const override { return open_; }
    void Close() override;
    void Write(std::string_view bytes) override;
    std::string Read() override;
    std::size_t Waiting() override;
    void ClearBuffers() override;
    void Wait(int milliseconds) override;

  private:
    void StartRead();
    void StartWrite();
    void Poll();
    void Broken();

    // What a read or write under way works on stands before the context, which ends them.
    std::array<char, 16384> chunk_{};
    std::string sending_;  // the write under way; empty: none
    std::string unsent_;   // waits for it
    std::string received_;
    bool open_ = false;
    asio::io_context io_;
    asio::ip::tcp::socket socket_;
};

}  // namespace calyx
