#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "comm/clock.h"
#include "comm/transport.h"
#include "model/ports/stream_sample.h"

namespace calyx {

// What a port with the stream definition sends for the weight, as bytes. Tokens that this program does not
// know are left out.
std::string StreamBytes(const StreamFields& stream, const SampleWeight& weight);

// Sends weights over a serial port of this computer, as an indicator streams them, to try a remote display or
// a program. The port is the simulator's own and no link to an indicator. One thread: Poll is called by
// whoever waits, a window's timer for example, at any pace.
class StreamSimulator {
  public:
    StreamSimulator(ITransportFactory& transports, IClock& clock) : transports_(transports), clock_(clock) {}

    // Opens the port ("9600,N,8,1") and sends at once, then every so many ms (50 at least). Raises 12801.
    void Start(const std::string& port, const std::string& settings, int everyMs);
    void Stop();
    bool IsRunning() const { return port_ != nullptr; }

    // What the next and all later transmissions send. With more than one weight they take turns.
    void Set(const StreamFields& stream, std::vector<SampleWeight> weights);

    // Sends what is due and returns it; empty: nothing was. A port that is gone ends the simulation.
    std::string Poll();
    // In ms; 0: at once.
    int UntilNext() const;
    std::uint64_t Sent() const { return sent_; }  // transmissions since Start

  private:
    ITransportFactory& transports_;
    IClock& clock_;
    std::unique_ptr<ITransport> port_;
    StreamFields stream_;
    std::vector<SampleWeight> weights_{SampleWeight{}};
    int everyMs_ = 0;
    std::int64_t next_ = 0;
    std::uint64_t sent_ = 0;
};

}  // namespace calyx
