#pragma once

#include <string>
#include <string_view>

namespace calyx::sim {

// Text is 8-bit and only the letters A to Z have case, whatever the locale.
std::string UpperCase(std::string_view text);
bool EqualsNoCase(std::string_view a, std::string_view b);
bool BeginsNoCase(std::string_view text, std::string_view beginning);

// Whether the whole text fits the pattern, without regard to case: "*" stands for any characters, none
// included, "?" for exactly one.
bool FitsPattern(std::string_view text, std::string_view pattern);

}  // namespace calyx::sim
