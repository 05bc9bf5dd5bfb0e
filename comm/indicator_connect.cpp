#include <cmath>
#include <system_error>
#include <utility>

#include "comm/detection.h"
#include "comm/indicator_comm.h"
#include "comm/link_texts.h"
#include "model/language/error.h"
#include "model/language/reason.h"
#include "model/language/text.h"

namespace calyx {

namespace {

constexpr int kPortOpenMs = 100;
constexpr const char* kFirstSettings = "57600,N,8,1";  // only to see that the port opens

std::string_view LastLine(std::string_view text) {
    return text.substr(text.find_last_of("\r\n") + 1);
}

int Scaled(int milliseconds, double factor) {
    return static_cast<int>(std::lround(milliseconds * factor));
}

}  // namespace

void CIndicatorComm::Connect() {
    const InUse use(*this, "Connect");
    As("Calyx.CIndicatorComm.Connect", [this] {
        CloseTransport("Connect");
        InitComm();
        cancelled_ = streaming_ = drain_ = false;
        versionReply_.clear();
        settings_.logging ? log_.Start() : log_.Stop();
        try {
            OverTcp() ? ConnectTCPIP() : ConnectSerial();
        } catch (...) {
            CloseTransport("DisconnectTCPIP");
            throw;
        }
    });
}

bool CIndicatorComm::AutoDetect() {
    const InUse use(*this, "AutoDetect");
    return As("Calyx.CIndicatorComm.AutoDetect", [this] {
        CloseTransport("AutoDetect");
        InitComm();
        cancelled_ = streaming_ = drain_ = false;
        const int method = std::exchange(settings_.method, comm_method::kDetect);
        try {
            const bool found = AutoDetectSettings();
            CloseTransport("AutoDetect");
            settings_.method = method;
            if (found) StoreSettings();
            return found;
        } catch (...) {
            settings_.method = method;
            throw;
        }
    });
}

bool CIndicatorComm::CheckCommMethod() {
    const LinkSettings stored = parts_.settings.Load();
    if (!Connected()) {
        settings_ = stored;
        return false;
    }
    if (stored.method != settings_.method) return false;
    if (OverTcp()) return stored.host == settings_.host && stored.tcpPort == settings_.tcpPort;
    return stored.port == settings_.port;
}

void CIndicatorComm::Disconnect() {
    cancelled_ = true;
    CloseTransport("Disconnect");
}

std::unique_ptr<ITransport> CIndicatorComm::OpenTransport() {
    if (!OverTcp()) return parts_.transports.MakeSerial(settings_.port, CurrentSettings());
    try {
        return parts_.transports.MakeTcp(settings_.host, settings_.tcpPort, [this] {
            parts_.clock.LetOthersRun();
            return !AskCancelDetecting(Where());
        });
    } catch (const Error&) {
        if (cancelled_) FailVerification();
        throw;
    }
}

// False: the port does not take these settings. Detection then goes on with the next.
bool CIndicatorComm::OpenSerial(const std::string& settings) {
    try {
        transport_ = parts_.transports.MakeSerial(settings_.port, settings);
    } catch (const SettingsRefused&) {
        return false;
    }
    return true;
}

void CIndicatorComm::CloseTransport(const char* operation) {
    std::string trouble;
    try {
        if (transport_) transport_->Close();
    } catch (const std::system_error& error) {
        trouble = "Unable to Disconnect:" + ReasonIn(error.what());
    }
    Lose();
    if (!trouble.empty()) Fail(operation, trouble);
}

void CIndicatorComm::ConnectTCPIP() {
    transport_ = OpenTransport();
    connected_ = true;
    Tell(&ILinkEvents::ConnectToIndicator, Where());
    StoreSettings();
    if (!VerifyConnect({}, {})) FailVerification();
}

void CIndicatorComm::ConnectSerial() {
    if (settings_.method == comm_method::kDetect) {
        if (OpenSerial(kFirstSettings)) {
            Poll(kPortOpenMs, [this](std::int64_t) {
                transport_->Read();
                return !cancelled_ && !parts_.cancel;
            });
        }
        if (!AutoDetectSettings()) FailVerification();
    } else {
        SetAddress(address_);  // the stored one may be out of range
        transport_ = OpenTransport();
        if (!VerifyConnect(settings_.baud, Framing())) FailVerification();
    }
    StoreSettings();
    connected_ = true;
    Tell(&ILinkEvents::ConnectToIndicator, Where());
}

bool CIndicatorComm::AutoDetectSettings() {
    if (settings_.storedFirst) {
        const std::string baud = settings_.baud;
        if (TryPair(baud, Framing())) return true;
        if (streaming_ || cancelled_) return false;
    }
    for (std::size_t baud = 0; baud < kBaudCount; ++baud) {
        for (std::size_t framing = 0; framing < kFramingCount; ++framing) {
            if (TryPair(GetNextBaud(baud), GetNextParityDataBitsStopBits(framing))) return true;
            if (streaming_ || cancelled_) return false;
        }
    }
    return false;
}

// A pair that answers stays open and in the settings.
bool CIndicatorComm::TryPair(std::string_view baud, std::string_view framing) {
    CloseTransport("AutoDetectSettings");
    if (!OpenSerial(std::string(baud) + "," + std::string(framing))) return false;
    if (!VerifyConnect(baud, framing)) {
        CloseTransport("AutoDetectSettings");
        return false;
    }
    const auto fields = Split(framing, ',');
    settings_.baud = baud;
    settings_.parity.assign(1, fields[0].front());
    settings_.dataBits = fields[1];
    settings_.stopBits = fields[2];
    return true;
}

bool CIndicatorComm::VerifyConnect(std::string_view baud, std::string_view framing) {
    const std::string tried = OverTcp() ? Where() : std::string(baud) + "," + std::string(framing);
    const double factor = OverTcp() ? 1.0 : GetBaudTimeFactor(baud);
    if (Streams()) {
        streaming_ = true;
        Tell(&ILinkEvents::IndicatorIsStreaming);
        return false;
    }
    transport_->Write("\r");  // ends whatever the indicator was told before; never framed, on purpose
    Poll(Scaled(kSettleMs, factor), [&](std::int64_t) {
        transport_->Read();  // what a lone CR brings says nothing
        return !AskCancelDetecting(tried);
    });
    // Over TCP the answer gets the time that the link gives every reception there.
    return !cancelled_ && HearsIdentification(tried, OverTcp() ? VersionWait() : Scaled(kVersionMs, factor));
}

bool CIndicatorComm::HearsIdentification(const std::string& tried, int limitMs) {
    if (identification_.empty()) identification_ = Upper(settings_.searchText);
    const std::string line = PrepareLine("VERSION", FrameAddress());
    transport_->ClearBuffers();
    WriteCommLog(line, true);
    transport_->Write(line);

    std::string reply;
    bool found = false;
    bool complete = false;
    const auto listen = [&] {
        reply += transport_->Read();
        const std::string text = ReplyText(reply, "VERSION", FrameAddress());
        const std::size_t start = Upper(text).find(identification_);
        found = !text.empty() && start != std::string::npos;
        // The line's end is waited for, so that no rest of it is taken for the next command's answer.
        const std::size_t end = found ? text.find(kCr, start) : std::string::npos;
        complete = end != std::string::npos;
        if (complete) versionReply_ = LastLine(std::string_view(text).substr(0, end));
    };
    Poll(limitMs, [&](std::int64_t) {
        listen();
        return !complete && !AskCancelDetecting(tried);
    });
    if (!complete) listen();
    if (!reply.empty()) WriteCommLog(reply, false);
    const bool open = transport_->IsOpen();
    transport_->ClearBuffers();
    return open && found && !cancelled_;
}

// What waits unread is thrown away first on purpose, so that a late answer is not taken for streaming: only
// what arrives while it listens counts.
bool CIndicatorComm::CheckForStreaming() {
    const InUse use(*this, "CheckForStreaming");
    return As("Calyx.CIndicatorComm.CheckForStreaming", [this] {
        if (Connected()) return Drain(&ILinkEvents::CancelGetData) && Streams();
        InitComm();
        cancelled_ = false;
        transport_ = OpenTransport();
        const bool streams = Streams();
        CloseTransport("CheckForStreaming");
        return streams;
    });
}

bool CIndicatorComm::Streams() {
    transport_->ClearBuffers();
    Poll(kStreamingMs, [this](std::int64_t) { return transport_->Waiting() == 0 && !parts_.cancel; });
    return transport_->Waiting() > 0;
}

bool CIndicatorComm::AskCancelDetecting(const std::string& tried) {
    bool cancel = false;
    Tell(&ILinkEvents::AutoDetecting, tried, cancel);
    cancelled_ |= cancel || parts_.cancel;
    return cancelled_;
}

void CIndicatorComm::FailVerification() {
    const ResourceTexts& texts = parts_.texts;
    const std::string where = settings_.method == comm_method::kDetect ? settings_.port : Where();
    if (cancelled_) Fail("Connect", texts.Format(link_text::kCancelled, {where}));
    if (streaming_) Fail("Connect", texts.Text(link_text::kStreaming));
    std::string silent = OverTcp() ? "Verify Failure! " : "";
    silent += texts.Format(code::kLink, {where});
    Fail("Connect", std::move(silent));
}

}  // namespace calyx
