#pragma once

#include <string>
#include <string_view>

namespace calyx::cli {

// Results have lines ended by LF on every platform.
std::string WithLineFeeds(std::string_view text);

// Whether a key fits a pattern: "*" stands for any characters, "?" for one; case does not count.
bool FitsPattern(std::string_view key, std::string_view pattern);

// The time now at this place, as strftime has it: "%Y-%m-%d %H:%M".
std::string LocalTime(const char* format);

}  // namespace calyx::cli
