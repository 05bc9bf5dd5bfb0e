#pragma once

#include <string>
#include <vector>

#include "cli/console.h"

namespace calyx::cli {

// The whole command line program but for its process: runs one command and returns the exit code (exit.h).
// `arguments` are those behind the program's name. Raises nothing; every failure is a line on console.err.
int RunCli(const std::vector<std::string>& arguments, Console& console);

}  // namespace calyx::cli
