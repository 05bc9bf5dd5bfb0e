#include "sim/text.h"

#include <algorithm>

namespace calyx::sim {

namespace {

char Upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool SameLetter(char a, char b) {
    return Upper(a) == Upper(b);
}

}  // namespace

std::string UpperCase(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), Upper);
    return upper;
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), SameLetter);
}

bool BeginsNoCase(std::string_view text, std::string_view beginning) {
    return EqualsNoCase(text.substr(0, beginning.size()), beginning);
}

bool FitsPattern(std::string_view text, std::string_view pattern) {
    constexpr auto none = std::string_view::npos;
    std::size_t t = 0;
    std::size_t p = 0;
    std::size_t star = none;  // the last "*" met, and the text that it covers so far
    std::size_t covered = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            covered = t;
        } else if (p < pattern.size() && (pattern[p] == '?' || SameLetter(pattern[p], text[t]))) {
            ++p;
            ++t;
        } else if (star != none) {
            p = star + 1;
            t = ++covered;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == none;
}

}  // namespace calyx::sim
