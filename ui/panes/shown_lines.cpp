#include "ui/panes/shown_lines.h"

#include <unordered_map>

#include "comm/download_plan.h"
#include "model/language/text.h"

namespace calyx::ui {

namespace {

using Values = std::unordered_map<std::string, std::string>;  // by key in capitals

Values ByKey(const std::vector<KeyValue>& lines) {
    Values values;
    values.reserve(lines.size());
    for (const KeyValue& line : lines) values.try_emplace(Upper(line.key), line.value);
    return values;
}

// What a download with everything chosen would send. The program file has no parameters.
Values SentValues(const CIndicator& document, const Target& target) {
    using namespace download_option;
    DownloadOptions options;
    options.mask = chkBase | chkCalibration | chkSetpoints | chkWidgets | chkSchemas;
    std::string text;
    for (const std::string& line : SendingOrder(document, options, target)) text.append(line).append("\r\n");
    return ByKey(ReadLines(text));
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

}  // namespace

std::vector<ShownLine> LinesOfPlace(const CIndicator& document, const Place& place, const Target& target,
                                    const std::vector<KeyValue>& saved) {
    const Section* section = SectionOf(document, place.section);
    if (section == nullptr) return {};
    std::string state;
    section->AppendState(state);
    const Values before = ByKey(saved);
    const Values sent = target.all ? Values() : SentValues(document, target);

    std::vector<ShownLine> lines;
    for (KeyValue& line : ReadLines(state)) {
        if (!Holds(place, line.key)) continue;
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
    return lines;
}

}  // namespace calyx::ui
