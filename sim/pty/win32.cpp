#include <system_error>

#include "sim/pty_simulator.h"

namespace calyx::sim {

class PtySimulator::Line {};

PtySimulator::PtySimulator(SimulatorOptions, SerialOptions, Report) {
    throw std::system_error(std::make_error_code(std::errc::not_supported),
                            "this system has no pseudo-terminals; use TCP");
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
