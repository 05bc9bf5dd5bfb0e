#include <stdexcept>

#include "sim/pty_simulator.h"
#include "sim/serial/settings.h"

namespace calyx::sim {

class PtySimulator::Line {};

bool HasPseudoTerminals() {
    return false;
}

PtySimulator::PtySimulator(SimulatorOptions, SerialOptions serial, Report) {
    ReadSerialSettings(serial.settings);
    throw std::runtime_error("this system has no pseudo-terminals; use TCP or a serial port");
}

PtySimulator::~PtySimulator() = default;

std::string PtySimulator::Path() const {
    return {};
}

SimulatorSnapshot PtySimulator::Snapshot() const {
    return {};
}

void PtySimulator::AddFault(std::string_view) {}
void PtySimulator::ClearFaults() {}
void PtySimulator::ForgetReceived() {}
void PtySimulator::Stop() {}

}  // namespace calyx::sim
