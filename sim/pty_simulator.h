#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "sim/shared_simulator.h"

namespace calyx::sim {

// How the simulated indicator's serial port is set.
struct SerialOptions {
    std::string settings = "9600,N,8,1";  // what the host must have set, or all that goes over is garbage
    bool paced = false;                   // bytes take their time, as the rate says
};

// Whether this system has pseudo-terminals; Windows has none.
bool HasPseudoTerminals();

// A simulated indicator on a pseudo-terminal of this machine, served by one thread of its own: the host opens
// Path() as a serial port. Rate and parity count; a pseudo-terminal has no data and stop bits. The wire is
// never closed from this side but by Stop and by the fault drop, after which nothing answers any more.
//
// All operations may be called from any thread but those inside `Report`, which is told of troubles that end
// nothing.
class PtySimulator {
  public:
    using Report = std::function<void(const std::string&)>;

    // Raises std::invalid_argument (settings), std::runtime_error (no pseudo-terminal) and what Simulator
    // raises.
    explicit PtySimulator(SimulatorOptions options, SerialOptions serial = {}, Report report = {});
    ~PtySimulator();
    PtySimulator(const PtySimulator&) = delete;
    PtySimulator& operator=(const PtySimulator&) = delete;

    std::string Path() const;  // "/dev/pts/7"

    SimulatorSnapshot Snapshot() const;
    void AddFault(std::string_view spec);  // raises std::invalid_argument, see MakeFault
    void ClearFaults();
    void ForgetReceived();

    void Stop();

  private:
    class Line;
    std::unique_ptr<Line> line_;
};

}  // namespace calyx::sim
