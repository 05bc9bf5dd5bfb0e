#include <unistd.h>

#include <csignal>

#include "cli/terminal/terminal.h"

namespace calyx::cli::terminal {

namespace {

// A signal handler is given nothing, so what it sets cannot be handed in.
std::atomic<bool> pressed{false};
std::atomic<std::atomic<bool>*> watched{nullptr};
static_assert(std::atomic<bool>::is_always_lock_free && std::atomic<std::atomic<bool>*>::is_always_lock_free);

void Press(int) {
    pressed = true;
    if (std::atomic<bool>* flag = watched) *flag = true;
}

void Handle(int signal, void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    sigemptyset(&action.sa_mask);
    action.sa_flags = 0;  // no SA_RESTART: a question on the terminal must not outlast Ctrl+C
    sigaction(signal, &action, nullptr);
}

}  // namespace

void Prepare() {
    Handle(SIGPIPE, SIG_IGN);
    Handle(SIGINT, Press);
}

void WatchInterrupt(std::atomic<bool>* flag) {
    watched = flag;
    if (flag != nullptr && pressed) *flag = true;
}

bool IsTerminal(std::FILE* stream) {
    return isatty(fileno(stream)) == 1;
}

}  // namespace calyx::cli::terminal
