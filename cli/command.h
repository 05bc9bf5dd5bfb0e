#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "cli/options.h"

namespace calyx::cli {

class Program;

// One command of the program.
class Command {
  public:
    virtual ~Command() = default;

    virtual std::string_view Name() const = 0;
    virtual std::string_view Help() const = 0;         // one line
    virtual std::string Notes() const { return {}; }   // further lines below the options
    virtual bool HasListing() const { return false; }  // whether --json is offered
    virtual void Declare(Options& options) = 0;
    // The exit code. Raises Error, UsageError and Interrupted.
    virtual int Run(Program& program) = 0;
};

// All commands, in the order of the help.
std::vector<std::unique_ptr<Command>> AllCommands();

}  // namespace calyx::cli
