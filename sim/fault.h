#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "sim/reply.h"

namespace calyx::sim {

// One way to misbehave. A simulated indicator holds a list of them and shows every line to each, in the
// order of the list. Lone CRs are no lines here: they never have an answer, and no fault counts them.
class Fault {
  public:
    Fault() = default;
    Fault(const Fault&) = delete;
    Fault& operator=(const Fault&) = delete;
    virtual ~Fault() = default;

    // Before the line is handled. True takes it away from the indicator and from the faults after this
    // one: nothing is stored, and `reply` goes out as this fault leaves it (empty: no answer).
    virtual bool TakeLine(std::string_view line, Reply& reply);

    // Before the answer goes out, an empty one as well. Called for every line, taken or not.
    virtual void ChangeReply(std::string_view line, Reply& reply);

    // What is sent besides all answers; nothing by default.
    virtual Unasked Streams() const;
};

struct FaultKind {
    enum class Argument { kNone, kOptional, kNeeded };

    std::string_view name;
    std::string_view form;  // as it is given: "silent[:N]"
    std::string_view help;  // one sentence for the user
    Argument argument;
    std::unique_ptr<Fault> (*make)(std::string_view argument);
};

std::span<const FaultKind> KnownFaults();

// Makes a fault from "NAME" or "NAME:ARGUMENT", each followed by "@K" to misbehave at the K-th line only, or
// by "@K+" to begin with it; lines count from when the fault is there. Raises std::invalid_argument, with a
// text that says what is wrong and names all known faults.
std::unique_ptr<Fault> MakeFault(std::string_view spec);

}  // namespace calyx::sim
