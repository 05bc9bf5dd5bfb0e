#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdlib>

#include "cli/terminal/terminal.h"

namespace calyx::cli::terminal {

namespace {

// The handler is given nothing of ours, so what it sets cannot be handed in. It runs on a thread of its own.
std::atomic<bool> pressed{false};
std::atomic<std::atomic<bool>*> watched{nullptr};

BOOL WINAPI Press(DWORD event) {
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) return FALSE;
    pressed = true;
    if (std::atomic<bool>* flag = watched) *flag = true;
    return TRUE;
}

}  // namespace

void Prepare() {
    _setmode(_fileno(stdout), _O_BINARY);
    // The console belongs to the shell, which goes on with its own code page.
    static const UINT before = GetConsoleOutputCP();
    if (before != 0 && SetConsoleOutputCP(CP_UTF8)) std::atexit([] { SetConsoleOutputCP(before); });
    SetConsoleCtrlHandler(Press, TRUE);
}

void WatchInterrupt(std::atomic<bool>* flag) {
    watched = flag;
    if (flag != nullptr && pressed) *flag = true;
}

bool IsTerminal(std::FILE* stream) {
    return _isatty(_fileno(stream)) != 0;
}

}  // namespace calyx::cli::terminal
