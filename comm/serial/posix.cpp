#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string_view>

#include "comm/serial/device.h"

namespace calyx::serial {

namespace {

struct Rate {
    int baud;
    speed_t speed;
};
constexpr Rate kRates[] = {
    {110, B110},   {300, B300},     {600, B600},     {1200, B1200},   {2400, B2400},     {4800, B4800},
    {9600, B9600}, {19200, B19200}, {38400, B38400}, {57600, B57600}, {115200, B115200}, {230400, B230400},
};

std::error_code LastError() {
    return {errno, std::system_category()};
}

bool SetRate(termios& line, int baud) {
    for (const Rate& rate : kRates) {
        if (rate.baud == baud)
            return cfsetispeed(&line, rate.speed) == 0 && cfsetospeed(&line, rate.speed) == 0;
    }
    return false;
}

void SetFrame(termios& line, const PortSettings& settings) {
    using enum PortSettings::Parity;
    cfmakeraw(&line);
    line.c_iflag &= ~static_cast<tcflag_t>(IXON | IXOFF | IXANY | ISTRIP | INPCK);
    line.c_iflag |= IGNPAR;
    if (settings.parity != None) line.c_iflag |= INPCK;
    line.c_cflag &= ~static_cast<tcflag_t>(CSIZE | CSTOPB | PARENB | PARODD | CRTSCTS);
    line.c_cflag |= CREAD | CLOCAL;
    line.c_cflag |= settings.dataBits == 7 ? CS7 : CS8;
    if (settings.stopBits == 2) line.c_cflag |= CSTOPB;
    if (settings.parity != None) line.c_cflag |= PARENB;
    if (settings.parity == Odd) line.c_cflag |= PARODD;
    line.c_cc[VMIN] = 1;
    line.c_cc[VTIME] = 0;
}

bool IsPseudoTerminal(Handle port) {
    std::array<char, 64> name{};
    return ttyname_r(port, name.data(), name.size()) == 0 &&
           std::string_view(name.data()).starts_with("/dev/pts/");
}

// A pseudo-terminal always has eight bits without parity and says so by refusing the rest; what it keeps is
// rate, kind of parity and its check on input.
bool KeptEnough(Handle port, const termios& asked) {
    termios kept{};
    if (!IsPseudoTerminal(port) || tcgetattr(port, &kept) != 0) return false;
    return cfgetispeed(&kept) == cfgetispeed(&asked) && (kept.c_cflag & PARODD) == (asked.c_cflag & PARODD) &&
           (kept.c_iflag & INPCK) == (asked.c_iflag & INPCK);
}

bool Equal(const termios& a, const termios& b) {
    return a.c_iflag == b.c_iflag && a.c_oflag == b.c_oflag && a.c_cflag == b.c_cflag &&
           a.c_lflag == b.c_lflag && cfgetispeed(&a) == cfgetispeed(&b);
}

}  // namespace

std::string DevicePath(const std::string& name) {
    return name.find('/') == std::string::npos ? "/dev/" + name : name;
}

std::error_code Apply(Handle port, const PortSettings& settings) {
    // Two programs on one line take each other's answers. The lock goes with the handle.
    if (flock(port, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        return std::make_error_code(std::errc::device_or_resource_busy);
    termios present{};
    if (tcgetattr(port, &present) != 0) return LastError();
    termios asked = present;
    SetFrame(asked, settings);
    if (!SetRate(asked, settings.baud)) return std::make_error_code(std::errc::invalid_argument);
    if (!Equal(present, asked) && tcsetattr(port, TCSANOW, &asked) != 0) {
        const std::error_code refused = LastError();
        if (refused.value() != EINVAL || !KeptEnough(port, asked)) return refused;
    }
    const int lines = TIOCM_DTR | TIOCM_RTS;
    ioctl(port, TIOCMBIS, &lines);  // a pseudo-terminal has none
    return {};
}

void Clear(Handle port) {
    tcflush(port, TCIOFLUSH);
}

}  // namespace calyx::serial
