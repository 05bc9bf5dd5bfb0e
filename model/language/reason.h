#pragma once

#include <string>
#include <string_view>
#include <system_error>

namespace calyx {

// What the system says about a failure, fit to stand inside a sentence of the program. Some systems end it
// with a full stop and a line end, break it into lines, or have no words for a number.

std::string Reason(const std::error_code& error);
inline std::string Reason(const std::system_error& failure) {
    return Reason(failure.code());
}
// The same for words that stand alone, such as what() of a failure. Dots at their end go.
std::string ReasonIn(std::string_view words);

}  // namespace calyx
