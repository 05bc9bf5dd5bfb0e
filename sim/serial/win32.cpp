#include <cstring>
#include <system_error>

#include "sim/serial/device.h"

// Behind Asio, which wants the sockets' header before it.
#include <windows.h>

namespace calyx::sim {

void OpenDevice(asio::serial_port& port, const std::string& device, const SerialSettings& settings) {
    std::error_code error;
    port.open(device, error);
    if (error) throw std::system_error(error.value(), std::system_category(), device);
    const HANDLE handle = port.native_handle();
    DCB line{};
    line.DCBlength = sizeof(line);
    bool done = GetCommState(handle, &line) != 0;
    const DCB present = line;
    line.BaudRate = static_cast<DWORD>(settings.baud);
    line.ByteSize = static_cast<BYTE>(settings.dataBits);
    line.StopBits = settings.stopBits == 2 ? TWOSTOPBITS : ONESTOPBIT;
    line.Parity = settings.parity == 'N' ? NOPARITY : settings.parity == 'E' ? EVENPARITY : ODDPARITY;
    line.fBinary = TRUE;
    line.fParity = settings.parity != 'N';
    line.fOutX = line.fInX = line.fOutxCtsFlow = line.fOutxDsrFlow = line.fDsrSensitivity = FALSE;
    line.fErrorChar = line.fNull = line.fAbortOnError = FALSE;
    line.fDtrControl = DTR_CONTROL_ENABLE;
    line.fRtsControl = RTS_CONTROL_ENABLE;
    // What is set already is not set again: some systems refuse that.
    done = done && (std::memcmp(&present, &line, sizeof(line)) == 0 || SetCommState(handle, &line) != 0);
    if (!done) throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), device);
    PurgeComm(handle, PURGE_RXCLEAR | PURGE_TXCLEAR);
}

}  // namespace calyx::sim
