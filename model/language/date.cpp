#include "model/language/date.h"

#include <algorithm>
#include <chrono>

#include "model/language/text.h"

namespace calyx {

std::optional<Date> ReadDate(std::string_view text) {
    text = Trim(text);
    if (text.size() != 8 ||
        !std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; })) {
        return std::nullopt;
    }
    const auto number = [&](std::size_t at, std::size_t size) {
        return ReadInteger(text.substr(at, size))->value;
    };
    const std::chrono::year_month_day day{std::chrono::year(number(4, 4)),
                                          std::chrono::month(static_cast<unsigned>(number(0, 2))),
                                          std::chrono::day(static_cast<unsigned>(number(2, 2)))};
    if (!day.ok() || number(4, 4) == 0) return std::nullopt;
    return Date{static_cast<std::int16_t>(number(4, 4)), static_cast<std::int8_t>(number(0, 2)),
                static_cast<std::int8_t>(number(2, 2))};
}

void AppendDate(std::string& out, Date date) {
    if (date.Empty()) return;
    const auto padded = [&](int value, std::size_t width) {
        const std::string digits = std::to_string(value);
        out.append(width - digits.size(), '0').append(digits);
    };
    padded(date.month, 2);
    padded(date.day, 2);
    padded(date.year, 4);
}

}  // namespace calyx
