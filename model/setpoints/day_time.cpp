#include "model/setpoints/day_time.h"

#include "model/language/text.h"

namespace calyx {

namespace {

void AppendTwoDigits(std::string& out, std::int32_t number) {
    out += static_cast<char>('0' + number / 10);
    out += static_cast<char>('0' + number % 10);
}

// Up to `most` digits and nothing else.
std::optional<std::int32_t> ReadDigits(std::string_view text, std::size_t most) {
    if (text.empty() || text.size() > most) return std::nullopt;
    std::int32_t number = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') return std::nullopt;
        number = number * 10 + (c - '0');
    }
    return number;
}

// Hours, minutes and seconds as one number, hhmmss.
std::optional<std::int32_t> ReadParts(std::string_view text) {
    const auto parts = Split(text, ':');
    if (parts.size() > 3) return std::nullopt;
    std::int32_t number = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        const auto part = i < parts.size() ? ReadDigits(parts[i], 2) : std::optional<std::int32_t>(0);
        if (!part) return std::nullopt;
        number = number * 100 + *part;
    }
    return number;
}

}  // namespace

std::optional<DayTime> ReadDayTime(std::string_view text, DayTimeForm form) {
    constexpr std::size_t kToMinutes = 4, kToSeconds = 6;
    text = Trim(text);
    std::optional<std::int32_t> number;
    if (text.find(':') != std::string_view::npos) {
        number = ReadParts(text);
    } else {
        number = ReadDigits(text, kToSeconds);
        if (number && form == DayTimeForm::HourMinute && text.size() <= kToMinutes) *number *= 100;
    }
    if (!number) return std::nullopt;
    const std::int32_t hour = *number / 10000, minute = *number / 100 % 100, second = *number % 100;
    if (hour > 23 || minute > 59 || second > 59) return std::nullopt;
    return DayTime{(hour * 60 + minute) * 60 + second};
}

void AppendDayTime(std::string& out, DayTime time, DayTimeForm form, std::string_view between) {
    AppendTwoDigits(out, time.seconds / 3600);
    out += between;
    AppendTwoDigits(out, time.seconds / 60 % 60);
    if (form == DayTimeForm::HourMinute) return;
    out += between;
    AppendTwoDigits(out, time.seconds % 60);
}

}  // namespace calyx
