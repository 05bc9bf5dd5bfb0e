#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <system_error>

#include "sim/pty_simulator.h"
#include "sim/serial/settings.h"
#include "sim/serial/speed.h"
#include "sim/service.h"
#include "sim/session.h"

namespace calyx::sim {

namespace {

using Master = asio::posix::stream_descriptor;

[[noreturn]] void Fail(const char* what) {
    throw std::system_error(errno, std::system_category(), what);
}

// Both ends of a pseudo-terminal. The host's end is held open here as well: its settings stay, and a host
// that goes does not end the line.
struct Ends {
    int master = -1;
    int host = -1;
    std::string path;

    Ends() {
        master = posix_openpt(O_RDWR | O_NOCTTY);
        std::array<char, 128> name{};
        if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0 ||
            ptsname_r(master, name.data(), name.size()) != 0)
            Fail("there is no pseudo-terminal");
        path = name.data();
        host = open(path.c_str(), O_RDWR | O_NOCTTY);
        termios line{};
        if (host < 0 || tcgetattr(host, &line) != 0) Fail("the pseudo-terminal does not open");
        cfmakeraw(&line);  // a fresh one sends back what comes
        tcsetattr(host, TCSANOW, &line);
    }
    ~Ends() {
        if (host >= 0) close(host);
    }
    Ends(const Ends&) = delete;
    Ends& operator=(const Ends&) = delete;
};

}  // namespace

bool HasPseudoTerminals() {
    return access("/dev/ptmx", R_OK | W_OK) == 0;
}

class PtySimulator::Line : public Service {
  public:
    Line(SimulatorOptions options, const SerialOptions& serial, Report report)
        : Service(std::move(options), std::move(report)),
          expected_(ReadSerialSettings(serial.settings)),
          session_(
              Indicator(), [this] { SaveSoon(); }, [this] { Save(); }, Effects(serial.paced)) {
        session_.Start(Master(Io(), ends_.master));
        Begin();
    }
    ~Line() override { Stop(); }

    const std::string& Path() const { return ends_.path; }

  private:
    void CloseWire() override { session_.Close(); }

    LineEffects Effects(bool paced) {
        LineEffects effects;
        effects.spoil = [this](std::span<char> bytes) {
            if (HostFits()) return;
            // No byte of it ends a line or looks like one that was meant.
            for (char& byte : bytes) byte = static_cast<char>(0x80 | (byte ^ 0x55));
        };
        if (paced) {
            effects.pace = [this](std::size_t bytes) {
                return std::chrono::nanoseconds(1'000'000'000LL * expected_.Bits() *
                                                static_cast<long long>(bytes) / expected_.baud);
            };
        }
        return effects;
    }

    // A pseudo-terminal keeps the rate, the kind of parity and whether it is checked.
    bool HostFits() const {
        termios line{};
        if (tcgetattr(ends_.host, &line) != 0) return false;
        const bool checked = (line.c_iflag & INPCK) != 0;
        const char parity = !checked ? 'N' : (line.c_cflag & PARODD) != 0 ? 'O' : 'E';
        return cfgetispeed(&line) == SpeedOf(expected_.baud) && parity == expected_.parity;
    }

    SerialSettings expected_;
    Ends ends_;
    Session<Master> session_;
};

PtySimulator::PtySimulator(SimulatorOptions options, SerialOptions serial, Report report)
    : line_(std::make_unique<Line>(std::move(options), serial, std::move(report))) {}

PtySimulator::~PtySimulator() = default;

std::string PtySimulator::Path() const {
    return line_->Path();
}

SimulatorSnapshot PtySimulator::Snapshot() const {
    return line_->Indicator().Snapshot();
}

void PtySimulator::AddFault(std::string_view spec) {
    line_->Indicator().AddFault(spec);
}

void PtySimulator::ClearFaults() {
    line_->Indicator().ClearFaults();
}

void PtySimulator::ForgetReceived() {
    line_->Indicator().ForgetReceived();
}

void PtySimulator::Stop() {
    line_->Stop();
}

}  // namespace calyx::sim
