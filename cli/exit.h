#pragma once

#include <stdexcept>
#include <string>

namespace calyx::cli {

// How the program ends. Scripts rely on these numbers; they never change.
enum Exit : int {
    kDone = 0,
    kFindings = 1,      // done, with broken rules, differences or refused lines
    kUsage = 2,         // wrong usage
    kError = 3,         // a numbered error
    kInterrupted = 130  // Ctrl+C
};

// Number of an error that nothing in the program foresees.
inline constexpr int kUnforeseen = 20190;

// Wrong usage that only a command can see. Ends with kUsage and the command's usage line.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Ctrl+C was pressed. Ends with kInterrupted.
struct Interrupted {};

}  // namespace calyx::cli
