#pragma once

#include <atomic>
#include <functional>
#include <iosfwd>
#include <system_error>

namespace calyx::cli {

// The ends of the program: what main takes from the system and a test from its own streams.
struct Console {
    std::ostream& out;  // results, bytes as they are
    std::ostream& err;  // messages and progress
    std::istream& in;
    bool errIsTerminal = false;  // a progress bar is drawn on a terminal only
    bool inIsTerminal = false;   // questions are asked on a terminal only

    // Given the flag that Ctrl+C shall set; given nothing when there is no longer anything to stop.
    std::function<void(std::atomic<bool>*)> watchInterrupt = [](std::atomic<bool>*) {};
    // Why `out` has failed, once it has.
    std::function<std::error_code()> outFailure = [] { return std::make_error_code(std::errc::io_error); };
};

}  // namespace calyx::cli
