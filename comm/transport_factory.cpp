#include "comm/transport_factory.h"

#include <chrono>
#include <optional>

#include "comm/link_texts.h"
#include "comm/serial/serial_transport.h"
#include "comm/tcp_transport.h"
#include "model/language/error.h"
#include "model/language/reason.h"

namespace calyx {

namespace {

constexpr std::int64_t kConnectMs = 60'000;
constexpr int kPollMs = 20;

struct LookUp {
    std::optional<std::error_code> result;
    TcpTransport::Endpoints endpoints;
};

// `found` is shared with a look-up that was given up and ends later.
std::shared_ptr<LookUp> Resolve(asio::io_context& names, const std::string& host, std::uint16_t port,
                                const ITransportFactory::GoOn& goOn) {
    auto found = std::make_shared<LookUp>();
    std::error_code notNumeric;
    const auto address = asio::ip::make_address(host, notNumeric);
    if (!notNumeric) {
        found->result.emplace();
        found->endpoints.emplace_back(address, port);
        return found;
    }
    asio::ip::tcp::resolver resolver(names);
    resolver.async_resolve(host, std::to_string(port), [found](std::error_code error, const auto& results) {
        found->result = error;
        found->endpoints.assign(results.begin(), results.end());
    });
    while (!found->result && goOn()) {
        names.restart();
        names.run_one_for(std::chrono::milliseconds(kPollMs));
    }
    return found;
}

}  // namespace

std::unique_ptr<ITransport> TransportFactory::MakeTcp(const std::string& host, std::uint16_t port,
                                                      const GoOn& goOn) {
    const std::int64_t deadline = clock_.NowMs() + kConnectMs;
    const auto found = Resolve(names_, host, port, [&] { return clock_.NowMs() < deadline && goOn(); });
    auto transport = std::make_unique<TcpTransport>();
    std::error_code error = found->result.value_or(asio::error::timed_out);
    if (!error) error = transport->Connect(found->endpoints, clock_, deadline, goOn);
    if (!error) return transport;
    const std::string where = host + ":" + std::to_string(port);
    throw Error(code::kLink, "Calyx.CIndicatorComm.ConnectTCPIP",
                texts_.Format(link_text::kUnreachable, {where, Reason(error)}));
}

std::unique_ptr<ITransport> TransportFactory::MakeSerial(const std::string& port,
                                                         const std::string& settings) {
    const auto read = ReadPortSettings(settings);
    if (!read) {
        throw Error(code::kLink, "Calyx.CIndicatorComm.Connect",
                    texts_.Format(link_text::kPortSettings, {settings}));
    }
    auto transport = std::make_unique<SerialTransport>();
    const serial::Opening opening = transport->Open(port, *read);
    if (opening.error) serial::FailOpening(texts_, port, settings, opening);
    return transport;
}

}  // namespace calyx
