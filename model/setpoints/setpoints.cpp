#include "model/setpoints/setpoints.h"

#include <algorithm>
#include <array>
#include <optional>

#include "model/language/error.h"
#include "model/setpoints/setpoint_checks.h"

namespace calyx {

namespace {

constexpr std::string_view kPrefix = "SP.";

// The setpoint of a key "SP.VALUE#12"; 0: none.
int NumberOf(std::string_view key) {
    const std::size_t hash = key.rfind('#');
    if (hash == std::string_view::npos || !StartsNoCase(key, kPrefix)) return 0;
    const std::string_view digits = key.substr(hash + 1);
    // Only the plain form is a key: neither "#+3" nor "#03".
    if (digits.empty() || digits.size() > 3 || digits.front() < '1' || digits.front() > '9') return 0;
    const auto number = ReadInteger(digits);
    return number && number->whole && !digits.ends_with(' ') && number->value <= kSetpoints ? number->value
                                                                                            : 0;
}

struct LinesInFile {
    int count = 0;
    const Dictionary::Entry* first = nullptr;
};

LinesInFile LinesOf(int number, const Dictionary& lines) {
    LinesInFile own;
    for (const Dictionary::Entry& entry : lines.GroupOf(kPrefix, "#" + std::to_string(number))) {
        if (own.count++ == 0) own.first = &entry;
    }
    return own;
}

bool ChangesKey(const std::vector<Change>& changes, std::string_view key) {
    return std::any_of(changes.begin(), changes.end(),
                       [key](const Change& change) { return EqualNoCase(change.key, key); });
}

}  // namespace

CSetpoints::CSetpoints(const ModelContext& context) : Section(context), lists_(context) {
    setpoints_.reserve(kSetpoints);
    for (int n = 1; n <= kSetpoints; ++n) {
        CSetpoint& setpoint = setpoints_.emplace_back(context);
        n == 1 ? setpoint.Initialize(n) : setpoint.InitializeLike(setpoints_.front(), n);
    }
}

std::vector<Item*> CSetpoints::Items() {
    std::vector<calyx::Item*> items;
    items.reserve(setpoints_.size());
    for (CSetpoint& setpoint : setpoints_) items.push_back(&setpoint.Parameters());
    return items;
}

// All fresh setpoints are alike, so that one is made and the others are given its fields.
void CSetpoints::Initialize() {
    auto& first = setpoints_.front().Parameters();
    first.Initialize();
    for (CSetpoint& setpoint : setpoints_) {
        setpoint.Parameters().fields = first.fields;
        setpoint.Parameters().MarkSaved();
    }
}

// Most setpoints are off and have one line that says so; those that were so before are not asked for all the
// others.
void CSetpoints::RestoreState(Dictionary& lines, ReadReport& report) {
    report.Enter(std::string(Name()));
    auto fresh = setpoints_.front().Parameters();
    fresh.ReloadDefaults();
    for (CSetpoint& setpoint : setpoints_) {
        const auto [count, first] = LinesOf(setpoint.Number(), lines);
        const bool offAlone = count == 1 && first->value == CommandOf(SetpointKind::Off) &&
                              EqualNoCase(first->key, SetpointKey("KIND", setpoint.Number()));
        const bool isNew = setpoint.Values() == fresh.fields && !setpoint.IsDirty();
        if (!isNew || (count > 0 && !offAlone)) {
            setpoint.RestoreState(lines, report);
        } else if (offAlone) {
            lines.MarkAsked(*first);
        }
    }
}

bool CSetpoints::Owns(std::string_view key) const {
    const int number = NumberOf(key);
    return number != 0 && Item(number).Parameters().Find(key).has_value();
}

const CSetpoint& CSetpoints::Item(int number) const {
    if (number < 1 || number > kSetpoints) NoSuchSetpoint(std::to_string(number));
    return setpoints_[static_cast<std::size_t>(number) - 1];
}

const CSetpoint& CSetpoints::Item(std::string_view key) const {
    // "K5" names what "SP.KIND#5" belongs to.
    const int number = StartsNoCase(key, "K") ? NumberOf("SP.#" + std::string(key.substr(1))) : 0;
    if (number == 0) NoSuchSetpoint(key);
    return Item(number);
}

CSetpoint& CSetpoints::Item(int number) {
    return const_cast<CSetpoint&>(std::as_const(*this).Item(number));
}

CSetpoint& CSetpoints::Item(std::string_view key) {
    return const_cast<CSetpoint&>(std::as_const(*this).Item(key));
}

void CSetpoints::NoSuchSetpoint(std::string_view key) const {
    throw Error(code::kOutOfRange, "Calyx.CSetpoints.Item",
                Context().texts.Format(code::kOutOfRange, {key, "1 to 100"}));
}

std::string CSetpoints::GetPrintOutput(bool offToo) const {
    std::string listing;
    for (const CSetpoint& setpoint : setpoints_) {
        if (offToo || !setpoint.Values().IsOff()) listing += setpoint.GetPrintOutput();
    }
    return listing.empty() ? listing : Context().texts.Text(Title()) + "\r\n" + listing;
}

std::string CSetpoints::GetIWriteImportDef() const {
    std::string text = "-- Setpoint Aliases\r\n";
    for (const CSetpoint& setpoint : setpoints_) text += setpoint.GetIWriteImportDef();
    return text;
}

void CSetpoints::Prepare(std::vector<Change>& changes, Check check, const ValueOf&) {
    if (check == Check::None) return;
    const std::size_t given = changes.size();
    for (std::size_t i = 0; i < given; ++i) {
        const int number = NumberOf(changes[i].key);
        if (number == 0 || !EqualNoCase(changes[i].key, SetpointKey("KIND", number))) continue;
        auto& item = Item(number).Parameters();
        // The kind goes in before the others are looked at: it decides their lists.
        const std::string word = changes[i].after.value_or("OFF");
        if (!IsKindCommand(word)) continue;
        item.fields.kind = static_cast<SetpointKind>(FindKindByCommand(word));
        const auto bring = [&](std::string_view stem, std::string value) {
            std::string key = SetpointKey(stem, number);
            if (!ChangesKey(changes, key))
                changes.push_back({std::move(key), std::nullopt, std::move(value)});
        };
        if (item.fields.IsOff() && !item.fields.alias.Trimmed().empty()) bring("ALIAS", "");
        if (check != Check::Strict) continue;
        // A trip that is named with it and is no band is refused then.
        if (item.fields.kind == SetpointKind::PulseRate && !item.fields.TripsInBand())
            item.fields.trip.Assign("INBAND");
    }
}

void CSetpoints::AddBrokenRules(CBrokenRules& rules) const {
    CheckSetpoints(*this, Context().texts, rules);
}

}  // namespace calyx
