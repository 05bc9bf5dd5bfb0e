#include "model/scales/scale_edits.h"

#include <array>
#include <set>
#include <utility>

namespace calyx {

using namespace scale_kind;

namespace {

std::string KeyOf(std::string_view stem, int number) {
    return "SC." + std::string(stem) + "#" + std::to_string(number);
}

void AddChanges(std::vector<Change>& changes, const CScale& scale, const ScaleFields& wanted) {
    const RowItem<ScaleFields>& now = scale.Parameters();
    RowItem<ScaleFields> after = now;
    after.fields = wanted;
    after.fields.number = scale.Number();
    for (std::size_t row = 0; row < now.RowCount(); ++row) {
        if (now.Info(row).more.use == Use::ReadOnly) continue;
        std::string before = now.Text(row), text = after.Text(row);
        if (before != text) changes.push_back({now.Key(row), std::move(before), std::move(text)});
    }
}

ScaleFields Fresh(const CScale& scale) {
    RowItem<ScaleFields> item = scale.Parameters();
    item.ReloadDefaults();
    return item.fields;
}

// The kind that the lines name, else the one of the port, else the one that the form of the source suggests.
std::int32_t KindIn(const Dictionary& lines, const CScale& from, const PortInput& inputOf) {
    const Dictionary::Entry* named = lines.Peek(KeyOf("KIND", from.Number()));
    const auto number = named == nullptr ? std::nullopt : ReadInteger(named->value);
    if (number && number->whole && IsKind(number->value)) return number->value;
    const std::string_view source = lines.Peek(KeyOf("SRC", from.Number()))->value;
    const std::int32_t kind = KindOfSource(source, inputOf);
    if (kind != kNone) return kind;
    ScaleFields tried = Fresh(from);
    return TakeSource(tried, source) == Taken::Not ? kNone : tried.kind;
}

ScaleFields ReadScale(Dictionary& lines, const CScale& from, const PortInput& inputOf, ReadReport& report) {
    RowItem<ScaleFields> item = from.Parameters();
    item.ReloadDefaults();
    item.fields.kind = KindIn(lines, from, inputOf);
    if (item.fields.kind != kNone) item.Restore(lines, report);
    return item.fields;
}

}  // namespace

std::string CopyScales(const CScales& scales, const std::vector<int>& numbers, bool withKind) {
    std::string lines;
    for (const int number : numbers) {
        const CScale& scale = scales.Scale(number);
        if (withKind) {
            lines.append(KeyOf("KIND", number)).append("=");
            lines.append(std::to_string(scale.ScaleType())).append("\r\n");
        }
        lines += scale.GetTextOutput(true) + scale.GetCalibrationValues(true);
    }
    return lines;
}

PastedScales PasteScales(const CScales& scales, std::string_view lines, int first, const PortInput& inputOf) {
    static_cast<void>(scales.Scale(first));
    PastedScales pasted;
    Dictionary read{std::string(lines)};
    std::vector<ScaleFields> wanted;
    std::array<std::int32_t, kScaleCount + 1> numbers{};  // the new ones; 0: not among them
    for (int number = 1; number <= kScaleCount; ++number) {
        if (read.Peek(KeyOf("SRC", number)) == nullptr) continue;
        wanted.push_back(ReadScale(read, scales.Scale(number), inputOf, pasted.report));
        numbers[static_cast<std::size_t>(number)] = first + pasted.count++;
    }
    const int behind = first + pasted.count;
    if (behind > kScaleCount + 1) return pasted;
    std::set<std::string> aliases{""};
    for (int number = 1; number <= kScaleCount; ++number) {
        const bool stays = number < first || number >= behind;
        if (stays) aliases.insert(Upper(scales.Scale(number).Values().alias.Trimmed()));
    }
    for (int i = 0; i < pasted.count; ++i) {
        ScaleFields& fields = wanted[static_cast<std::size_t>(i)];
        for (std::int32_t& source : fields.sources) {
            const bool moved = fields.kind == kTotal && source >= 1 && source <= kScaleCount &&
                               numbers[static_cast<std::size_t>(source)] != 0;
            if (moved) source = numbers[static_cast<std::size_t>(source)];
        }
        if (!aliases.insert(Upper(fields.alias.Trimmed())).second) fields.alias = {};
        AddChanges(pasted.changes, scales.Scale(first + i), fields);
    }
    return pasted;
}

std::vector<Change> ClearScale(const CScales& scales, int number) {
    std::vector<Change> changes;
    AddChanges(changes, scales.Scale(number), Fresh(scales.Scale(number)));
    return changes;
}

}  // namespace calyx
