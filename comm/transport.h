#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "model/language/error.h"

namespace calyx {

// A wire to an indicator, open from the start until either end closes it. Nothing blocks but Wait. Bytes
// only: what they mean is the link's business. One thread.
class ITransport {
  public:
    virtual ~ITransport() = default;

    // False once the wire is closed from either end or broken; it never opens again. What arrived before
    // can still be read.
    virtual bool IsOpen() const = 0;
    // Raises std::system_error; closed all the same.
    virtual void Close() = 0;

    // Hands the bytes to the wire. A wire that breaks is closed, which the next look at it tells.
    virtual void Write(std::string_view bytes) = 0;
    // Takes everything that has arrived.
    virtual std::string Read() = 0;
    // Characters that have arrived and were not read.
    virtual std::size_t Waiting() = 0;
    // Forgets what has arrived and what has not gone out yet.
    virtual void ClearBuffers() = 0;
    // Rests for up to so many milliseconds; returns at once when characters wait or the wire is closed.
    virtual void Wait(int milliseconds) = 0;
};

// A serial port that is there and free, but does not take these settings; it may take others.
class SettingsRefused : public Error {
  public:
    using Error::Error;
};

// Opens wires. What cannot be opened is calyx::Error 12801 in words.
class ITransportFactory {
  public:
    // Called on every poll while a wire is being opened; false gives up.
    using GoOn = std::function<bool()>;

    virtual ~ITransportFactory() = default;
    virtual std::unique_ptr<ITransport> MakeTcp(const std::string& host, std::uint16_t port,
                                                const GoOn& goOn) = 0;
    // `settings` are baud, parity letter, data bits, stop bits: "9600,N,8,1".
    virtual std::unique_ptr<ITransport> MakeSerial(const std::string& port, const std::string& settings) = 0;
};

}  // namespace calyx
