#pragma once

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>

#include "model/language/codec.h"
#include "model/setpoints/day_time.h"
#include "model/setpoints/setpoint_kinds.h"

namespace calyx {

// The shortest decimal form that reads back to the same number; never an exponent, always ".".
inline void AppendNumber(std::string& out, double value) {
    char digits[400];  // the greatest number has 309 digits
    const auto end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed).ptr;
    out.append(digits, end);
}

// Wider than a single float, so that a value with many digits is saved as it was read.
inline constexpr Codec<double> kNumber{
    ValueKind::Decimal, 16,
    [](std::string& out, const double& value, const Target&) { AppendNumber(out, value); },
    [](double& value, std::string_view text) {
        const auto number = ReadDecimal(text);
        if (!number) return Taken::Not;
        value = number->value;
        return number->whole ? Taken::Whole : Taken::Part;
    }};

inline constexpr Codec<SetpointKind> kKindWord{
    ValueKind::Text, 0,
    [](std::string& out, const SetpointKind& kind, const Target&) { out += CommandOf(kind); },
    [](SetpointKind& kind, std::string_view text) {
        if (!IsKindCommand(text)) return Taken::Not;
        kind = static_cast<SetpointKind>(FindKindByCommand(text));
        return Taken::Whole;
    }};

enum class NoneWord : std::uint8_t { Unknown, Read, Written };  // what "NONE" is to a number behind a word

// The number behind a word. The length alone decides, on purpose: a value no longer than the word is a
// bare number, and of a longer one the characters of the word are passed over, whatever they are. What
// was passed over and is not the word is told.
inline Taken TakeByLength(std::int32_t& value, std::string_view text, std::string_view word, NoneWord none) {
    text = Trim(text);
    if (none != NoneWord::Unknown && text == "NONE") {
        value = 0;
        return Taken::Whole;
    }
    const bool bare = text.size() <= word.size();
    const Taken taken = kInteger.take(value, bare ? text : text.substr(word.size()));
    // Where 0 is "NONE" there is no "SLOT0" to be written again.
    const bool odd = !bare && (!StartsNoCase(text, word) || (none == NoneWord::Written && value == 0));
    return taken == Taken::Whole && odd ? Taken::Part : taken;
}

template <const auto& Word, NoneWord None>
inline constexpr Codec<std::int32_t> kBehindWord{
    ValueKind::Integer, 0,
    [](std::string& out, const std::int32_t& value, const Target&) {
        if (None == NoneWord::Written && value == 0) {
            out += "NONE";
        } else {
            out += Word;
            AppendInteger(out, value);
        }
    },
    [](std::int32_t& value, std::string_view text) { return TakeByLength(value, text, Word, None); }};

template <DayTimeForm Form, const auto& Expected>
inline constexpr Codec<DayTime> kDayTime{
    ValueKind::Text, 8,  // "18:30:00"
    [](std::string& out, const DayTime& time, const Target&) { AppendDayTime(out, time, Form); },
    [](DayTime& time, std::string_view text) {
        const auto read = ReadDayTime(text, Form);
        if (!read) return Taken::Not;
        time = *read;
        const std::int32_t lost = Form == DayTimeForm::HourMinute ? time.seconds % 60 : 0;
        time.seconds -= lost;
        return lost == 0 ? Taken::Whole : Taken::Part;
    },
    Expected};

namespace word {
inline constexpr char kScale[] = "SCALE", kPulse[] = "PULSE", kSlot[] = "SLOT", kBit[] = "BIT";
inline constexpr char kHourMinute[] = "a time as HHMM, for example 1830 or 18:30";
inline constexpr char kHourMinuteSecond[] = "a duration as HHMMSS, for example 000130 or 00:01:30";
}  // namespace word

inline constexpr const auto& kOutputSlot = kBehindWord<word::kSlot, NoneWord::Written>;  // "NONE", "SLOT2"
inline constexpr const auto& kInputSlot = kBehindWord<word::kSlot, NoneWord::Read>;      // "SLOT0", "SLOT2"
inline constexpr const auto& kOutputBit = kBehindWord<word::kBit, NoneWord::Read>;       // "BIT0", "BIT3"
inline constexpr const auto& kWeigherBit = kBehindWord<word::kBit, NoneWord::Written>;   // "NONE", "BIT3"
inline constexpr const auto& kTimeOfDay = kDayTime<DayTimeForm::HourMinute, word::kHourMinute>;
inline constexpr const auto& kDuration = kDayTime<DayTimeForm::HourMinuteSecond, word::kHourMinuteSecond>;

}  // namespace calyx
