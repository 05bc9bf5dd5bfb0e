#include "sim/fault.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <stdexcept>
#include <system_error>
#include <utility>

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

bool IsDump(std::string_view line) {
    return EqualsNoCase(line, "DUMPALL");
}

class Forget : public Fault {
  public:
    explicit Forget(std::string_view pattern) : pattern_(pattern) {}
    bool TakeLine(std::string_view line, Reply& reply) override {
        const auto equals = line.find('=');
        if (equals == std::string_view::npos || !FitsPattern(line.substr(0, equals), pattern_)) return false;
        reply.bytes = kAccepted;
        return true;
    }

  private:
    std::string pattern_;
};

class Corrupt : public Fault {
  public:
    explicit Corrupt(std::string_view pattern) : pattern_(pattern) {}
    void ChangeReply(std::string_view line, Reply& reply) override {
        if (!IsDump(line)) return;
        std::string dump;
        std::string_view rest = reply.bytes;
        while (!rest.empty()) {
            const auto end = std::min(rest.find('\r'), rest.size());
            const auto next = std::min(end + 2, rest.size());  // behind its CR LF
            const bool fits = FitsPattern(rest.substr(0, rest.find('=')), pattern_);
            dump.append(rest.substr(0, end)).append(fits ? "~" : "").append(rest.substr(end, next - end));
            rest.remove_prefix(next);
        }
        reply.bytes = std::move(dump);
    }

  private:
    std::string pattern_;
};

class Cut : public Fault {
  public:
    explicit Cut(std::size_t bytes) : bytes_(bytes) {}
    void ChangeReply(std::string_view line, Reply& reply) override {
        if (IsDump(line)) reply.bytes.resize(reply.bytes.size() - std::min(bytes_, reply.bytes.size()));
    }

  private:
    std::size_t bytes_;
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

std::size_t ReadCount(std::string_view text, std::string_view things) {
    constexpr std::size_t most = 1'000'000;
    std::size_t count = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    if (error != std::errc() || end != text.data() + text.size() || count < 1 || count > most) {
        throw std::invalid_argument("N is a number of " + std::string(things) + " from 1 to " +
                                    std::to_string(most));
    }
    return count;
}

template <class Kind>
std::unique_ptr<Fault> MakePlain(std::string_view) {
    return std::make_unique<Kind>();
}

template <class Kind>
std::unique_ptr<Fault> MakeForKeys(std::string_view pattern) {
    return std::make_unique<Kind>(pattern);
}

std::unique_ptr<Fault> MakeCut(std::string_view argument) {
    return std::make_unique<Cut>(ReadCount(argument, "bytes"));
}

std::unique_ptr<Fault> MakeSilent(std::string_view argument) {
    if (argument.empty()) return std::make_unique<Silent>();
    return std::make_unique<SilentFor>(ReadCount(argument, "lines"));
}

std::unique_ptr<Fault> MakeDrop(std::string_view argument) {
    return std::make_unique<Drop>(ReadCount(argument, "lines"));
}

using enum FaultKind::Argument;

constexpr FaultKind kKinds[] = {
    {"refuse", "refuse:KEY-PATTERN",
     "Refuses lines whose key fits the pattern (* any text, ? one character).", kNeeded, MakeForKeys<Refuse>},
    {"forget", "forget:KEY-PATTERN",
     "Answers OK to settings whose key fits the pattern, but does not store them.", kNeeded,
     MakeForKeys<Forget>},
    {"corrupt", "corrupt:KEY-PATTERN", "Adds a \"~\" in its dump to the values of keys that fit the pattern.",
     kNeeded, MakeForKeys<Corrupt>},
    {"cut", "cut:N", "Leaves the last N bytes of its dump unsent.", kNeeded, MakeCut},
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
