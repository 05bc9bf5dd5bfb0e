#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace calyx {

// A calendar date, or none (all zero). Years 1 to 9999.
struct Date {
    std::int16_t year = 0;
    std::int8_t month = 0;
    std::int8_t day = 0;

    bool Empty() const { return year == 0; }
    friend bool operator==(const Date&, const Date&) = default;
};

// "MMDDYYYY": "04152027" is 15 April 2027. Nothing for a text that is no such date.
std::optional<Date> ReadDate(std::string_view text);
// The same form back; nothing is appended for an empty date.
void AppendDate(std::string& out, Date date);

}  // namespace calyx
