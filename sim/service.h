#pragma once

#include <asio.hpp>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

#include "sim/shared_simulator.h"

namespace calyx::sim {

// A simulated indicator with a thread of its own, whatever its wire is. What was stored is on disk a second
// later at most, and at once when a connection or the service ends. Wires are opened and closed by the
// classes beneath, whose constructors call Begin last and whose destructors call Stop first.
class Service {
  public:
    // Told of troubles that end nothing, in words. Called on the service's thread; must not throw and must
    // not call Stop.
    using Report = std::function<void(const std::string&)>;

    Service(SimulatorOptions options, Report report)
        : report_(std::move(report)), indicator_(std::move(options)) {}
    virtual ~Service() = default;
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;

    SharedSimulator& Indicator() { return indicator_; }
    void Stop();

  protected:
    void Begin() {
        thread_ = std::thread([this] { Run(); });
    }
    // Leaves nothing that could still happen on the wire, so that the thread runs out.
    virtual void CloseWire() = 0;

    asio::io_context& Io() { return io_; }
    bool Closing() const { return closing_; }
    void Save();
    void SaveSoon();
    void Tell(const std::string& trouble) {
        if (report_) report_(trouble);
    }

  private:
    void Run();
    void Close();

    Report report_;
    SharedSimulator indicator_;
    asio::io_context io_{1};
    asio::steady_timer save_{io_};
    bool savePending_ = false;
    bool closing_ = false;
    std::mutex stopping_;  // one Stop at a time
    std::thread thread_;
};

}  // namespace calyx::sim
