#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "sim/shared_simulator.h"

namespace calyx::sim {

// A simulated indicator on a TCP port of this machine (127.0.0.1 only), served by one thread of its own.
// One connection at a time, as an indicator has one host; another waits until the first is closed.
//
// With a state file, what was stored is on disk a second later at most, and at once when the connection
// or the server ends. All operations may be called from any thread but those inside `Report`.
class TcpSimulator {
  public:
    // Told of troubles that end nothing (the state cannot be written, a connection cannot be taken), in
    // words. Called on the server's thread; must not throw and must not call Stop.
    using Report = std::function<void(const std::string&)>;

    static constexpr std::uint16_t kAnyPort = 0;  // the system chooses a free one

    // Listens when it returns. Raises std::system_error (port in use, no permission) and what Simulator
    // raises.
    explicit TcpSimulator(SimulatorOptions options, std::uint16_t port = kAnyPort, Report report = {});
    ~TcpSimulator();
    TcpSimulator(const TcpSimulator&) = delete;
    TcpSimulator& operator=(const TcpSimulator&) = delete;

    std::uint16_t Port() const;
    std::string Address() const;  // "127.0.0.1:" and the port

    SimulatorSnapshot Snapshot() const;
    void AddFault(std::string_view spec);  // raises std::invalid_argument, see MakeFault
    void ClearFaults();
    void ForgetReceived();

    // Closes port and connection and waits for the thread's end; a second call does nothing.
    void Stop();

  private:
    class Server;
    std::unique_ptr<Server> server_;
};

}  // namespace calyx::sim
