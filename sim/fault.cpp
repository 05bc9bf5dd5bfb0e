#include "sim/fault.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <stdexcept>
#include <system_error>

#include "sim/text.h"

namespace calyx::sim {

bool Fault::TakeLine(std::string_view, Reply&) {
    return false;
}

void Fault::ChangeReply(std::string_view, Reply&) {}

namespace {

// Holds neither CR, "OK" nor "??", so that it spoils the answer without being one.
constexpr std::string_view kGarbage("\x7f\0\xfe@#", 5);

class Refuse : public Fault {
  public:
    explicit Refuse(std::string_view pattern) : pattern_(pattern) {}
    bool TakeLine(std::string_view line, Reply& reply) override {
        if (!FitsPattern(line.substr(0, line.find('=')), pattern_)) return false;
        reply.bytes = kRefused;
        return true;
    }

  private:
    std::string pattern_;
};

class Silent : public Fault {
  public:
    bool TakeLine(std::string_view, Reply&) override { return true; }
};

class SilentFor : public Fault {
  public:
    explicit SilentFor(std::size_t lines) : left_(lines) {}
    bool TakeLine(std::string_view, Reply&) override {
        if (left_ == 0) return false;
        --left_;
        return true;
    }

  private:
    std::size_t left_;
};

class Drop : public Fault {
  public:
    explicit Drop(std::size_t lines) : left_(lines) {}
    void ChangeReply(std::string_view, Reply& reply) override {
        if (left_ > 0 && --left_ == 0) reply.close = true;
    }

  private:
    std::size_t left_;
};

class NotSetup : public Fault {
  public:
    bool TakeLine(std::string_view line, Reply& reply) override {
        if (!EqualsNoCase(line, "KNIX")) return false;
        reply.bytes = kRefused;
        return true;
    }
};

class Split : public Fault {
  public:
    void ChangeReply(std::string_view, Reply& reply) override { reply.pieceBytes = 1; }
};

class Garbage : public Fault {
  public:
    void ChangeReply(std::string_view, Reply& reply) override {
        if (!reply.bytes.empty()) reply.bytes.insert(0, kGarbage);
    }
};

std::size_t LineCount(std::string_view text) {
    constexpr std::size_t most = 1'000'000;
    std::size_t count = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    if (error != std::errc() || end != text.data() + text.size() || count < 1 || count > most) {
        throw std::invalid_argument("N is a number of lines from 1 to " + std::to_string(most));
    }
    return count;
}

template <class Kind>
std::unique_ptr<Fault> MakePlain(std::string_view) {
    return std::make_unique<Kind>();
}

std::unique_ptr<Fault> MakeRefuse(std::string_view argument) {
    return std::make_unique<Refuse>(argument);
}

std::unique_ptr<Fault> MakeSilent(std::string_view argument) {
    if (argument.empty()) return std::make_unique<Silent>();
    return std::make_unique<SilentFor>(LineCount(argument));
}

std::unique_ptr<Fault> MakeDrop(std::string_view argument) {
    return std::make_unique<Drop>(LineCount(argument));
}

using enum FaultKind::Argument;

constexpr FaultKind kKinds[] = {
    {"refuse", "refuse:KEY-PATTERN",
     "Refuses lines whose key fits the pattern (* any text, ? one character).", kNeeded, MakeRefuse},
    {"silent", "silent[:N]", "Loses every line, or the first N lines: not stored, not answered.", kOptional,
     MakeSilent},
    {"drop", "drop:N", "Closes the connection, once, after N lines have been answered.", kNeeded, MakeDrop},
    {"notsetup", "notsetup", "Is not in setup mode.", kNone, MakePlain<NotSetup>},
    {"split", "split", "Sends its answers byte by byte.", kNone, MakePlain<Split>},
    {"garbage", "garbage", "Sends a few stray bytes before every answer.", kNone, MakePlain<Garbage>},
};

[[noreturn]] void FailSpec(std::string_view spec, std::string_view why) {
    std::string text = "fault \"" + std::string(spec) + "\": " + std::string(why) + "; known faults are";
    for (const auto& kind : kKinds) text.append(&kind == kKinds ? " " : ", ").append(kind.form);
    throw std::invalid_argument(text);
}

}  // namespace

std::span<const FaultKind> KnownFaults() {
    return kKinds;
}

std::unique_ptr<Fault> MakeFault(std::string_view spec) {
    const auto colon = std::min(spec.find(':'), spec.size());
    const auto argument = spec.substr(std::min(colon + 1, spec.size()));
    const auto* kind = std::find_if(std::begin(kKinds), std::end(kKinds), [&](const FaultKind& known) {
        return EqualsNoCase(known.name, spec.substr(0, colon));
    });
    if (kind == std::end(kKinds)) FailSpec(spec, "there is no such fault");
    if (kind->argument == kNeeded && argument.empty()) FailSpec(spec, "something is missing after the name");
    if (kind->argument == kNone && colon < spec.size()) FailSpec(spec, "nothing can follow the name");
    try {
        return kind->make(argument);
    } catch (const std::invalid_argument& wrong) {
        FailSpec(spec, wrong.what());
    }
}

}  // namespace calyx::sim
