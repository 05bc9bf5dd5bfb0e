#pragma once

#include <atomic>
#include <cstdio>

// What the command line needs of the system's terminal; one file a platform.
namespace calyx::cli::terminal {

// To be called first. Standard output takes bytes as they are, writing to a closed pipe fails instead of
// ending the program, and Ctrl+C no longer ends it: it sets the flag that is watched. A read from the
// terminal that it interrupts ends as if there were no more input.
void Prepare();

// The flag that Ctrl+C sets, at once if it was pressed since Prepare. Nothing: Ctrl+C is only kept in mind.
void WatchInterrupt(std::atomic<bool>* flag);

bool IsTerminal(std::FILE* stream);

}  // namespace calyx::cli::terminal
