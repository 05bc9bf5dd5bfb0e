#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace calyx {

// A time within a day, or a duration of less than a day.
struct DayTime {
    std::int32_t seconds = 0;  // 0 to 86399
    friend bool operator==(DayTime, DayTime) = default;
};

enum class DayTimeForm : std::uint8_t {
    HourMinute,        // "HHMM"
    HourMinuteSecond,  // "HHMMSS"
};

// Digits of that form, of which leading zeros may be missing: "930". Or with ":" between hours, minutes and
// seconds, of which the last may be missing: "9:30", "18:30:00". Where the form has no seconds they are read
// as well, of five digits and more. Nothing for a text that is no such time.
std::optional<DayTime> ReadDayTime(std::string_view text, DayTimeForm form);
// `between` stands between the parts: "" as in a line, ":" as shown to people. "HHMM" has no room for
// seconds: they are left out.
void AppendDayTime(std::string& out, DayTime time, DayTimeForm form, std::string_view between = {});

}  // namespace calyx
