#include "comm/indicator_comm.h"

#include <cmath>

#include "comm/detection.h"
#include "comm/link_texts.h"
#include "model/language/error.h"
#include "model/language/text.h"

namespace calyx {

namespace {

constexpr int kAttempts = 6;
constexpr int kSetupModeMs = 10'000;
constexpr int kBusPauseMs = 10;     // rest of the bus after a command in addressed mode
constexpr int kDetectWaitMs = 500;  // reception wait where the settings were detected
constexpr int kLongestUnitMs = 60'000;
constexpr int kTcpWaitFactor = 20;   // network and serial server need more time than a cable
constexpr int kQuietMs = 500;        // silence after which a cancelled reply counts as ended
constexpr int kDrainMs = 2000;       // the most that is waited for it
constexpr int kTcpVersionMs = 500;   // least wait for a version over TCP, however small the delay is set
constexpr int kStillThereMs = 2000;  // least wait for a sign of life
constexpr std::size_t kInputBuffer = 64'000;
constexpr std::size_t kLargestReplyMb = 64;  // a whole configuration is well below one

// The first whole line that says something.
std::string_view FirstLine(std::string_view text) {
    for (auto end = text.find(kCr); end != std::string_view::npos; end = text.find(kCr)) {
        std::string_view line = text.substr(0, end);
        if (line.starts_with('\n')) line.remove_prefix(1);
        if (!line.empty()) return line;
        text.remove_prefix(end + 1);
    }
    return {};
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Line noise before "V3.10..." must not become part of the version: an unknown version would silently
// drop every gated line of a download.
std::string_view FromVersion(std::string_view line) {
    for (auto v = line.find('V'); v != std::string_view::npos; v = line.find('V', v + 1)) {
        if (v + 1 < line.size() && IsDigit(line[v + 1])) return line.substr(v);
    }
    return line;
}

bool TellsVersion(std::string_view line) {
    const bool refused = line.find("??") != std::string_view::npos;
    return !refused && FromVersion(line).find('.', 1) != std::string_view::npos;
}

}  // namespace

CIndicatorComm::InUse::InUse(CIndicatorComm& link, const char* operation) : link_(link) {
    if (link_.inUse_) link_.Fail(operation, link_.parts_.texts.Text(link_text::kBusy));
    link_.inUse_ = true;
}

CIndicatorComm::CIndicatorComm(const LinkParts& parts) : parts_(parts), log_(parts.logFile) {
    InitComm();
    address_ = settings_.address;
}

void CIndicatorComm::SetAddress(int address) {
    if (address < 1 || address > 255) {
        const std::string given = parts_.texts.Format(link_text::kBusAddress, {std::to_string(address)});
        throw Error(code::kOutOfRange, "Calyx.CIndicatorComm.Address",
                    parts_.texts.Format(code::kOutOfRange, {given, "1..255"}));
    }
    address_ = address;
}

BusAddress CIndicatorComm::FrameAddress() const {
    if (settings_.method != comm_method::kAddressed) return std::nullopt;
    return static_cast<std::uint8_t>(address_);
}

std::string CIndicatorComm::Framing() const {
    return settings_.parity + "," + settings_.dataBits + "," + settings_.stopBits;
}

std::string CIndicatorComm::CurrentSettings() const {
    return settings_.baud + "," + Framing();
}

std::string CIndicatorComm::Where() const {
    if (OverTcp()) return "TCP/IP:" + settings_.host + ":" + std::to_string(settings_.tcpPort);
    return settings_.port + ":" + CurrentSettings();
}

std::string CIndicatorComm::LogTrouble() const {
    return log_.Failed() ? parts_.texts.Format(link_text::kLogFailed, {log_.Path()}) : std::string();
}

bool CIndicatorComm::SendData(std::string_view command, int timeoutMs) {
    return Send(command, timeoutMs).result == SendResult::Accepted;
}

SendReport CIndicatorComm::Send(std::string_view command, int timeoutMs) {
    const InUse use(*this, "SendData");
    NeedOneLine(command, "SendData");
    SendReport report;
    if (const Ready ready = ReadyForCommand(&ILinkEvents::CancelSendData); ready != Ready::Yes) {
        report.result = ready == Ready::Lost ? SendResult::Lost : SendResult::Cancelled;
        return report;
    }
    AnswerJudge judge(command, FrameAddress());
    while (report.result == SendResult::NoAnswer && report.attempts < kAttempts) {
        // An observer may have closed the wire since the last attempt.
        if (parts_.cancel || !transport_->IsOpen()) {
            report.result = parts_.cancel ? SendResult::Cancelled : SendResult::Lost;
            break;
        }
        ++report.attempts;
        report.result = Attempt(command, timeoutMs, judge);
    }
    if (FrameAddress()) {
        Poll(kBusPauseMs, [this](std::int64_t) {
            transport_->Read();
            return true;
        });
    }
    transport_->ClearBuffers();
    drain_ = report.result == SendResult::Cancelled && report.attempts > 0;
    if (report.result == SendResult::Lost) Lose();
    return report;
}

SendResult CIndicatorComm::Attempt(std::string_view command, int timeoutMs, AnswerJudge& judge) {
    const std::string line = PrepareLine(command, FrameAddress());
    WriteCommLog(line, true);
    Tell(&ILinkEvents::Sending, std::string(WithoutLineEnd(command)));
    const std::int64_t half = parts_.clock.NowMs() + timeoutMs / 2;
    transport_->Write(line);

    std::string reply;
    Verdict verdict = Verdict::None;
    const auto listen = [&] {
        const std::string heard = transport_->Read();
        reply += heard;
        if (reply.size() > kInputBuffer) reply.erase(0, reply.size() - kInputBuffer);
        verdict = judge.Take(heard);
    };
    bool cancelled = false;
    Poll(timeoutMs, [&](std::int64_t now) {
        cancelled = AskCancel(&ILinkEvents::CancelSendData);
        if (cancelled) return false;
        if (now >= half) Tell(&ILinkEvents::WaitingForResponse);
        listen();
        return verdict == Verdict::None;
    });
    if (!cancelled && verdict == Verdict::None) listen();
    const bool timeUp = !cancelled && verdict == Verdict::None && transport_->IsOpen();
    if (timeUp || !reply.empty()) WriteCommLog(reply, false);  // "IN:" alone tells of silence
    if (verdict != Verdict::None) {
        return verdict == Verdict::Accepted ? SendResult::Accepted : SendResult::Refused;
    }
    if (cancelled) return SendResult::Cancelled;
    if (!timeUp) return SendResult::Lost;
    Tell(&ILinkEvents::ReceivedResponse);
    return SendResult::NoAnswer;
}

int CIndicatorComm::ReceptionWait() const {
    const int unit = std::clamp(settings_.delayMs, 1, kLongestUnitMs);
    if (OverTcp()) return unit * kTcpWaitFactor;
    if (settings_.method == comm_method::kDetect) return kDetectWaitMs;
    return static_cast<int>(std::lround(unit * GetBaudTimeFactor(settings_.baud)));
}

int CIndicatorComm::VersionWait() const {
    return OverTcp() ? std::max(ReceptionWait(), kTcpVersionMs) : ReceptionWait();
}

std::optional<std::string> CIndicatorComm::GetData(std::string_view command) {
    return Receive(command, Until::Quiet, "GetData");
}

std::optional<std::string> CIndicatorComm::GetLine(std::string_view command) {
    return Receive(command, Until::LineEnd, "GetData");
}

std::optional<std::string> CIndicatorComm::GetAnswer(std::string_view command) {
    return Receive(command, Until::Answer, "GetData");
}

bool CIndicatorComm::StillAnswers() {
    if (inUse_ || !Connected()) return false;
    try {
        const auto reply = Receive("VERSION", Until::Identified, "StillAnswers");
        return reply && Identifies(*reply);
    } catch (const Error&) {
        return false;
    }
}

bool CIndicatorComm::Identifies(std::string_view text) const {
    return Upper(text).find(identification_) != std::string::npos;
}

bool CIndicatorComm::IsWhole(std::string_view text, std::string_view command, Until until) const {
    if (until == Until::Identified) return Identifies(text);
    const std::string_view line = FirstLine(text);
    if (until == Until::LineEnd) return !line.empty();
    const std::string_view key = WithoutLineEnd(command);
    return line == "OK" || line == "??" ||
           (!key.empty() && StartsNoCase(line, key) && line.substr(key.size()).starts_with('='));
}

int CIndicatorComm::WaitFor(Until until) const {
    if (until == Until::Quiet || until == Until::Answer) return ReceptionWait();
    return until == Until::LineEnd ? VersionWait() : std::max(VersionWait(), kStillThereMs);
}

std::optional<std::string> CIndicatorComm::Receive(std::string_view command, Until until,
                                                   const char* operation) {
    const InUse use(*this, operation);
    NeedOneLine(command, operation);
    const Ready ready = ReadyForCommand(&ILinkEvents::CancelGetData);
    if (ready == Ready::Lost) Fail(operation, parts_.texts.Text(link_text::kNotConnected));
    if (ready == Ready::Cancelled) return std::nullopt;
    const int wait = WaitFor(until);
    const std::string line = PrepareLine(command, FrameAddress());
    WriteCommLog(line, true);
    transport_->Write(line);

    std::string reply;
    bool brought = false;
    bool cancelled = false;
    const auto listen = [&] {
        const std::string heard = transport_->Read();
        reply += heard;
        brought |= !heard.empty();
    };
    const auto complete = [&] {
        const bool askable = until != Until::Quiet && reply.size() <= kInputBuffer;
        return askable && IsWhole(ReplyText(reply, command, FrameAddress()), command, until);
    };
    int polls = 0;
    do {
        brought = false;
        Poll(wait, [&](std::int64_t) {
            listen();
            cancelled = AskCancel(&ILinkEvents::CancelGetData);
            // A serial line is gathered for the whole wait: it brings its characters one by one.
            return !cancelled && !(brought && OverTcp()) && !complete();
        });
        if (cancelled) {
            drain_ = true;
            return std::nullopt;
        }
        listen();
        if (reply.size() > kLargestReplyMb << 20) {
            Fail(operation, parts_.texts.Format(link_text::kTooMuch, {std::to_string(kLargestReplyMb)}));
        }
        // Told on every second poll; the pacing is meant to be so.
        if (polls % 5 == 0) {
            ++polls;
        } else {
            Tell(&ILinkEvents::Receiving, reply.size());
            polls = 0;
        }
    } while (brought && !complete());
    if (!transport_->IsOpen()) {
        Lose();
        Fail(operation, parts_.texts.Format(link_text::kLost, {Where()}));
    }
    WriteCommLog(reply, false);
    return ReplyText(reply, command, FrameAddress());
}

std::string CIndicatorComm::ReadVersion(TargetVersion& target) {
    std::string line = versionReply_;
    if (!TellsVersion(line)) {
        const auto reply = Receive("VERSION", Until::LineEnd, "ReadVersion");
        if (!reply) return {};
        line = FirstLine(*reply + kCr);
    }
    if (!TellsVersion(line)) Fail("ReadVersion", parts_.texts.Text(link_text::kNoVersion));
    target.TakeReply(line);
    const bool cb2 = target.cb2;  // wherever in the line it stands
    const std::string_view version = FromVersion(line);
    target.TakeReply(version);
    target.cb2 = cb2;
    return std::string(version);
}

SendResult CIndicatorComm::AskForSetupMode() {
    return Send("KNIX\r", kSetupModeMs).result;
}

bool CIndicatorComm::CheckForBusEnabled() {
    if (!Connected()) return false;
    std::string reply = GetData("\r").value_or(std::string());
    std::erase_if(reply, [](char c) { return c == '\r' || c == '\n'; });
    return reply.size() >= 3;
}

bool CIndicatorComm::Connected() {
    if (connected_) transport_->Wait(0);  // lets a wire that was closed meanwhile be seen
    return connected_ && transport_->IsOpen();
}

// Empties the buffers, so that a late answer to the last command is not taken for the next one's.
CIndicatorComm::Ready CIndicatorComm::ReadyForCommand(CancelEvent event) {
    const bool goOn = !connected_ || Drain(event);
    if (connected_) transport_->ClearBuffers();
    if (connected_ && transport_->IsOpen()) return goOn ? Ready::Yes : Ready::Cancelled;
    Lose();
    return Ready::Lost;
}

// Reads what is left of a cancelled command's reply until there is quiet, or no longer. False: cancelled.
bool CIndicatorComm::Drain(CancelEvent event) {
    if (!drain_) return true;
    bool cancelled = false;
    std::int64_t quietFrom = parts_.clock.NowMs();
    const std::int64_t quiet = std::min(ReceptionWait(), kQuietMs);
    Poll(kDrainMs, [&](std::int64_t now) {
        cancelled = AskCancel(event);
        if (!transport_->Read().empty()) quietFrom = now;
        return !cancelled && now - quietFrom < quiet;
    });
    drain_ = cancelled;
    return !cancelled;
}

void CIndicatorComm::NeedOneLine(std::string_view command, const char* operation) const {
    if (WithoutLineEnd(command).find_first_of("\r\n") != std::string_view::npos)
        Fail(operation, parts_.texts.Text(link_text::kNotOneLine));
}

// The other end is gone, or a window closed the wire meanwhile.
void CIndicatorComm::Lose() {
    if (!connected_) return;
    connected_ = false;
    Tell(&ILinkEvents::DisconnectedFromIndicator);
}

bool CIndicatorComm::AskCancel(CancelEvent event) {
    bool cancel = false;
    Tell(event, cancel);
    return cancel || parts_.cancel;
}

void CIndicatorComm::Fail(const char* operation, std::string description) const {
    throw Error(code::kLink, std::string("Calyx.CIndicatorComm.") + operation, std::move(description));
}

}  // namespace calyx
