#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "comm/indicator_comm.h"
#include "model/language/error.h"
#include "tests/support/model_fixture.h"

namespace calyx::test {

// Time that passes only while the link waits.
class ManualClock : public IClock {
  public:
    std::int64_t now = 1000;
    std::int64_t NowMs() override { return now; }
    void LetOthersRun() override {}
};

// The other end of the wire: `device` is handed every line that the link writes, without its CR, and
// answers as it likes.
struct Wire {
    using Device = std::function<void(Wire&, const std::string&)>;

    ManualClock clock;
    Device device;
    std::function<bool(const std::string&)> refuses;  // settings that a serial port does not take
    std::vector<std::string> lines;
    std::vector<std::string> opened;                             // every wire that was opened, in words
    std::vector<std::pair<std::int64_t, std::string>> arriving;  // when, what; in order of time
    bool open = false;

    void Answer(std::string bytes, std::int64_t afterMs = 1) {
        if (!bytes.empty()) arriving.emplace_back(clock.now + afterMs, std::move(bytes));
    }
};

inline std::function<void(Wire&, const std::string&)> Always(std::string answer) {
    return [answer](Wire& wire, const std::string&) { wire.Answer(answer); };
}

class ScriptedTransport : public ITransport {
  public:
    explicit ScriptedTransport(Wire& wire) : wire_(wire) { wire_.open = true; }

    bool IsOpen() const override { return wire_.open; }
    void Close() override { wire_.open = false; }
    void Write(std::string_view bytes) override {
        for (const char c : bytes) {
            if (c != kCr) {
                line_ += c;
                continue;
            }
            wire_.lines.push_back(std::exchange(line_, {}));
            if (wire_.device) wire_.device(wire_, std::string(wire_.lines.back()));
        }
    }
    std::string Read() override {
        std::string read;
        for (; Waiting() > 0; wire_.arriving.erase(wire_.arriving.begin())) read += wire_.arriving[0].second;
        return read;
    }
    std::size_t Waiting() override {
        const bool due = !wire_.arriving.empty() && wire_.arriving[0].first <= wire_.clock.now;
        return due ? wire_.arriving[0].second.size() : 0;
    }
    void ClearBuffers() override { Read(); }
    void Wait(int milliseconds) override {
        if (Waiting() > 0 || !wire_.open) return;
        const auto end = wire_.clock.now + milliseconds;
        wire_.clock.now = wire_.arriving.empty() ? end : std::min(end, wire_.arriving[0].first);
    }

  private:
    Wire& wire_;
    std::string line_;
};

struct ScriptedFactory : ITransportFactory {
    Wire& wire;
    explicit ScriptedFactory(Wire& otherEnd) : wire(otherEnd) {}
    std::unique_ptr<ITransport> MakeTcp(const std::string& host, std::uint16_t port, const GoOn&) override {
        wire.opened.push_back(host + ":" + std::to_string(port));
        return std::make_unique<ScriptedTransport>(wire);
    }
    std::unique_ptr<ITransport> MakeSerial(const std::string&, const std::string& settings) override {
        wire.opened.push_back(settings);
        if (wire.refuses && wire.refuses(settings)) throw SettingsRefused(code::kLink, "test", settings);
        return std::make_unique<ScriptedTransport>(wire);
    }
};

struct MemorySettings : ILinkSettingsStore {
    LinkSettings settings;
    int stores = 0;
    LinkSettings Load() override { return settings; }
    void Store(const LinkSettings& found) override {
        settings = found;
        ++stores;
    }
};

// The events by name, and a number of polls after which the operation is cancelled.
struct Recorder : ILinkEvents {
    std::vector<std::string> told;
    std::vector<std::string> tried;
    int pollsLeft = -1;

    std::size_t Count(const std::string& name) const {
        return static_cast<std::size_t>(std::count(told.begin(), told.end(), name));
    }
    void ConnectToIndicator(const std::string& description) override { told.push_back(description); }
    void DisconnectedFromIndicator() override { told.emplace_back("disconnected"); }
    void IndicatorIsStreaming() override { told.emplace_back("streaming"); }
    void Sending(const std::string& line) override { told.push_back(line); }
    void WaitingForResponse() override { told.emplace_back("waiting"); }
    void ReceivedResponse() override { told.emplace_back("received"); }
    void Receiving(std::size_t characters) override { told.push_back(std::to_string(characters)); }
    void AutoDetecting(const std::string& settings, bool& cancel) override {
        if (tried.empty() || tried.back() != settings) tried.push_back(settings);
        CountDown(cancel);
    }
    void CancelGetData(bool& cancel) override { CountDown(cancel); }
    void CancelSendData(bool& cancel) override { CountDown(cancel); }

    void CountDown(bool& cancel) { cancel |= pollsLeft >= 0 && pollsLeft-- == 0; }
};

// A link on a scripted wire, by default over TCP with an indicator that answers every line with OK.
struct ScriptedLink {
    TestContext context{CALYX_DATA_DIR};
    Wire wire;
    ScriptedFactory factory{wire};
    MemorySettings store;
    CancelFlag cancel{false};
    Recorder events;
    std::unique_ptr<CIndicatorComm> link;

    explicit ScriptedLink(int method = comm_method::kTcp, const std::string& logFile = {}) {
        store.settings.method = method;
        store.settings.logging = !logFile.empty();
        link = std::make_unique<CIndicatorComm>(
            LinkParts{factory, wire.clock, store, context.texts, cancel, logFile});
        link->AddObserver(events);
    }
    // As the text is framed in the present method.
    std::string Framed(const std::string& text) const {
        return store.settings.method == comm_method::kAddressed ? "\x02\x01" + text + "\x03\r"
                                                                : text + "\r\n";
    }
    void Connect() {
        wire.device = [this](Wire& other, const std::string& line) {
            if (line.ends_with("VERSION")) other.Answer(Framed("V3.10.02 MERRIN"));
        };
        link->Connect();
        wire.lines.clear();
        events.told.clear();
        wire.device = Always(Framed("OK"));
    }
};

// The error that an operation raises; fails where it raises none.
template <class Operation>
Error Raised(Operation&& operation) {
    try {
        operation();
    } catch (const Error& error) {
        return error;
    }
    ADD_FAILURE() << "no error was raised";
    return Error(0, {}, {});
}

}  // namespace calyx::test
