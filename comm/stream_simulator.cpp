#include "comm/stream_simulator.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace calyx {

namespace {

constexpr int kLeastMs = 50;

}  // namespace

std::string StreamBytes(const StreamFields& stream, const SampleWeight& weight) {
    std::string bytes;
    for (const StreamPiece& piece : StreamSample(stream, weight)) {
        if (piece.kind != StreamPiece::Kind::Unknown) bytes += piece.text;
    }
    return bytes;
}

void StreamSimulator::Start(const std::string& port, const std::string& settings, int everyMs) {
    Stop();
    port_ = transports_.MakeSerial(port, settings);
    everyMs_ = std::max(everyMs, kLeastMs);
    next_ = clock_.NowMs();
    sent_ = 0;
}

void StreamSimulator::Stop() {
    if (!port_) return;
    const std::unique_ptr<ITransport> port = std::move(port_);
    try {
        port->Close();
    } catch (const std::system_error&) {
        return;  // a port that was pulled out is closed all the same
    }
}

void StreamSimulator::Set(const StreamFields& stream, std::vector<SampleWeight> weights) {
    stream_ = stream;
    weights_ = weights.empty() ? std::vector{SampleWeight{}} : std::move(weights);
}

std::string StreamSimulator::Poll() {
    if (!port_) return {};
    port_->ClearBuffers();  // what the other end says is nobody's concern
    if (!port_->IsOpen()) {
        Stop();
        return {};
    }
    const std::int64_t now = clock_.NowMs();
    if (now < next_) return {};
    // Transmissions that were missed are not made up for.
    next_ = next_ + everyMs_ > now ? next_ + everyMs_ : now + everyMs_;
    std::string bytes = StreamBytes(stream_, weights_[sent_++ % weights_.size()]);
    port_->Write(bytes);
    return bytes;
}

int StreamSimulator::UntilNext() const {
    return static_cast<int>(std::max<std::int64_t>(next_ - clock_.NowMs(), 0));
}

}  // namespace calyx
