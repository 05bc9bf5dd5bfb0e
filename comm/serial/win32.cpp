#include "comm/serial/device.h"

// Behind Asio, which wants the sockets' header before it.
#include <windows.h>

namespace calyx::serial {

namespace {

std::error_code LastError() {
    return {static_cast<int>(GetLastError()), std::system_category()};
}

bool Equal(const DCB& a, const DCB& b) {
    return a.BaudRate == b.BaudRate && a.ByteSize == b.ByteSize && a.Parity == b.Parity &&
           a.StopBits == b.StopBits && a.fBinary == b.fBinary && a.fParity == b.fParity &&
           a.fOutX == b.fOutX && a.fInX == b.fInX && a.fOutxCtsFlow == b.fOutxCtsFlow &&
           a.fOutxDsrFlow == b.fOutxDsrFlow && a.fDsrSensitivity == b.fDsrSensitivity &&
           a.fErrorChar == b.fErrorChar && a.fNull == b.fNull && a.fAbortOnError == b.fAbortOnError &&
           a.fDtrControl == b.fDtrControl && a.fRtsControl == b.fRtsControl;
}

}  // namespace

// Asio itself puts "\\.\" in front, without which ports beyond COM9 are not found.
std::string DevicePath(const std::string& name) {
    return name;
}

std::error_code Apply(Handle port, const PortSettings& settings) {
    using enum PortSettings::Parity;
    DCB present{};
    present.DCBlength = sizeof(present);
    if (!GetCommState(port, &present)) return LastError();
    DCB asked = present;
    asked.BaudRate = static_cast<DWORD>(settings.baud);
    asked.ByteSize = static_cast<BYTE>(settings.dataBits);
    asked.StopBits = settings.stopBits == 2 ? TWOSTOPBITS : ONESTOPBIT;
    asked.Parity = settings.parity == None ? NOPARITY : settings.parity == Even ? EVENPARITY : ODDPARITY;
    asked.fBinary = TRUE;
    asked.fParity = settings.parity != None;
    asked.fOutX = asked.fInX = FALSE;
    asked.fOutxCtsFlow = asked.fOutxDsrFlow = asked.fDsrSensitivity = FALSE;
    asked.fErrorChar = asked.fNull = asked.fAbortOnError = FALSE;
    asked.fDtrControl = DTR_CONTROL_ENABLE;
    asked.fRtsControl = RTS_CONTROL_ENABLE;
    // What is set already is not set again: some systems refuse that.
    if (!Equal(present, asked) && !SetCommState(port, &asked)) return LastError();
    return {};
}

void Clear(Handle port) {
    PurgeComm(port, PURGE_RXCLEAR | PURGE_TXCLEAR);
}

}  // namespace calyx::serial
