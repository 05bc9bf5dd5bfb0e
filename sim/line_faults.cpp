#include <optional>
#include <string>

#include "sim/fault_kinds.h"
#include "sim/text.h"

namespace calyx::sim {

namespace {

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

// Loses lines: the first so many, or all.
class Silent : public Fault {
  public:
    Silent(std::optional<std::size_t> lines, bool echo) : left_(lines), echo_(echo) {}
    bool TakeLine(std::string_view, Reply& reply) override {
        if (left_ && *left_ == 0) return false;
        if (left_) --*left_;
        reply.echo = reply.echo || echo_;
        return true;
    }

  private:
    std::optional<std::size_t> left_;
    bool echo_;
};

class NotSetup : public Fault {
  public:
    bool TakeLine(std::string_view line, Reply& reply) override {
        if (!EqualsNoCase(line, "KNIX")) return false;
        reply.bytes = kRefused;
        return true;
    }
};

std::optional<std::size_t> Lines(std::string_view text) {
    if (text.empty()) return {};
    return ReadCount(text, "lines");
}

}  // namespace

std::unique_ptr<Fault> MakeRefuse(std::string_view pattern) {
    return std::make_unique<Refuse>(pattern);
}

std::unique_ptr<Fault> MakeForget(std::string_view pattern) {
    return std::make_unique<Forget>(pattern);
}

std::unique_ptr<Fault> MakeSilent(std::string_view lines) {
    return std::make_unique<Silent>(Lines(lines), false);
}

std::unique_ptr<Fault> MakeOkEcho(std::string_view lines) {
    return std::make_unique<Silent>(Lines(lines), true);
}

std::unique_ptr<Fault> MakeNotSetup(std::string_view) {
    return std::make_unique<NotSetup>();
}

}  // namespace calyx::sim
