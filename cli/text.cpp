#include "cli/text.h"

#include <ctime>

#include "model/language/text.h"

namespace calyx::cli {

std::string WithLineFeeds(std::string_view text) {
    std::string lines;
    lines.reserve(text.size());
    ForEachLine(text, [&](std::string_view line) { lines.append(line).append(1, '\n'); });
    return lines;
}

bool FitsPattern(std::string_view key, std::string_view pattern) {
    // On a mismatch the last "*" takes one more character.
    std::size_t k = 0, p = 0, star = std::string_view::npos, retry = 0;
    while (k < key.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            retry = k;
        } else if (p < pattern.size() &&
                   (pattern[p] == '?' || EqualNoCase(key.substr(k, 1), pattern.substr(p, 1)))) {
            ++k;
            ++p;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            k = ++retry;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

std::string LocalTime(const char* format) {
    const std::time_t now = std::time(nullptr);
    char text[64];
    return {text, std::strftime(text, sizeof(text), format, std::localtime(&now))};
}

}  // namespace calyx::cli
