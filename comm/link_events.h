#pragma once

#include <cstddef>
#include <string>

namespace calyx {

// What the link tells while it works. An observer that sets `cancel` ends the operation, as failed. The
// order of the events is part of the interface.
class ILinkEvents {
  public:
    virtual ~ILinkEvents() = default;

    // "TCP/IP:host:port", as soon as the host is reached: only the end of Connect says that an indicator
    // answered there. Or the serial port and its settings.
    virtual void ConnectToIndicator(const std::string& /*description*/) {}
    virtual void DisconnectedFromIndicator() {}
    // On every poll while a setting is tried: "9600,E,7,1"; over TCP "TCP/IP:host:port".
    virtual void AutoDetecting(const std::string& /*settings*/, bool& /*cancel*/) {}
    virtual void IndicatorIsStreaming() {}
    // Before every attempt; the line without frame and line end.
    virtual void Sending(const std::string& /*line*/) {}
    // On every poll once half the time for an answer has passed.
    virtual void WaitingForResponse() {}
    // After an attempt that ran out its time.
    virtual void ReceivedResponse() {}
    // On every second poll of GetData.
    virtual void Receiving(std::size_t /*characters*/) {}
    virtual void CancelGetData(bool& /*cancel*/) {}
    virtual void CancelSendData(bool& /*cancel*/) {}
};

}  // namespace calyx
