#include "sim/shared_simulator.h"

namespace calyx::sim {

void SharedSimulator::NewConnection() {
    const std::lock_guard lock(mutex_);
    simulator_.NewConnection();
}

Reply SharedSimulator::Exchange(std::string_view& bytes) {
    const std::lock_guard lock(mutex_);
    return simulator_.Exchange(bytes);
}

Unasked SharedSimulator::Streams() const {
    const std::lock_guard lock(mutex_);
    return simulator_.Streams();
}

void SharedSimulator::AddFault(std::string_view spec) {
    const std::lock_guard lock(mutex_);
    simulator_.AddFault(spec);
}

void SharedSimulator::ClearFaults() {
    const std::lock_guard lock(mutex_);
    simulator_.ClearFaults();
}

void SharedSimulator::ForgetReceived() {
    const std::lock_guard lock(mutex_);
    simulator_.ForgetReceived();
}

bool SharedSimulator::StateUnsaved() const {
    const std::lock_guard lock(mutex_);
    return simulator_.StateUnsaved();
}

void SharedSimulator::SaveState() {
    const std::lock_guard lock(mutex_);
    simulator_.SaveState();
}

SimulatorSnapshot SharedSimulator::Snapshot() const {
    const std::lock_guard lock(mutex_);
    return {simulator_.Received(), simulator_.ReceivedCount(), simulator_.DumpText()};
}

}  // namespace calyx::sim
