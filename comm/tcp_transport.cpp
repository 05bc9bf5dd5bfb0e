#include "comm/tcp_transport.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <utility>

namespace calyx {

namespace {

constexpr int kPollMs = 20;

}  // namespace

TcpTransport::~TcpTransport() {
    std::error_code ignored;
    socket_.close(ignored);
}

std::error_code TcpTransport::Connect(const Endpoints& endpoints, IClock& clock, std::int64_t deadlineMs,
                                      const ITransportFactory::GoOn& goOn) {
    std::optional<std::error_code> result;
    asio::async_connect(socket_, endpoints,
                        [&result](std::error_code error, const asio::ip::tcp::endpoint&) { result = error; });
    while (!result) {
        const bool late = clock.NowMs() >= deadlineMs;
        if (late || !goOn()) {
            std::error_code ignored;
            socket_.close(ignored);
            io_.run();  // until the handler, which looks into this call, has run
            return late ? asio::error::timed_out : asio::error::operation_aborted;
        }
        io_.run_one_for(std::chrono::milliseconds(kPollMs));
    }
    if (*result) return *result;
    std::error_code error;
    socket_.set_option(asio::ip::tcp::no_delay(true), error);  // a command is one short packet
    if (!error) socket_.non_blocking(true, error);
    if (error) return error;
    open_ = true;
    io_.restart();
    StartRead();
    return {};
}

void TcpTransport::StartRead() {
    socket_.async_read_some(asio::buffer(chunk_), [this](std::error_code error, std::size_t count) {
        received_.append(chunk_.data(), count);
        error ? Broken() : StartRead();
    });
}

void TcpTransport::StartWrite() {
    sending_ = std::exchange(unsent_, {});
    asio::async_write(socket_, asio::buffer(sending_), [this](std::error_code error, std::size_t) {
        sending_.clear();
        if (error) return Broken();
        if (!unsent_.empty()) StartWrite();
    });
}

void TcpTransport::Broken() {
    open_ = false;
    std::error_code ignored;
    socket_.close(ignored);
}

void TcpTransport::Close() {
    if (!open_) return;
    open_ = false;
    std::error_code error;
    socket_.shutdown(asio::ip::tcp::socket::shutdown_both, error);
    socket_.close(error);
    if (error) throw std::system_error(error);
}

void TcpTransport::Write(std::string_view bytes) {
    if (!open_) return;
    // A command goes out at once; only what the system does not take, because the other end does not
    // read, is left to a write of its own.
    if (sending_.empty()) {
        std::error_code error;
        bytes.remove_prefix(socket_.write_some(asio::buffer(bytes), error));
        if (error && error != asio::error::would_block && error != asio::error::try_again) return Broken();
    }
    unsent_ += bytes;
    if (sending_.empty() && !unsent_.empty()) StartWrite();
}

std::string TcpTransport::Read() {
    Poll();
    return std::exchange(received_, {});
}

std::size_t TcpTransport::Waiting() {
    Poll();
    return received_.size();
}

void TcpTransport::ClearBuffers() {
    Poll();
    received_.clear();
    unsent_.clear();
}

void TcpTransport::Wait(int milliseconds) {
    Poll();
    if (!received_.empty() || !open_) return;
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    while (received_.empty() && open_ && io_.run_one_until(end) > 0) continue;
}

void TcpTransport::Poll() {
    io_.restart();
    io_.poll();
}

}  // namespace calyx
