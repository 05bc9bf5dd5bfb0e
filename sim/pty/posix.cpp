#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <optional>
#include <stdexcept>
#include <system_error>

#include "sim/pty_simulator.h"
#include "sim/service.h"
#include "sim/session.h"

namespace calyx::sim {

namespace {

using Master = asio::posix::stream_descriptor;

struct Rate {
    int baud;
    speed_t speed;
};
constexpr Rate kRates[] = {{300, B300},     {600, B600},      {1200, B1200},   {2400, B2400},
                           {4800, B4800},   {9600, B9600},    {19200, B19200}, {38400, B38400},
                           {57600, B57600}, {115200, B115200}};

struct Expected {
    int baud = 0;
    speed_t speed = B0;
    char parity = 'N';
    int bits = 10;  // of a character, with start, parity and stop bits
};

// "9600,N,8,1"
Expected ReadSettings(const std::string& text) {
    Expected expected;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, expected.baud);
    const std::string framing(error == std::errc() ? rest : end, end);
    for (const Rate& rate : kRates) {
        if (rate.baud == expected.baud) expected.speed = rate.speed;
    }
    const bool fits = framing.size() == 6 && framing[0] == ',' && framing[2] == ',' && framing[4] == ',' &&
                      std::string_view("NEO").find(framing[1]) != std::string_view::npos &&
                      (framing[3] == '7' || framing[3] == '8') && (framing[5] == '1' || framing[5] == '2');
    if (expected.speed == B0 || !fits)
        throw std::invalid_argument("the settings \"" + text + "\" are not like 9600,N,8,1");
    expected.parity = framing[1];
    expected.bits = 1 + (framing[3] - '0') + (expected.parity == 'N' ? 0 : 1) + (framing[5] - '0');
    return expected;
}

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

class PtySimulator::Line : public Service {
  public:
    Line(SimulatorOptions options, const SerialOptions& serial, Report report)
        : Service(std::move(options), std::move(report)),
          expected_(ReadSettings(serial.settings)),
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
                return std::chrono::nanoseconds(1'000'000'000LL * expected_.bits *
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
        return cfgetispeed(&line) == expected_.speed && parity == expected_.parity;
    }

    Expected expected_;
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
