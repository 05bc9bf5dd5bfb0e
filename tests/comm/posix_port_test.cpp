// What this system says about serial ports, and what the user is told.

#include <cerrno>

#include "tests/comm/port_words.h"

namespace calyx::test {
namespace {

TEST(SerialPort, WhatDoesNotOpenIsToldApart) {
    ExpectWords({{EBUSY, 9619}, {EACCES, 9619}, {ENOENT, 9622}, {ENODEV, 9622}, {EIO, 9601}});
}

}  // namespace
}  // namespace calyx::test
