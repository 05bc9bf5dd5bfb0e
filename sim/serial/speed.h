#pragma once

#include <termios.h>

namespace calyx::sim {

// For the POSIX files only: the system's word for a rate of ReadSerialSettings.
inline speed_t SpeedOf(int baud) {
    struct Rate {
        int baud;
        speed_t speed;
    };
    constexpr Rate kRates[] = {{300, B300},     {600, B600},      {1200, B1200},   {2400, B2400},
                               {4800, B4800},   {9600, B9600},    {19200, B19200}, {38400, B38400},
                               {57600, B57600}, {115200, B115200}};
    for (const Rate& rate : kRates) {
        if (rate.baud == baud) return rate.speed;
    }
    return B0;
}

}  // namespace calyx::sim
