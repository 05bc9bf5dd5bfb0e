#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace calyx {

// Small operations on 8-bit text. Only blanks (character 32) count as white space in parameter lines.

std::string_view Trim(std::string_view text);
std::string_view TrimRight(std::string_view text);
bool EqualNoCase(std::string_view a, std::string_view b);  // ASCII letters only
constexpr char Lower(char c) {                             // ASCII letters only
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}
constexpr bool StartsNoCase(std::string_view text, std::string_view start) {
    if (text.size() < start.size()) return false;
    for (std::size_t i = 0; i < start.size(); ++i) {
        if (Lower(text[i]) != Lower(start[i])) return false;
    }
    return true;
}
// A hash that is the same for texts that differ in case only. Eight characters a step, the last ones together
// with some before them; bit 5 set folds the letters. Other characters that fold together only collide, the
// comparison of keys is exact. The upper bits are the good ones.
inline std::uint64_t HashNoCase(std::string_view key) {
    constexpr std::uint64_t kFold = 0x2020202020202020ull;
    constexpr std::uint64_t kMix = 0x9E3779B97F4A7C15ull;
    const auto chunk = [&key](std::size_t at) {
        std::uint64_t characters;
        std::memcpy(&characters, key.data() + at, 8);
        return characters | kFold;
    };
    std::uint64_t hash = key.size();
    if (key.size() < 8) {
        for (const char c : key) hash = hash << 8 | static_cast<unsigned char>(c | 0x20);
    } else {
        for (std::size_t at = 0; at + 8 < key.size(); at += 8) {
            hash = (hash ^ chunk(at)) * kMix;
            hash ^= hash >> 32;
        }
        hash ^= chunk(key.size() - 8);
    }
    return hash * kMix;
}

std::string Upper(std::string_view text);                                    // ASCII letters only
std::vector<std::string_view> Split(std::string_view text, char delimiter);  // "" gives one empty piece

// The lines of a text, without their ends. CR LF, LF and CR all end a line; a last line without an end
// counts.
template <class Take>
void ForEachLine(std::string_view text, Take&& take) {
    while (!text.empty()) {
        const std::size_t end = text.find_first_of("\r\n");
        take(text.substr(0, end));
        if (end == std::string_view::npos) return;
        text.remove_prefix(text.substr(end, 2) == "\r\n" ? end + 2 : end + 1);
    }
}

// The number at the start of a text, after blanks. `whole`: nothing but blanks follows it.
struct LeadingInteger {
    std::int32_t value = 0;
    bool whole = false;
};
struct LeadingDecimal {
    double value = 0;
    bool whole = false;
};
std::optional<LeadingInteger> ReadInteger(std::string_view text);  // none: no digit, or beyond 32 bits
std::optional<LeadingDecimal> ReadDecimal(std::string_view text);  // "." is the decimal point
struct LeadingSingle {
    float value = 0;
    bool whole = false;
};
std::optional<LeadingSingle> ReadSingle(std::string_view text);  // none: beyond a single float, too

void AppendInteger(std::string& out, std::int64_t value);
// The shortest decimal form that reads back to the same single float; never an exponent.
void AppendSingle(std::string& out, float value);

// A text field of at most N characters. Longer values are cut. The characters are kept as given;
// Trimmed() is what is written to lines, Padded() fills up with blanks.
template <std::size_t N>
class FixedText {
  public:
    constexpr FixedText() = default;
    constexpr explicit FixedText(std::string_view text) { Assign(text); }

    // False when the text had to be cut. Blanks around it are what goes first.
    constexpr bool Assign(std::string_view text) {
        if (text.size() > N) text = text.substr(0, std::max(text.find_last_not_of(' ') + 1, N));
        while (text.size() > N && text.front() == ' ') text.remove_prefix(1);
        size_ = static_cast<Size>(std::min(text.size(), N));
        std::copy_n(text.begin(), size_, chars_.begin());
        std::fill(chars_.begin() + size_, chars_.end(), '\0');
        return text.size() <= N;
    }
    constexpr std::string_view View() const { return {chars_.data(), size_}; }
    std::string_view Trimmed() const { return Trim(View()); }
    std::string Padded() const {
        std::string padded(View());
        padded.resize(N, ' ');
        return padded;
    }
    // As it is written: trimmed.
    friend bool operator==(const FixedText& a, const FixedText& b) { return a.Trimmed() == b.Trimmed(); }

  private:
    static_assert(N > 0 && N < 65536);
    using Size = std::conditional_t<(N < 256), std::uint8_t, std::uint16_t>;
    std::array<char, N> chars_{};
    Size size_ = 0;
};

}  // namespace calyx
