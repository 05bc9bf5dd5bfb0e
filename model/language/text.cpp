#include "model/language/text.h"

#include <charconv>
#include <cmath>

namespace calyx {

namespace {

std::string_view SkipBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text;
}

// from_chars takes "-5" but not "+5".
std::string_view SkipPlus(std::string_view text) {
    const bool plus = text.size() > 1 && text[0] == '+' && text[1] != '-';
    return plus ? text.substr(1) : text;
}

// A number of a few digits and nothing else, as most are: without the cost of reading any number.
std::optional<int> FewDigits(std::string_view text) {
    if (text.empty() || text.size() > 6) return std::nullopt;
    int value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') return std::nullopt;
        value = value * 10 + (c - '0');
    }
    return value;
}

template <class Read>
std::optional<Read> ReadFloating(std::string_view text) {
    const std::string_view number = SkipPlus(SkipBlanks(text));
    Read read;
    if (const auto digits = FewDigits(number)) {
        read.value = static_cast<decltype(read.value)>(*digits);
        read.whole = true;
        return read;
    }
    const auto [end, failure] =
        std::from_chars(number.data(), number.data() + number.size(), read.value, std::chars_format::fixed);
    if (failure != std::errc{} || !std::isfinite(read.value)) return std::nullopt;
    read.whole = Trim(number.substr(static_cast<std::size_t>(end - number.data()))).empty();
    return read;
}

}  // namespace

std::string_view TrimRight(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string_view Trim(std::string_view text) {
    return SkipBlanks(TrimRight(text));
}

bool EqualNoCase(std::string_view a, std::string_view b) {
    // Keys are nearly always spelt alike.
    if (a.size() != b.size()) return false;
    if (a == b) return true;
    return std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return Lower(x) == Lower(y); });
}

std::string Upper(std::string_view text) {
    std::string upper(text);
    for (char& c : upper) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - ('a' - 'A'));
    }
    return upper;
}

std::vector<std::string_view> Split(std::string_view text, char delimiter) {
    std::vector<std::string_view> pieces;
    pieces.reserve(static_cast<std::size_t>(std::count(text.begin(), text.end(), delimiter)) + 1);
    while (true) {
        const std::size_t end = text.find(delimiter);
        pieces.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return pieces;
        text.remove_prefix(end + 1);
    }
}

std::optional<LeadingInteger> ReadInteger(std::string_view text) {
    const std::string_view number = SkipPlus(SkipBlanks(text));
    LeadingInteger read;
    if (const auto digits = FewDigits(number)) return LeadingInteger{*digits, true};
    const auto [end, failure] = std::from_chars(number.data(), number.data() + number.size(), read.value);
    if (failure != std::errc{}) return std::nullopt;
    read.whole = Trim(number.substr(static_cast<std::size_t>(end - number.data()))).empty();
    return read;
}

std::optional<LeadingDecimal> ReadDecimal(std::string_view text) {
    return ReadFloating<LeadingDecimal>(text);
}

std::optional<LeadingSingle> ReadSingle(std::string_view text) {
    return ReadFloating<LeadingSingle>(text);
}

void AppendInteger(std::string& out, std::int64_t value) {
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    out.append(digits, end);
}

void AppendSingle(std::string& out, float value) {
    char digits[64];
    const auto end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed).ptr;
    out.append(digits, end);
}

}  // namespace calyx
