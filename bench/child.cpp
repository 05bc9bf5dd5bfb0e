#include "bench/child.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <exception>
#include <stdexcept>

namespace calyx::bench {

namespace {

using Clock = std::chrono::steady_clock;

double Since(Clock::time_point begin) {
    return std::chrono::duration<double, std::micro>(Clock::now() - begin).count();
}

// fork and not a lighter way: the peak of a program starts from that of the process that it replaces,
// which shares the parent's pages with the lighter ways.
template <class Work>
Outcome Fork(const std::string& what, Work&& work) {
    std::fflush(nullptr);
    const auto begin = Clock::now();
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("cannot start a process for " + what);
    if (child == 0) {
        work();
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error(what + " failed");
    return {Since(begin), usage.ru_maxrss};
}

}  // namespace

Outcome InChild(const std::function<void()>& work) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    Outcome outcome = Fork("the child process", [&] {
        try {
            const auto begin = Clock::now();
            work();
            const double time = Since(begin);
            if (write(ends[1], &time, sizeof time) == static_cast<ssize_t>(sizeof time)) _exit(0);
        } catch (const std::exception& error) {
            std::fprintf(stderr, "%s\n", error.what());
        }
    });
    const ssize_t got = read(ends[0], &outcome.microseconds, sizeof outcome.microseconds);
    close(ends[0]);
    close(ends[1]);
    if (got != static_cast<ssize_t>(sizeof outcome.microseconds))
        throw std::runtime_error("no answer from the child process");
    return outcome;
}

Outcome RunProgram(const std::vector<std::string>& command) {
    std::vector<char*> arguments;
    for (const std::string& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    return Fork(command.front(), [&] {
        const int nowhere = open("/dev/null", O_WRONLY);
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
        execv(arguments[0], arguments.data());
    });
}

}  // namespace calyx::bench
