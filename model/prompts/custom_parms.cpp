#include "model/prompts/custom_parms.h"

#include <algorithm>
#include <array>
#include <utility>

#include "model/language/text.h"

namespace calyx {

namespace {

constexpr int kOfAnother = 42102;  // {1} name

bool Contains(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

// Of several names for one place the last counts, also when it is refused.
void KeepLastOfEachPlace(std::vector<Change>& changes) {
    std::array<bool, CustomPairs::kCount> seen{};
    const auto isEarlier = [&seen](const Change& change) {
        const auto place = CustomPairs::PlaceOf(change.key);
        return place && std::exchange(seen[*place], true);
    };
    const auto kept = std::remove_if(changes.rbegin(), changes.rend(), isEarlier);
    changes.erase(changes.begin(), kept.base());
}

}  // namespace

std::string CCustomParms::GetPrintOutput() const {
    std::string listing;
    for (const KeyValue& pair : Pairs())
        listing.append("  ").append(pair.key).append(": ").append(pair.value).append("\r\n");
    return listing.empty() ? listing : Context().texts.Text(Title()) + "\r\n" + listing;
}

std::vector<KeyValue> CCustomParms::Pairs() const {
    std::vector<KeyValue> pairs;
    for (std::size_t place = 0; place < CustomPairs::kCount; ++place) {
        if (!pairs_.Name(place).empty()) pairs.push_back({pairs_.Name(place), pairs_.Value(place)});
    }
    return pairs;
}

void CCustomParms::DropOwned(const std::function<bool(std::string_view key)>& ownedByOthers,
                             const Dictionary& lines, ReadReport& report) {
    report.Enter(std::string(Name()));
    for (std::size_t place = 0; place < CustomPairs::kCount; ++place) {
        const std::string& name = pairs_.Name(place);
        if (name.empty() || !ownedByOthers(name)) continue;
        if (const auto* entry = lines.Peek(CustomPairs::PlaceKey(place)))
            report.Add({ReadNote::Kind::NotUnderstood,
                        report.Section(),
                        std::string(entry->key),
                        std::string(entry->value),
                        {},
                        entry->line,
                        Context().texts.Format(kOfAnother, {name})});
        pairs_.Clear(place);
    }
    pairs_.MarkSaved();
}

void CCustomParms::Prepare(std::vector<Change>& changes, Check check, const ValueOf& valueOf) {
    // The names as they would be, then as they will be.
    std::array<std::string, CustomPairs::kCount> names;
    for (std::size_t place = 0; place < names.size(); ++place) names[place] = pairs_.Name(place);
    KeepLastOfEachPlace(changes);
    for (const Change& change : changes) {
        if (const auto place = CustomPairs::PlaceOf(change.key))
            names[*place] = Trim(change.after ? std::string_view(*change.after) : std::string_view());
    }
    std::vector<std::string> barred;
    for (const std::string& name : names) {
        if (check == Check::None || name.empty()) continue;
        const bool twice = std::count(names.begin(), names.end(), name) > 1;
        const bool others = valueOf && !pairs_.Named(name) && valueOf(name);
        if (twice || others) barred.push_back(name);
    }
    for (std::size_t place = 0; place < names.size(); ++place) {
        const bool stays = !CustomPairs::IsName(names[place]) || Contains(barred, names[place]);
        if (!names[place].empty() && stays) names[place] = pairs_.Name(place);
    }
    for (Change& change : changes) {
        const auto named = std::find_if(names.begin(), names.end(), [&](const std::string& name) {
            return !name.empty() && EqualNoCase(name, change.key);
        });
        if (named != names.end())
            change.key = CustomPairs::ValueKey(static_cast<std::size_t>(named - names.begin()));
    }
    // A value needs a place that has its name.
    std::stable_partition(changes.begin(), changes.end(),
                          [](const Change& change) { return CustomPairs::PlaceOf(change.key).has_value(); });
    pairs_.Bar(std::move(barred));
}

}  // namespace calyx
