#pragma once

#include <charconv>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>

#include "model/language/codec.h"

namespace calyx {

// Values that only scales have.

// A band in display divisions: "3D". Reads "OFF" as zero. Firmware before 3.01 knows no "0D", only "OFF".
template <class T>
inline constexpr Codec<T> kBand{
    ValueKind::Decimal, 16,
    [](std::string& out, const T& value, const Target& target) {
        if (value == 0 && !target.Opens(Since("3.01."))) {
            out += "OFF";
            return;
        }
        AppendSingle(out, static_cast<float>(value));
        out += 'D';
    },
    [](T& value, std::string_view text) {
        text = Trim(text);
        if (text == "OFF") {
            value = 0;
            return Taken::Whole;
        }
        if (text.ends_with('D')) text.remove_suffix(1);
        if constexpr (std::is_floating_point_v<T>) {
            return kSingle.take(value, text);
        } else {
            const auto number = ReadInteger(text);
            using Limits = std::numeric_limits<T>;
            if (!number || number->value < Limits::min() || number->value > Limits::max()) return Taken::Not;
            value = static_cast<T>(number->value);
            return number->whole ? Taken::Whole : Taken::Part;
        }
    },
    "a number of divisions, for example 3D, or OFF"};

namespace detail {

// The shortest text of the number with at most seven decimals, and no zero before the point: ".453592".
// The point stays behind a whole number ("1."), zero is "0".
inline std::string MultiplierText(float value) {
    std::string text;
    AppendSingle(text, value);
    const std::size_t point = text.find('.');
    if (point != std::string::npos && text.size() - point > 8) {
        char digits[64];
        // Rounded from the shortest text: digits that a single float does not hold must not count.
        const double shortest = ReadDecimal(text)->value;
        const auto end =
            std::to_chars(digits, digits + sizeof digits, shortest, std::chars_format::fixed, 7).ptr;
        text.assign(digits, end);
        text.erase(text.find_last_not_of('0') + 1);
    }
    if (text.find('.') == std::string::npos) text += '.';
    if (const std::size_t zero = text.find("0."); zero == 0 || (zero == 1 && text[0] == '-'))
        text.erase(zero, 1);
    return text == "." || text == "-." ? "0" : text;
}

}  // namespace detail

// How many of one unit make one of another. What the line cannot hold is rounded when it is taken.
inline constexpr Codec<float> kMultiplier{
    ValueKind::Decimal, 16,
    [](std::string& out, const float& value, const Target&) { out += detail::MultiplierText(value); },
    [](float& value, std::string_view text) {
        const auto number = ReadSingle(text);
        if (!number) return Taken::Not;
        value = ReadSingle(detail::MultiplierText(number->value))->value;
        return number->whole && value == number->value ? Taken::Whole : Taken::Part;
    },
    "a number with at most seven decimals"};

namespace detail {

// "4/15/2027" as "04152027"; a text of another form as it is.
inline std::string DateDigits(std::string_view text) {
    text = Trim(text);
    const std::size_t first = text.find_first_of("/-."), last = text.find_last_of("/-.");
    if (last == std::string_view::npos || first + 3 < last || text.size() != last + 5)
        return std::string(text);
    std::string digits;
    for (const std::string_view part : {text.substr(0, first), text.substr(first + 1, last - first - 1)}) {
        digits.append(part.size() < 2 ? 2 - part.size() : 0, '0').append(part);
    }
    return digits.append(text.substr(last + 1));
}

}  // namespace detail

// A date of the indicator: month, day and year, together or with "/", "-" or "." between them.
inline constexpr Codec<Date> kIndicatorDate{
    ValueKind::Date, 10, kDate.write,
    [](Date& value, std::string_view text) { return kDate.take(value, detail::DateDigits(text)); }};

}  // namespace calyx
