// The simulated indicator on a serial port: one end of a pseudo-terminal, the test being the host at the
// other.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <stdlib.h>
#include <unistd.h>

#include <stdexcept>
#include <system_error>

#include "sim/serial_simulator.h"

namespace calyx::sim {
namespace {

struct HostEnd {
    int handle = posix_openpt(O_RDWR | O_NOCTTY);
    std::string device;

    HostEnd() {
        if (handle >= 0 && grantpt(handle) == 0 && unlockpt(handle) == 0) device = ptsname(handle);
    }
    ~HostEnd() { close(handle); }
    HostEnd(const HostEnd&) = delete;
    HostEnd& operator=(const HostEnd&) = delete;

    // Sends a line and gathers the answer up to its last line end.
    std::string Ask(const std::string& line) const {
        const std::string sent = line + "\r";
        EXPECT_EQ(write(handle, sent.data(), sent.size()), static_cast<ssize_t>(sent.size()));
        std::string answer;
        pollfd wait{handle, POLLIN, 0};
        while (!answer.ends_with("\n") && poll(&wait, 1, 5000) == 1) {
            char bytes[256];
            const ssize_t count = read(handle, bytes, sizeof(bytes));
            if (count <= 0) break;
            answer.append(bytes, static_cast<std::size_t>(count));
        }
        return answer;
    }
};

TEST(SerialSimulator, AnswersAtItsEndOfTheLine) {
    const HostEnd host;
    if (host.device.empty()) GTEST_SKIP() << "no pseudo-terminals here";
    for (const char* settings : {"9600,N,8,1", "115200,E,7,1"}) {
        SerialSimulator simulator({.version = "V2.08.01 CB2 MERRIN"}, host.device, settings);
        EXPECT_EQ(host.Ask("VERSION"), "V2.08.01 CB2 MERRIN\r\n");
        EXPECT_EQ(host.Ask("UID=\xff\x11\x13 7"), "OK\r\n");  // no character means anything to the line
        EXPECT_EQ(host.Ask("UID"), "UID=\xff\x11\x13 7\r\n");
        simulator.AddFault("refuse:UID");
        EXPECT_EQ(host.Ask("UID=8"), "??\r\n");
        simulator.Stop();
    }
}

TEST(SerialSimulator, SaysWhatDoesNotOpen) {
    EXPECT_THROW(SerialSimulator({}, "/no/such/port", "9600,N,8,1"), std::system_error);
    const HostEnd host;
    EXPECT_THROW(SerialSimulator({}, host.device, "9600,8,N,1"), std::invalid_argument);
    EXPECT_THROW(SerialSimulator({}, "/dev/null", "9600,N,8,1"), std::system_error);
}

}  // namespace
}  // namespace calyx::sim
