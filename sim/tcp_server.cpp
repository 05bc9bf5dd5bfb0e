#include "sim/tcp_server.h"

#include <asio.hpp>
#include <chrono>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#include "sim/session.h"

namespace calyx::sim {

namespace {

using asio::ip::tcp;

constexpr std::chrono::seconds kSaveAfter{1};     // from the first unsaved change
constexpr std::chrono::milliseconds kRetry{250};  // after a connection that could not be taken

bool SomebodyListens(asio::io_context& io, const tcp::endpoint& endpoint) {
    std::error_code error;
    tcp::socket(io).connect(endpoint, error);
    return !error;
}

tcp::acceptor Listen(asio::io_context& io, std::uint16_t port) {
    const tcp::endpoint endpoint(asio::ip::address_v4::loopback(), port);
    tcp::acceptor acceptor(io, endpoint.protocol());
    std::error_code error;
    std::error_code ignored;
    acceptor.bind(endpoint, error);
    // The remains of a connection may hold the port for a minute. Reuse is asked for only then: some
    // systems would let two programs listen on the same port.
    if (error == asio::error::address_in_use && !SomebodyListens(io, endpoint)) {
        acceptor.set_option(tcp::acceptor::reuse_address(true), ignored);
        acceptor.bind(endpoint, error);
    }
    acceptor.set_option(tcp::acceptor::reuse_address(true), ignored);  // for the next start on this port
    if (!error) acceptor.listen(tcp::acceptor::max_listen_connections, error);
    if (error) {
        const std::error_code why(error.value(), std::system_category());  // comparable with std::errc
        throw std::system_error(why, "cannot listen on 127.0.0.1:" + std::to_string(port));
    }
    return acceptor;
}

}  // namespace

class TcpSimulator::Server {
  public:
    Server(SimulatorOptions options, std::uint16_t port, Report report)
        : report_(std::move(report)),
          indicator_(std::move(options)),
          acceptor_(Listen(io_, port)),
          port_(acceptor_.local_endpoint().port()),
          session_(
              indicator_, [this] { SaveSoon(); }, [this] { EndConnection(); }) {
        Accept();
        thread_ = std::thread([this] { Run(); });
    }

    ~Server() { Stop(); }

    std::uint16_t Port() const { return port_; }
    SharedSimulator& Indicator() { return indicator_; }

    void Stop() {
        const std::lock_guard lock(stopping_);
        if (!thread_.joinable()) return;
        asio::post(io_, [this] { Close(); });
        thread_.join();
    }

  private:
    void Run() {
        for (bool ended = false; !ended;) {
            try {
                io_.run();
                ended = true;
            } catch (const std::exception& failure) {
                Tell(std::string("the simulated indicator stops: ") + failure.what());
                Close();
            }
        }
        Save();
    }

    // Leaves nothing that could still happen, so that the thread runs out.
    void Close() {
        closing_ = true;
        std::error_code ignored;
        acceptor_.close(ignored);
        session_.Close();
        retry_.cancel();
        save_.cancel();
    }

    void Accept() {
        acceptor_.async_accept([this](std::error_code error, tcp::socket socket) {
            if (closing_) return;
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
            if (!error && !closing_) Accept();
        });
    }

    void EndConnection() {
        Save();
        if (!closing_) Accept();
    }

    void SaveSoon() {
        if (savePending_ || !indicator_.StateUnsaved()) return;
        savePending_ = true;
        save_.expires_after(kSaveAfter);
        save_.async_wait([this](std::error_code error) {
            savePending_ = false;
            if (!error) Save();
        });
    }

    void Save() {
        try {
            indicator_.SaveState();
        } catch (const std::exception& failure) {
            Tell(failure.what());
        }
    }

    void Tell(const std::string& trouble) {
        if (report_) report_(trouble);
    }

    Report report_;
    SharedSimulator indicator_;
    asio::io_context io_{1};
    tcp::acceptor acceptor_;
    const std::uint16_t port_;
    Session<tcp::socket> session_;
    asio::steady_timer retry_{io_};
    asio::steady_timer save_{io_};
    bool savePending_ = false;
    bool closing_ = false;
    std::mutex stopping_;  // one Stop at a time
    std::thread thread_;
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
