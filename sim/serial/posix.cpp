#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string_view>
#include <system_error>

#include "sim/serial/device.h"
#include "sim/serial/speed.h"

namespace calyx::sim {

namespace {

// A pseudo-terminal has no framing and may refuse one.
bool IsPseudoTerminal(int port) {
    std::array<char, 64> name{};
    return ttyname_r(port, name.data(), name.size()) == 0 &&
           std::string_view(name.data()).starts_with("/dev/pts/");
}

}  // namespace

void OpenDevice(asio::serial_port& port, const std::string& device, const SerialSettings& settings) {
    std::error_code error;
    port.open(device.find('/') == std::string::npos ? "/dev/" + device : device, error);
    if (error) throw std::system_error(error.value(), std::system_category(), device);
    const int handle = port.native_handle();
    termios line{};
    bool done = tcgetattr(handle, &line) == 0;
    cfmakeraw(&line);
    line.c_iflag &= ~static_cast<tcflag_t>(IXOFF | IXANY | INPCK);
    line.c_iflag |= IGNPAR;
    line.c_cflag &= ~static_cast<tcflag_t>(CSIZE | CSTOPB | PARENB | PARODD | CRTSCTS);
    line.c_cflag |= CREAD | CLOCAL;
    line.c_cflag |= settings.dataBits == 7 ? CS7 : CS8;
    if (settings.stopBits == 2) line.c_cflag |= CSTOPB;
    if (settings.parity != 'N') line.c_cflag |= PARENB;
    if (settings.parity == 'O') line.c_cflag |= PARODD;
    cfsetispeed(&line, SpeedOf(settings.baud));
    cfsetospeed(&line, SpeedOf(settings.baud));
    done = done && (tcsetattr(handle, TCSANOW, &line) == 0 || (errno == EINVAL && IsPseudoTerminal(handle)));
    if (!done) throw std::system_error(errno, std::system_category(), device);
    tcflush(handle, TCIOFLUSH);
}

}  // namespace calyx::sim
