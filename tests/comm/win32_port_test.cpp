// What this system says about serial ports, and what the user is told. Wine opens a port twice, so that only
// the numbers can be tried here.

#include "tests/comm/port_words.h"

// Behind Asio, which wants the sockets' header before it.
#include <windows.h>

namespace calyx::test {
namespace {

TEST(SerialPort, WhatDoesNotOpenIsToldApart) {
    ExpectWords({{ERROR_ACCESS_DENIED, 9619},
                 {ERROR_SHARING_VIOLATION, 9619},
                 {ERROR_FILE_NOT_FOUND, 9622},
                 {ERROR_PATH_NOT_FOUND, 9622},
                 {ERROR_GEN_FAILURE, 9601}});
}

}  // namespace
}  // namespace calyx::test
