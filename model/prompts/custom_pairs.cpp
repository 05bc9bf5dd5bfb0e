#include "model/prompts/custom_pairs.h"

#include <algorithm>

#include "model/language/text.h"

namespace calyx {

namespace {

constexpr std::string_view kPlace = "CUSTOM#", kValue = "CUSTOM.VALUE#";
constexpr int kGroup = 6303;
constexpr RowInfo kPlaceRow{
    .stem = kPlace,
    .initial = "",
    .width = CustomPairs::kLongestName,
    .words = "a word of capital letters, digits and \"_\" that no other parameter has",
    .more = {.label = 6301, .group = kGroup, .help = 6311}};
constexpr RowInfo kValueRow{.stem = kValue,
                            .initial = "",
                            .words = "a value for a place that has a name",
                            .more = {.label = 6302, .group = kGroup, .help = 6312, .use = Use::State}};

bool IsPlace(std::size_t row) {
    return row % 2 == 0;
}

// The place behind the start of a key: "CUSTOM#7" is place 6.
std::optional<std::size_t> PlaceBehind(std::string_view start, std::string_view key) {
    if (!StartsNoCase(key, start)) return std::nullopt;
    const std::string_view digits = key.substr(start.size());
    const auto number = ReadInteger(digits);
    const bool exact = number && number->value >= 1 &&
                       number->value <= static_cast<int>(CustomPairs::kCount) &&
                       digits == std::to_string(number->value);
    if (!exact) return std::nullopt;
    return static_cast<std::size_t>(number->value - 1);
}

void AppendLine(std::string& out, std::string_view key, std::string_view value) {
    out.append(key).append(1, '=').append(value).append("\r\n");
}

}  // namespace

bool CustomPairs::IsName(std::string_view name) {
    const auto isLetter = [](char c) { return c >= 'A' && c <= 'Z'; };
    const auto fits = [&](char c) { return isLetter(c) || (c >= '0' && c <= '9') || c == '_'; };
    return !name.empty() && name.size() <= kLongestName && isLetter(name.front()) &&
           std::all_of(name.begin(), name.end(), fits);
}

std::string CustomPairs::PlaceKey(std::size_t place) {
    return std::string(kPlace) + std::to_string(place + 1);
}

std::string CustomPairs::ValueKey(std::size_t place) {
    return std::string(kValue) + std::to_string(place + 1);
}

std::optional<std::size_t> CustomPairs::PlaceOf(std::string_view key) {
    return PlaceBehind(kPlace, key);
}

std::optional<std::size_t> CustomPairs::Named(std::string_view name) const {
    const auto found = std::find_if(pairs_.begin(), pairs_.end(), [name](const Pair& pair) {
        return !pair.name.empty() && EqualNoCase(pair.name, name);
    });
    if (found == pairs_.end()) return std::nullopt;
    return static_cast<std::size_t>(found - pairs_.begin());
}

const RowInfo& CustomPairs::Info(std::size_t row) const {
    return IsPlace(row) ? kPlaceRow : kValueRow;
}

std::string CustomPairs::Key(std::size_t row) const {
    return IsPlace(row) ? PlaceKey(row / 2) : ValueKey(row / 2);
}

std::string CustomPairs::Text(std::size_t row, const Target&) const {
    return IsPlace(row) ? pairs_[row / 2].name : pairs_[row / 2].value;
}

Taken CustomPairs::Take(std::size_t row, std::string_view text) {
    Pair& pair = pairs_[row / 2];
    if (!IsPlace(row)) {
        if (pair.name.empty() && !text.empty()) return Taken::Not;
        pair.value = text;
        return Taken::Whole;
    }
    text = Trim(text);
    const bool barred = std::find(barred_.begin(), barred_.end(), text) != barred_.end();
    if (!text.empty() && (barred || !IsName(text))) return Taken::Not;
    pair.name = text;
    if (text.empty()) pair.value.clear();
    return Taken::Whole;
}

std::optional<std::size_t> CustomPairs::Find(std::string_view key) const {
    if (const auto place = PlaceBehind(kPlace, key)) return *place * 2;
    if (const auto place = PlaceBehind(kValue, key)) return *place * 2 + 1;
    if (const auto place = Named(key)) return *place * 2 + 1;
    return std::nullopt;
}

void CustomPairs::EachLine(const std::function<void(std::size_t, Gate, bool)>& visit) const {
    // No version is sent the places. A free one is open to be named, though it writes nothing until then.
    for (std::size_t row = 0; row < RowCount(); ++row)
        visit(row, IsPlace(row) ? Gate{0} : Gate{}, IsPlace(row) || !pairs_[row / 2].name.empty());
}

void CustomPairs::Initialize() {
    pairs_ = {};
    barred_.clear();
    MarkSaved();
}

void CustomPairs::Restore(Dictionary& lines, ReadReport& report) {
    Initialize();
    for (std::size_t place = 0; place < kCount; ++place) {
        const Dictionary::Entry* entry = lines.Find(PlaceKey(place));
        if (entry == nullptr) continue;
        const std::string_view name = Trim(entry->value);
        if (name.empty()) {
            detail::ReportUnwritten(report, *entry);
        } else if (Named(name) || Take(place * 2, name) != Taken::Whole) {
            detail::Report(report, *entry, Taken::Not, false, {});
        } else {
            pairs_[place].value = lines.FindParameter(name, {});
        }
    }
    MarkSaved();
}

void CustomPairs::Append(std::string& out, const Target& target, std::optional<LinePart> part) const {
    if (part && *part != LinePart::Parameters) return;
    for (std::size_t place = 0; target.all && place < kCount; ++place) {
        if (!pairs_[place].name.empty()) AppendLine(out, PlaceKey(place), pairs_[place].name);
    }
    for (const Pair& pair : pairs_) {
        if (!pair.name.empty()) AppendLine(out, pair.name, pair.value);
    }
}

}  // namespace calyx
