#pragma once

#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "sim/simulator.h"

namespace calyx::sim {

// What a simulated indicator held and had received at one moment.
struct SimulatorSnapshot {
    std::vector<std::string> received;  // the latest lines, see SimulatorOptions::receivedBytes
    std::uint64_t receivedCount = 0;    // all of them
    std::string dump;                   // as DUMPALL answers
};

// A simulated indicator that its wire's thread and others may use at the same time.
class SharedSimulator {
  public:
    explicit SharedSimulator(SimulatorOptions options) : simulator_(std::move(options)) {}

    // As in Simulator.
    void NewConnection();
    Reply Exchange(std::string_view& bytes);
    Unasked Streams() const;
    void AddFault(std::string_view spec);
    void ClearFaults();
    void ForgetReceived();
    bool StateUnsaved() const;
    void SaveState();

    SimulatorSnapshot Snapshot() const;

  private:
    mutable std::mutex mutex_;
    Simulator simulator_;
};

}  // namespace calyx::sim
