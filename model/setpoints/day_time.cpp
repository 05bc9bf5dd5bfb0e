#include "model/setpoints/day_time.h"

#include "model/language/text.h"

namespace calyx {

namespace {

void AppendTwoDigits(std::string& out, std::int32_t number) {
    out += static_cast<char>('0' + number / 10);
    out += static_cast<char>('0' + number % 10);
}

}  // namespace

std::optional<DayTime> ReadDayTime(std::string_view text, DayTimeForm form) {
    const std::size_t most = form == DayTimeForm::HourMinute ? 4 : 6;
    std::size_t digits = 0;
    std::int32_t number = 0;
    for (const char c : Trim(text)) {
        if (c < '0' || c > '9' || ++digits > most) return std::nullopt;
        number = number * 10 + (c - '0');
    }
    if (digits == 0) return std::nullopt;
    if (form == DayTimeForm::HourMinute) number *= 100;
    const std::int32_t hour = number / 10000, minute = number / 100 % 100, second = number % 100;
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
