#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "comm/answer_judge.h"
#include "comm/cancel_flag.h"
#include "comm/clock.h"
#include "comm/comm_log.h"
#include "comm/framing.h"
#include "comm/link_events.h"
#include "comm/link_settings.h"
#include "comm/transport.h"
#include "model/language/resource_texts.h"
#include "model/language/versions.h"

namespace calyx {

// What the link is built on; all of it outlives the link.
struct LinkParts {
    ITransportFactory& transports;
    IClock& clock;
    ILinkSettingsStore& settings;
    const ResourceTexts& texts;
    const CancelFlag& cancel;
    std::string logFile;  // "commlog.txt" with its folder
};

enum class SendResult {
    Accepted,
    Refused,    // "??"
    NoAnswer,   // every attempt ran out its time
    Cancelled,  // by an observer or the program's flag
    Lost,       // the wire is closed
};
struct SendReport {
    SendResult result = SendResult::NoAnswer;
    int attempts = 0;
};

// The one object through which the program talks to an indicator.
//
// One operation at a time: an operation begun while another runs (from an event or the clock's LetOthersRun)
// raises 12801; only Disconnect may be called then, and ends it. One thread. Times are milliseconds.
// Errors carry the source "Calyx.CIndicatorComm." and the operation's name:
//   12801 no wire, no verified answer, link lost or busy   10002 address outside 1..255
class CIndicatorComm {
  public:
    explicit CIndicatorComm(const LinkParts& parts);  // runs InitComm
    CIndicatorComm(const CIndicatorComm&) = delete;
    CIndicatorComm& operator=(const CIndicatorComm&) = delete;

    // Observers are told in the order in which they came; see LinkObserver.
    void AddObserver(ILinkEvents& observer) { observers_.push_back(&observer); }
    void RemoveObserver(ILinkEvents& observer) { std::erase(observers_, &observer); }

    void InitComm() { settings_ = parts_.settings.Load(); }
    void StoreSettings() { parts_.settings.Store(settings_); }

    // Opens the wire of the settings and makes sure that an indicator answers at it. 12801, 10002.
    void Connect();
    // Finds the settings of the serial line, whatever the method, and stores them; the link is closed before
    // and after. False: no pair was answered, IsStreaming, or cancelled. 12801 when the port does not open.
    bool AutoDetect();
    // Whether the link is open the way that the stored settings name; when closed, which way comes next.
    bool CheckCommMethod();
    void Disconnect();
    bool Connected();

    // Commands are one line; one with a line end before its end is refused with 12801.

    // Sends a command and waits for OK: at most six attempts of `timeoutMs` each; a refusal is final.
    bool SendData(std::string_view command, int timeoutMs);
    SendReport Send(std::string_view command, int timeoutMs);
    // Sends a command and gathers what comes until a whole wait has brought nothing. Nothing: cancelled.
    // 12801 when the link is closed, before or meanwhile.
    std::optional<std::string> GetData(std::string_view command);

    // The same for a command whose reply is one line: ends with it. Empty: no reply.
    std::optional<std::string> GetLine(std::string_view command);
    // The same for any command: a first line that is OK, ?? or the value that was asked for ("UID=1" to
    // "UID") is all of the reply.
    std::optional<std::string> GetAnswer(std::string_view command);

    // Lets the target version follow the indicator's reply to VERSION, which is returned ("V3.10.02
    // MERRIN"). The reply that verified the connection serves; only where that told no version it is asked
    // again. A cancelled query changes nothing and returns nothing. 12801 as GetData, and when the indicator
    // does not tell its version: the newest one must not be taken for it.
    std::string ReadVersion(TargetVersion& target);
    // Whether the indicator is still there: asks VERSION once and gives it two seconds at least. Only when
    // connected; a closed wire, another command under way and Cancel are no.
    bool StillAnswers();

    // Whether characters arrive unasked; opens a closed wire for the question.
    bool CheckForStreaming();
    // Whether the indicator is in setup mode ("KNIX"). Only when connected.
    bool CheckForSetupMode() { return AskForSetupMode() == SendResult::Accepted; }
    SendResult AskForSetupMode();  // the same, with the reason
    // Whether the port's bus parameter is on, so that it answers a lone CR. Only when connected.
    bool CheckForBusEnabled();

    int Address() const { return address_; }  // from the settings at first
    void SetAddress(int address);
    int CommMethod() const { return settings_.method; }
    int CommDelayTime() const { return settings_.delayMs; }
    std::string CurrentSettings() const;  // "9600,N,8,1"
    std::string Where() const;            // "TCP/IP:host:port", or the serial port and its settings
    bool IsStreaming() const { return streaming_; }  // found at the last connect

    // Adds a line to the communication log if logging is on. LogTrouble: why there is no more of it, or
    // empty.
    void WriteCommLog(std::string_view text, bool outgoing) { log_.Write(text, outgoing); }
    std::string LogTrouble() const;

  private:
    class InUse;
    enum class Until { Quiet, Answer, LineEnd, Identified };
    using CancelEvent = void (ILinkEvents::*)(bool&);

    bool OverTcp() const { return settings_.method == comm_method::kTcp; }
    BusAddress FrameAddress() const;
    std::string Framing() const;  // "N,8,1"
    int ReceptionWait() const;

    // Connecting: indicator_connect.cpp.
    std::unique_ptr<ITransport> OpenTransport();
    bool OpenSerial(const std::string& settings);
    void CloseTransport(const char* operation);
    void ConnectSerial();
    void ConnectTCPIP();
    bool AutoDetectSettings();
    bool TryPair(std::string_view baud, std::string_view framing);
    bool VerifyConnect(std::string_view baud, std::string_view framing);
    bool HearsIdentification(const std::string& tried, int limitMs);
    int VersionWait() const;
    int WaitFor(Until until) const;
    bool Identifies(std::string_view text) const;
    bool IsWhole(std::string_view text, std::string_view command, Until until) const;
    bool Streams();
    bool AskCancelDetecting(const std::string& tried);
    [[noreturn]] void FailVerification();

    // Commands: indicator_comm.cpp.
    SendResult Attempt(std::string_view command, int timeoutMs, AnswerJudge& judge);
    std::optional<std::string> Receive(std::string_view command, Until until, const char* operation);
    enum class Ready { Yes, Cancelled, Lost };
    Ready ReadyForCommand(CancelEvent event);
    bool Drain(CancelEvent event);
    void NeedOneLine(std::string_view command, const char* operation) const;
    void Lose();
    bool AskCancel(CancelEvent event);
    [[noreturn]] void Fail(const char* operation, std::string description) const;

    // Polls until the time has passed, the wire is closed or `goOn` (now in ms) says no.
    template <class GoOn>
    void Poll(int milliseconds, GoOn goOn);
    template <class... Arguments, class... Given>
    void Tell(void (ILinkEvents::*event)(Arguments...), Given&&... given);

    LinkParts parts_;
    LinkSettings settings_;
    CommLog log_;
    std::vector<ILinkEvents*> observers_;
    std::unique_ptr<ITransport> transport_;
    std::string identification_;  // upper-cased; cached at the first use
    std::string versionReply_;    // the line that verified the connection
    int address_ = 1;
    bool connected_ = false;
    bool streaming_ = false;
    bool cancelled_ = false;  // the search, by an observer or the program's flag
    bool inUse_ = false;
    bool drain_ = false;  // the rest of a cancelled command's reply may still come
};

class CIndicatorComm::InUse {
  public:
    InUse(CIndicatorComm& link, const char* operation);
    ~InUse() { link_.inUse_ = false; }
    InUse(const InUse&) = delete;
    InUse& operator=(const InUse&) = delete;

  private:
    CIndicatorComm& link_;
};

template <class GoOn>
void CIndicatorComm::Poll(int milliseconds, GoOn goOn) {
    constexpr std::int64_t kPollMs = 20;  // so that a window stays live; characters wake it at once
    const std::int64_t end = parts_.clock.NowMs() + milliseconds;
    for (std::int64_t now = end - milliseconds; now < end && transport_->IsOpen() && goOn(now);
         now = parts_.clock.NowMs()) {
        parts_.clock.LetOthersRun();
        transport_->Wait(static_cast<int>(std::min(kPollMs, end - now)));
    }
}

template <class... Arguments, class... Given>
void CIndicatorComm::Tell(void (ILinkEvents::*event)(Arguments...), Given&&... given) {
    std::size_t next = 0;  // an observer may come or go meanwhile
    while (next < observers_.size()) (observers_[next++]->*event)(given...);
}

// Observes the link for as long as it lives.
class LinkObserver {
  public:
    LinkObserver(CIndicatorComm& link, ILinkEvents& events) : link_(link), events_(events) {
        link_.AddObserver(events_);
    }
    ~LinkObserver() { link_.RemoveObserver(events_); }
    LinkObserver(const LinkObserver&) = delete;
    LinkObserver& operator=(const LinkObserver&) = delete;

  private:
    CIndicatorComm& link_;
    ILinkEvents& events_;
};

}  // namespace calyx
