#pragma once

#include <functional>
#include <string>
#include <vector>

namespace calyx::bench {

struct Outcome {
    double microseconds = 0;
    long peakKilobytes = 0;  // most memory resident at once
};

// Does the work in a child process and times it there. Throws std::runtime_error when the child fails.
Outcome InChild(const std::function<void()>& work);

// Runs a program to its end, its output and messages thrown away; the time is from before the start to the
// end. Throws std::runtime_error unless it exits with 0.
Outcome RunProgram(const std::vector<std::string>& command);

}  // namespace calyx::bench
