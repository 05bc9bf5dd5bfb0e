#include "cli/differences.h"

namespace calyx::cli {

namespace {

Place PlaceOf(const Change& change, const CIndicator& before, const CIndicator& after) {
    const CIndicator& holder = change.before ? before : after;
    return FindPlace(holder, change.key);
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
    for (const Change& change : changes.Changes()) {
        const Place place = PlaceOf(change, before, after);
        Json entry;
        entry["section"] = place.section == nullptr ? Json() : Json(place.section->Name());
        entry["item"] = place.item == nullptr ? 0 : place.item->Number();
        entry["key"] = Utf8(change.key);
        entry["before"] = Side(change.before);
        entry["after"] = Side(change.after);
        if (showDefaults) entry["default"] = Side(Initial(place));
        listing.push_back(std::move(entry));
    }
    return listing;
}

void PrintDifferences(std::ostream& out, const ModelContext& context, const ChangeSet& changes,
                      const CIndicator& before, const CIndicator& after, bool showDefaults) {
    std::string last;
    for (const Change& change : changes.Changes()) {
        const Place place = PlaceOf(change, before, after);
        const std::string heading = place.Heading(context);
        if (heading != last) out << heading << '\n';
        last = heading;
        out << "  " << change.key << ": " << Shown(change.before) << " -> " << Shown(change.after);
        if (const auto initial = Initial(place); showDefaults && initial)
            out << " (default " << Quoted(*initial) << ')';
        out << '\n';
    }
}

void ListDifferences(Program& program, const ChangeSet& changes, const CIndicator& before,
                     const CIndicator& after, bool showDefaults) {
    program.List([&] { return DifferencesJson(changes, before, after, showDefaults); },
                 [&](std::ostream& out) {
                     PrintDifferences(out, program.Model(), changes, before, after, showDefaults);
                 });
}

void SayRefused(Program& program, const std::vector<Refusal>& refused) {
    constexpr std::size_t kMost = 60;
    for (const Refusal& refusal : refused) {
        program.Say(refusal.key + "=" + std::string(refusal.value, 0, kMost) + ": " + refusal.reason);
    }
}

}  // namespace calyx::cli
