#include "ui/panes/shown_lines.h"

#include <algorithm>
#include <unordered_map>

#include "model/language/text.h"
#include "ui/link/differences.h"

namespace calyx::ui {

namespace {

using Values = std::unordered_map<std::string, std::string>;  // by key in capitals

Values ByKey(const std::vector<KeyValue>& lines) {
    Values values;
    values.reserve(lines.size());
    for (const KeyValue& line : lines) values.try_emplace(Upper(line.key), line.value);
    return values;
}

const Section* SectionOf(const CIndicator& document, std::string_view name) {
    for (const Section* section : document.Sections()) {
        if (section->Name() == name) return section;
    }
    return nullptr;
}

// All versions that get the line of a key; ungated where the section does not say.
Gate GateOf(const Section& section, std::string_view key) {
    for (const Item* item : section.Items()) {
        if (const auto row = item->Find(key)) return item->GateOf(*row);
    }
    return {};
}

bool IsOf(const Section& section, const ItemRef& ref, std::string_view key) {
    const auto items = section.Items();
    return std::any_of(items.begin(), items.end(), [&](const Item* item) {
        return item->Title() == ref.kind && item->Number() == ref.number && item->Find(key).has_value();
    });
}

}  // namespace

std::vector<ShownLine> LinesOfPlace(const CIndicator& document, const Place& place,
                                    const std::optional<ItemRef>& item, const Target& target,
                                    const std::vector<KeyValue>& saved) {
    const Section* section = SectionOf(document, place.section);
    if (section == nullptr) return {};
    std::string state;
    section->AppendState(state);
    const Values before = ByKey(saved);
    const Values sent = target.all ? Values() : ByKey(SentLines(document, target));

    std::vector<ShownLine> lines;
    for (KeyValue& line : ReadLines(state)) {
        if (!Holds(place, line.key) || (item && !IsOf(*section, *item, line.key))) continue;
        ShownLine shown;
        const std::string name = Upper(line.key);
        const auto old = before.find(name);
        shown.changed = old == before.end() || old->second != line.value;
        const auto out = sent.find(name);
        shown.sent = target.all || out != sent.end();
        if (!shown.sent) {
            const Gate gate = GateOf(*section, line.key);
            if (!target.Opens(gate)) shown.gate = gate;
        }
        shown.value = out != sent.end() ? out->second : std::move(line.value);
        shown.key = std::move(line.key);
        lines.push_back(std::move(shown));
    }
    if (target.all) return lines;
    // Older firmware knows some lines under other keys than the file has.
    std::string gated;
    section->AppendLines(gated, target);
    for (KeyValue& line : ReadLines(gated)) {
        const bool shown = std::any_of(lines.begin(), lines.end(),
                                       [&](const ShownLine& l) { return EqualNoCase(l.key, line.key); });
        const bool here = Holds(place, line.key) && (!item || IsOf(*section, *item, line.key));
        if (shown || !here || !sent.contains(Upper(line.key))) continue;
        lines.push_back({std::move(line.key), std::move(line.value), false, true, {}});
    }
    return lines;
}

}  // namespace calyx::ui
