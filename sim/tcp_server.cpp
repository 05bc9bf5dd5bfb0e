#include "sim/tcp_server.h"

#include <asio.hpp>
#include <chrono>
#include <system_error>
#include <utility>

#include "sim/service.h"
#include "sim/session.h"
#include "sim/tcp/port.h"

namespace calyx::sim {

namespace {

using asio::ip::tcp;

constexpr std::chrono::milliseconds kRetry{250};  // after a connection that could not be taken

tcp::acceptor Listen(asio::io_context& io, std::uint16_t port) {
    const tcp::endpoint endpoint(asio::ip::address_v4::loopback(), port);
    tcp::acceptor acceptor(io, endpoint.protocol());
    const std::error_code error = TakePort(acceptor, endpoint);
    if (!error) return acceptor;
    const std::string what = "cannot listen on 127.0.0.1:" + std::to_string(port);
    // Said here and made comparable, since not every system has words and a common number for it.
    if (error == asio::error::address_in_use) {
        throw std::system_error(std::make_error_code(std::errc::address_in_use),
                                what + ", which another program uses");
    }
    throw std::system_error(error.value(), std::system_category(), what);
}

}  // namespace

class TcpSimulator::Server : public Service {
  public:
    Server(SimulatorOptions options, std::uint16_t port, Report report)
        : Service(std::move(options), std::move(report)),
          acceptor_(Listen(Io(), port)),
          port_(acceptor_.local_endpoint().port()),
          session_(
              Indicator(), [this] { SaveSoon(); }, [this] { EndConnection(); }) {
        Accept();
        Begin();
    }
    ~Server() override { Stop(); }

    std::uint16_t Port() const { return port_; }

  private:
    void CloseWire() override {
        std::error_code ignored;
        acceptor_.close(ignored);
        session_.Close();
        retry_.cancel();
    }

    void Accept() {
        acceptor_.async_accept([this](std::error_code error, tcp::socket socket) {
            if (Closing()) return;
            if (error) return AcceptLater(error);
            std::error_code ignored;
            socket.set_option(tcp::no_delay(true), ignored);
            session_.Start(std::move(socket));
        });
    }

    void AcceptLater(std::error_code why) {
        Tell("a connection could not be taken: " + why.message());
        retry_.expires_after(kRetry);
        retry_.async_wait([this](std::error_code error) {
            if (!error && !Closing()) Accept();
        });
    }

    void EndConnection() {
        Save();
        if (!Closing()) Accept();
    }

    tcp::acceptor acceptor_;
    const std::uint16_t port_;
    Session<tcp::socket> session_;
    asio::steady_timer retry_{Io()};
};

TcpSimulator::TcpSimulator(SimulatorOptions options, std::uint16_t port, Report report)
    : server_(std::make_unique<Server>(std::move(options), port, std::move(report))) {}

TcpSimulator::~TcpSimulator() = default;

std::uint16_t TcpSimulator::Port() const {
    return server_->Port();
}

std::string TcpSimulator::Address() const {
    return "127.0.0.1:" + std::to_string(Port());
}

SimulatorSnapshot TcpSimulator::Snapshot() const {
    return server_->Indicator().Snapshot();
}

void TcpSimulator::AddFault(std::string_view spec) {
    server_->Indicator().AddFault(spec);
}

void TcpSimulator::ClearFaults() {
    server_->Indicator().ClearFaults();
}

void TcpSimulator::ForgetReceived() {
    server_->Indicator().ForgetReceived();
}

void TcpSimulator::Stop() {
    server_->Stop();
}

}  // namespace calyx::sim
