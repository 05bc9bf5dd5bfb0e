// The simulated indicator on a COM port. What needs a host at the other end of its cable is left to the tests
// of systems with pseudo-terminals, and to the test com_port.

#include <gtest/gtest.h>

#include <stdexcept>
#include <system_error>

#include "sim/pty_simulator.h"
#include "sim/serial_simulator.h"

namespace calyx::sim {
namespace {

TEST(SerialSimulator, SaysWhatDoesNotOpen) {
    EXPECT_THROW(SerialSimulator({}, "COM250", "9600,N,8,1"), std::system_error);
    EXPECT_THROW(SerialSimulator({}, "COM250", "9600,8,N,1"), std::invalid_argument);
    EXPECT_THROW(PtySimulator({}, {.settings = "9600,8,N,1"}), std::invalid_argument);
    EXPECT_THROW(PtySimulator({}), std::runtime_error);
}

}  // namespace
}  // namespace calyx::sim
