#include "comm/tcp_transport.h"

#include <chrono>
#include <optional>

namespace calyx {

namespace {

constexpr int kPollMs = 20;

}  // namespace

std::error_code TcpTransport::Connect(const Endpoints& endpoints, IClock& clock, std::int64_t deadlineMs,
                                      const ITransportFactory::GoOn& goOn) {
    std::optional<std::error_code> result;
    asio::async_connect(stream_, endpoints,
                        [&result](std::error_code error, const asio::ip::tcp::endpoint&) { result = error; });
    while (!result) {
        const bool late = clock.NowMs() >= deadlineMs;
        if (late || !goOn()) {
            std::error_code ignored;
            stream_.close(ignored);
            io_.run();  // until the handler, which looks into this call, has run
            return late ? asio::error::timed_out : asio::error::operation_aborted;
        }
        io_.run_one_for(std::chrono::milliseconds(kPollMs));
    }
    if (*result) return *result;
    std::error_code error;
    stream_.set_option(asio::ip::tcp::no_delay(true), error);  // a command is one short packet
    if (!error) stream_.non_blocking(true, error);
    if (error) return error;
    Opened();
    return {};
}

std::size_t TcpTransport::WriteNow(std::string_view bytes, std::error_code& error) {
    return stream_.write_some(asio::buffer(bytes), error);
}

void TcpTransport::EndStream(std::error_code& error) {
    stream_.shutdown(asio::ip::tcp::socket::shutdown_both, error);
    stream_.close(error);
}

}  // namespace calyx
