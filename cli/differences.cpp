#include "cli/differences.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace calyx::cli {

namespace {

struct Placed {
    const Change* change;
    Place place;
    std::string heading;
};

// Section by section and item by item, as the file body has them; what nothing owns comes last.
std::vector<Placed> InBodyOrder(const ChangeSet& changes, const CIndicator& before, const CIndicator& after) {
    const ModelContext& context = before.Context();
    std::unordered_map<std::string, std::size_t> ranks;
    const std::vector<const Section*> sides[] = {before.Sections(), after.Sections()};
    for (std::size_t i = 0; i < sides[0].size(); ++i) {
        for (const auto& sections : sides) {
            ranks.emplace(Place{sections[i]}.Heading(context), ranks.size());
            for (const Item* item : sections[i]->Items())
                ranks.emplace(Place{sections[i], item}.Heading(context), ranks.size());
        }
    }
    ranks.emplace(Place{}.Heading(context), ranks.size());

    std::vector<Placed> placed;
    for (const Change& change : changes.Changes()) {
        const Place place = FindPlace(change.before ? before : after, change.key);
        placed.push_back({&change, place, place.Heading(context)});
    }
    std::stable_sort(placed.begin(), placed.end(), [&](const Placed& a, const Placed& b) {
        return ranks.at(a.heading) < ranks.at(b.heading);
    });
    return placed;
}

std::optional<std::string> Initial(const Place& place) {
    const bool hasInitial = place.item != nullptr && !place.item->Adopts(place.item->Key(place.row));
    return hasInitial ? std::optional(place.item->InitialText(place.row)) : std::nullopt;
}

std::string Shown(const std::optional<std::string>& value) {
    return value ? Quoted(*value) : "(no line)";
}

Json Side(const std::optional<std::string>& value) {
    return value ? Json(Utf8(*value)) : Json();
}

}  // namespace

Json DifferencesJson(const ChangeSet& changes, const CIndicator& before, const CIndicator& after,
                     bool showDefaults) {
    Json listing = Json::array();
    for (const auto& [change, place, heading] : InBodyOrder(changes, before, after)) {
        Json entry;
        entry["section"] = place.section == nullptr ? Json() : Json(place.section->Name());
        entry["item"] = place.item == nullptr ? 0 : place.item->Number();
        entry["key"] = Utf8(change->key);
        entry["before"] = Side(change->before);
        entry["after"] = Side(change->after);
        if (showDefaults) entry["default"] = Side(Initial(place));
        listing.push_back(std::move(entry));
    }
    return listing;
}

void PrintDifferences(std::ostream& out, const ChangeSet& changes, const CIndicator& before,
                      const CIndicator& after, bool showDefaults) {
    std::string last;
    for (const auto& [change, place, heading] : InBodyOrder(changes, before, after)) {
        if (heading != last) out << heading << '\n';
        last = heading;
        out << "  " << Printable(change->key) << ": " << Shown(change->before) << " -> "
            << Shown(change->after);
        if (const auto initial = Initial(place); showDefaults && initial)
            out << " (default " << Quoted(*initial) << ')';
        out << '\n';
    }
}

void ListDifferences(Program& program, const ChangeSet& changes, const CIndicator& before,
                     const CIndicator& after, bool showDefaults) {
    program.List([&] { return DifferencesJson(changes, before, after, showDefaults); },
                 [&](std::ostream& out) { PrintDifferences(out, changes, before, after, showDefaults); });
}

void SayRefused(Program& program, const std::vector<Refusal>& refused) {
    constexpr std::size_t kMost = 60;
    for (const Refusal& refusal : refused) {
        program.Say(Printable(refusal.key, kMost) + "=" + Printable(refusal.value, kMost) + ": " +
                    refusal.reason);
    }
}

}  // namespace calyx::cli
