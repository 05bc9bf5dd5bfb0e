#include <algorithm>
#include <utility>

#include "sim/fault_kinds.h"
#include "sim/text.h"

namespace calyx::sim {

namespace {

// Holds neither CR, "OK" nor "??", so that it spoils the answer without being one.
constexpr std::string_view kGarbage("\x7f\0\xfe@#", 5);
constexpr std::string_view kStreamed = "\x02 01234.5LG  \r\n";
constexpr int kUsualStreamMs = 200;

bool IsDump(std::string_view line) {
    return EqualsNoCase(line, "DUMPALL");
}

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

class Drop : public Fault {
  public:
    explicit Drop(std::size_t lines) : left_(lines) {}
    void ChangeReply(std::string_view, Reply& reply) override {
        if (left_ > 0 && --left_ == 0) reply.close = true;
    }

  private:
    std::size_t left_;
};

class Late : public Fault {
  public:
    explicit Late(int delayMs) : delayMs_(delayMs) {}
    void ChangeReply(std::string_view, Reply& reply) override { reply.delayMs += delayMs_; }

  private:
    int delayMs_;
};

class Split : public Fault {
  public:
    void ChangeReply(std::string_view, Reply& reply) override { reply.pieceBytes = 1; }
};

class Garbage : public Fault {
  public:
    void ChangeReply(std::string_view, Reply& reply) override {
        if (!reply.bytes.empty()) reply.stray += kGarbage;
    }
};

class Echo : public Fault {
  public:
    void ChangeReply(std::string_view, Reply& reply) override { reply.echo = true; }
};

class Address : public Fault {
  public:
    explicit Address(int address) : address_(address) {}
    void ChangeReply(std::string_view, Reply& reply) override { reply.address = address_; }

  private:
    int address_;
};

class Stream : public Fault {
  public:
    explicit Stream(int everyMs) : everyMs_(everyMs) {}
    Unasked Streams() const override { return {std::string(kStreamed), everyMs_}; }

  private:
    int everyMs_;
};

}  // namespace

std::unique_ptr<Fault> MakeCorrupt(std::string_view pattern) {
    return std::make_unique<Corrupt>(pattern);
}

std::unique_ptr<Fault> MakeCut(std::string_view bytes) {
    return std::make_unique<Cut>(ReadCount(bytes, "bytes"));
}

std::unique_ptr<Fault> MakeDrop(std::string_view lines) {
    return std::make_unique<Drop>(ReadCount(lines, "lines"));
}

std::unique_ptr<Fault> MakeLate(std::string_view milliseconds) {
    return std::make_unique<Late>(static_cast<int>(ReadCount(milliseconds, "milliseconds")));
}

std::unique_ptr<Fault> MakeSplit(std::string_view) {
    return std::make_unique<Split>();
}

std::unique_ptr<Fault> MakeGarbage(std::string_view) {
    return std::make_unique<Garbage>();
}

std::unique_ptr<Fault> MakeEcho(std::string_view) {
    return std::make_unique<Echo>();
}

std::unique_ptr<Fault> MakeAddress(std::string_view address) {
    return std::make_unique<Address>(static_cast<int>(ReadCount(address, "bus address", 255)));
}

std::unique_ptr<Fault> MakeStream(std::string_view milliseconds) {
    if (milliseconds.empty()) return std::make_unique<Stream>(kUsualStreamMs);
    return std::make_unique<Stream>(static_cast<int>(ReadCount(milliseconds, "milliseconds")));
}

}  // namespace calyx::sim
