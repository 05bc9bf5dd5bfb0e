#include "sim/fault.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "sim/fault_kinds.h"
#include "sim/text.h"

namespace calyx::sim {

bool Fault::TakeLine(std::string_view, Reply&) {
    return false;
}

void Fault::ChangeReply(std::string_view, Reply&) {}

Unasked Fault::Streams() const {
    return {};
}

std::size_t ReadCount(std::string_view text, std::string_view what, std::size_t most) {
    std::size_t count = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    if (error != std::errc() || end != text.data() + text.size() || count < 1 || count > most) {
        throw std::invalid_argument("N is a number of " + std::string(what) + " from 1 to " +
                                    std::to_string(most));
    }
    return count;
}

namespace {

using enum FaultKind::Argument;

constexpr FaultKind kKinds[] = {
    {"refuse", "refuse:KEY-PATTERN",
     "Refuses lines whose key fits the pattern (* any text, ? one character).", kNeeded, MakeRefuse},
    {"forget", "forget:KEY-PATTERN",
     "Answers OK to settings whose key fits the pattern, but does not store them.", kNeeded, MakeForget},
    {"corrupt", "corrupt:KEY-PATTERN", "Adds a \"~\" in its dump to the values of keys that fit the pattern.",
     kNeeded, MakeCorrupt},
    {"cut", "cut:N", "Leaves the last N bytes of its dump unsent.", kNeeded, MakeCut},
    {"silent", "silent[:N]", "Loses every line, or the first N lines: not stored, not answered.", kOptional,
     MakeSilent},
    {"okecho", "okecho[:N]",
     "Loses lines as silent does, but sends them back: a value that ends in OK must not pass for an answer.",
     kOptional, MakeOkEcho},
    {"late", "late:MS", "Answers so many milliseconds late.", kNeeded, MakeLate},
    {"drop", "drop:N", "Closes the connection, once, after N lines have been answered.", kNeeded, MakeDrop},
    {"notsetup", "notsetup", "Is not in setup mode.", kNone, MakeNotSetup},
    {"split", "split", "Sends its answers byte by byte.", kNone, MakeSplit},
    {"garbage", "garbage", "Sends a few stray bytes before every answer.", kNone, MakeGarbage},
    {"echo", "echo", "Sends every line back before the answer.", kNone, MakeEcho},
    {"address", "address:N", "Answers under the bus address N, where it has an address.", kNeeded,
     MakeAddress},
    {"stream", "stream[:MS]", "Sends a weight every 200 ms, or every so many, without being asked.",
     kOptional, MakeStream},
};

// A fault at the K-th line only, or from there on.
class At : public Fault {
  public:
    At(std::unique_ptr<Fault> fault, std::size_t first, bool onwards)
        : fault_(std::move(fault)), first_(first), onwards_(onwards) {}

    bool TakeLine(std::string_view line, Reply& reply) override {
        Count();
        return Active() && fault_->TakeLine(line, reply);
    }
    // A line that another fault has taken is seen here only.
    void ChangeReply(std::string_view line, Reply& reply) override {
        if (!counted_) Count();
        counted_ = false;
        if (Active()) fault_->ChangeReply(line, reply);
    }
    Unasked Streams() const override { return Active() ? fault_->Streams() : Unasked{}; }

  private:
    void Count() {
        ++seen_;
        counted_ = true;
    }
    bool Active() const { return seen_ == first_ || (onwards_ && seen_ > first_); }

    std::unique_ptr<Fault> fault_;
    std::size_t first_;
    bool onwards_;
    std::size_t seen_ = 0;
    bool counted_ = false;
};

[[noreturn]] void FailSpec(std::string_view spec, std::string_view why) {
    std::string text = "fault \"" + std::string(spec) + "\": " + std::string(why) + "; known faults are";
    for (const auto& kind : kKinds) text.append(&kind == kKinds ? " " : ", ").append(kind.form);
    throw std::invalid_argument(text + ", each with @K or @K+ behind it for the K-th line");
}

std::unique_ptr<Fault> MakePlain(std::string_view spec) {
    const auto colon = std::min(spec.find(':'), spec.size());
    const auto argument = spec.substr(std::min(colon + 1, spec.size()));
    const auto* kind = std::find_if(std::begin(kKinds), std::end(kKinds), [&](const FaultKind& known) {
        return EqualsNoCase(known.name, spec.substr(0, colon));
    });
    if (kind == std::end(kKinds)) throw std::invalid_argument("there is no such fault");
    if (kind->argument == kNeeded && argument.empty())
        throw std::invalid_argument("something is missing after the name");
    if (kind->argument == kNone && colon < spec.size())
        throw std::invalid_argument("nothing can follow the name");
    return kind->make(argument);
}

}  // namespace

std::span<const FaultKind> KnownFaults() {
    return kKinds;
}

std::unique_ptr<Fault> MakeFault(std::string_view spec) {
    try {
        const auto mark = spec.rfind('@');
        if (mark == std::string_view::npos) return MakePlain(spec);
        std::string_view place = spec.substr(mark + 1);
        const bool onwards = place.ends_with('+');
        if (onwards) place.remove_suffix(1);
        return std::make_unique<At>(MakePlain(spec.substr(0, mark)), ReadCount(place, "a line"), onwards);
    } catch (const std::invalid_argument& wrong) {
        FailSpec(spec, wrong.what());
    }
}

}  // namespace calyx::sim
