#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/language/date.h"
#include "model/language/text.h"
#include "model/language/versions.h"

namespace calyx {

// What became of a value that was read.
enum class Taken : std::uint8_t {
    Whole,  // understood
    Part,   // a number was read from its start, the rest was passed over
    Cut,    // longer than the field; the start is held
    Not,    // not understood; the field is as it was, a switch takes the side that its codec names
};

// The kind of value decides the editor's control and the words of the reference.
enum class ValueKind : std::uint8_t { Text, Integer, Decimal, Switch, Date };

// How one kind of value reads and writes. The target decides where an older firmware wants another form.
template <class T>
struct Codec {
    ValueKind kind;
    std::uint16_t width;  // most characters of the value; 0: no limit
    void (*write)(std::string& out, const T& value, const Target& target);
    Taken (*take)(T& value, std::string_view text);
    std::string_view words = {};  // what is expected, where the kind alone does not say it
};

// Text in a field of N characters, written trimmed.
template <std::size_t N>
inline constexpr Codec<FixedText<N>> kFixedText{
    ValueKind::Text, N,
    [](std::string& out, const FixedText<N>& value, const Target&) { out += value.Trimmed(); },
    [](FixedText<N>& value, std::string_view text) {
        return value.Assign(text) ? Taken::Whole : Taken::Cut;
    }};
inline constexpr const auto& kFixed8 = kFixedText<8>;
inline constexpr const auto& kFixed10 = kFixedText<10>;

// Text of any length, written as it stands, blanks included.
inline constexpr Codec<std::string> kFreeText{
    ValueKind::Text, 0, [](std::string& out, const std::string& value, const Target&) { out += value; },
    [](std::string& value, std::string_view text) {
        value = text;
        return Taken::Whole;
    }};

inline constexpr Codec<std::int32_t> kInteger{
    ValueKind::Integer, 11,
    [](std::string& out, const std::int32_t& value, const Target&) { AppendInteger(out, value); },
    [](std::int32_t& value, std::string_view text) {
        const auto number = ReadInteger(text);
        if (!number) return Taken::Not;
        value = number->value;
        return number->whole ? Taken::Whole : Taken::Part;
    }};

inline constexpr Codec<float> kSingle{
    ValueKind::Decimal, 16,
    [](std::string& out, const float& value, const Target&) { AppendSingle(out, value); },
    [](float& value, std::string_view text) {
        const auto number = ReadSingle(text);
        if (!number) return Taken::Not;
        value = number->value;
        return number->whole ? Taken::Whole : Taken::Part;
    }};

// A number with a sign or unit behind it: "1.9%", "3D". The sign may be missing on reading.
template <char Sign>
inline constexpr Codec<float> kSingleWith{ValueKind::Decimal, 16,
                                          [](std::string& out, const float& value, const Target&) {
                                              AppendSingle(out, value);
                                              out += Sign;
                                          },
                                          [](float& value, std::string_view text) {
                                              text = Trim(text);
                                              if (text.ends_with(Sign)) text.remove_suffix(1);
                                              return kSingle.take(value, text);
                                          }};

// On is exactly `On`; the second word is off, and so is anything else, which is reported.
template <const auto& On, const auto& Off, const auto& Both>
inline constexpr Codec<bool> kSwitchWords{
    ValueKind::Switch, 8, [](std::string& out, const bool& value, const Target&) { out += value ? On : Off; },
    [](bool& value, std::string_view text) {
        text = Trim(text);
        value = text == std::string_view(On);
        return value || text == std::string_view(Off) ? Taken::Whole : Taken::Not;
    },
    Both};
namespace word {
inline constexpr char kOn[] = "ON", kOff[] = "OFF", kOnOff[] = "ON or OFF";
inline constexpr char kTrue[] = "True", kFalse[] = "False", kTrueOrFalse[] = "True or False";
}  // namespace word
inline constexpr const auto& kExactlyOn = kSwitchWords<word::kOn, word::kOff, word::kOnOff>;
inline constexpr const auto& kTrueFalse = kSwitchWords<word::kTrue, word::kFalse, word::kTrueOrFalse>;

// Off is exactly "OFF", in any case; anything else is on.
inline constexpr Codec<bool> kUnlessOff{
    ValueKind::Switch, 3,
    [](std::string& out, const bool& value, const Target&) { out += value ? "ON" : "OFF"; },
    [](bool& value, std::string_view text) {
        value = !EqualNoCase(Trim(text), "OFF");
        return !value || Trim(text) == "ON" ? Taken::Whole : Taken::Not;
    }};

// A number behind a word: "SCALE3", "SLOT4", "BIT1". The bare number is read too.
template <const auto& Prefix>
inline constexpr Codec<std::int32_t> kPrefixed{
    ValueKind::Integer, 0,
    [](std::string& out, const std::int32_t& value, const Target&) {
        out += Prefix;
        AppendInteger(out, value);
    },
    [](std::int32_t& value, std::string_view text) {
        text = Trim(text);
        if (text.starts_with(Prefix)) text.remove_prefix(std::string_view(Prefix).size());
        return kInteger.take(value, text);
    }};

// "MMDDYYYY"; an empty value is no date.
inline constexpr Codec<Date> kDate{
    ValueKind::Date, 8, [](std::string& out, const Date& value, const Target&) { AppendDate(out, value); },
    [](Date& value, std::string_view text) {
        const auto date = ReadDate(text);
        if (!date && !Trim(text).empty()) return Taken::Not;
        value = date.value_or(Date{});
        return Taken::Whole;
    }};

}  // namespace calyx
