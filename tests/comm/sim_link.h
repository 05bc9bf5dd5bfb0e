#pragma once

#include <string>
#include <utility>
#include <vector>

#include "sim/simulator.h"
#include "tests/comm/scripted_link.h"

namespace calyx::test {

// A link to a simulated indicator in the same thread, over a wire on the handed-in clock: six attempts of ten
// seconds take no time. Whatever a fault does to the wire, it does here.
struct SimLink : ScriptedLink {
    sim::Simulator simulator;

    explicit SimLink(sim::SimulatorOptions options = {}, int method = comm_method::kTcp)
        : ScriptedLink(method), simulator(std::move(options)) {
        wire.device = [this](Wire& other, const std::string& line) { Exchange(other, line + "\r"); };
    }
    void Connect() {
        simulator.NewConnection();
        wire.arriving.clear();
        link->Connect();
        link->ReadVersion(context.target);
        wire.lines.clear();
        events.told.clear();
        simulator.ForgetReceived();
    }
    // Only what the indicator holds, its version left out.
    std::vector<KeyValue> Held() const {
        auto lines = ReadLines(simulator.DumpText());
        std::erase_if(lines, [](const KeyValue& line) { return line.key == "VERSION"; });
        return lines;
    }
    bool Holds(const std::string& line) const {
        return ("\n" + simulator.DumpText()).find("\n" + line + "\r\n") != std::string::npos;
    }

  private:
    void Exchange(Wire& other, std::string_view bytes) {
        const sim::Reply reply = simulator.Exchange(bytes);
        // A stream runs on regardless of questions: it is on the wire before every answer.
        if (const sim::Unasked streamed = simulator.Streams(); streamed.everyMs > 0)
            other.Answer(streamed.bytes);
        if (reply.close) {  // the answer goes with the wire
            other.open = false;
            other.arriving.clear();
            return;
        }
        const std::size_t piece = reply.pieceBytes == 0 ? reply.bytes.size() : reply.pieceBytes;
        for (std::size_t at = 0; at < reply.bytes.size(); at += piece)
            Schedule(other, reply.bytes.substr(at, piece), reply.delayMs + static_cast<std::int64_t>(at) + 1);
    }
    static void Schedule(Wire& other, std::string bytes, std::int64_t afterMs) {
        const std::int64_t when = other.clock.now + afterMs;
        const auto place = std::find_if(other.arriving.begin(), other.arriving.end(),
                                        [when](const auto& entry) { return entry.first > when; });
        other.arriving.insert(place, {when, std::move(bytes)});
    }
};

}  // namespace calyx::test
