#pragma once

#include <functional>
#include <memory>
#include <string>

#include "sim/shared_simulator.h"

namespace calyx::sim {

// A simulated indicator on a serial port of this machine, served by one thread of its own: a host at the
// other end of the cable talks to it. What the host has set cannot be seen from here; where it does not fit,
// the line itself spoils the characters. The port is closed by Stop, by the fault drop and when the device
// goes; nothing answers any more then.
//
// All operations may be called from any thread but those inside `Report`, which is told of troubles that end
// nothing and of the port's end.
class SerialSimulator {
  public:
    using Report = std::function<void(const std::string&)>;

    // Raises std::invalid_argument (settings), std::system_error (the device does not open) and what
    // Simulator raises.
    SerialSimulator(SimulatorOptions options, const std::string& device, const std::string& settings,
                    Report report = {});
    ~SerialSimulator();
    SerialSimulator(const SerialSimulator&) = delete;
    SerialSimulator& operator=(const SerialSimulator&) = delete;

    SimulatorSnapshot Snapshot() const;
    void AddFault(std::string_view spec);  // raises std::invalid_argument, see MakeFault
    void ClearFaults();

    void Stop();

  private:
    class Port;
    std::unique_ptr<Port> port_;
};

}  // namespace calyx::sim
