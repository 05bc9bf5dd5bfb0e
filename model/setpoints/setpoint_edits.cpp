#include "model/setpoints/setpoint_edits.h"

#include <array>
#include <cmath>
#include <optional>
#include <set>
#include <utility>

namespace calyx {

namespace {

// For every place the setpoint whose contents it gets; 0: as new.
using Contents = std::array<int, kSetpoints + 1>;
// For every number the one that references to it become.
using NewNumbers = std::array<int, kSetpoints + 1>;

std::array<int, kSetpoints + 1> AsItIs() {
    std::array<int, kSetpoints + 1> numbers{};
    for (std::size_t n = 0; n < numbers.size(); ++n) numbers[n] = static_cast<int>(n);
    return numbers;
}

std::size_t At(int number) {
    return static_cast<std::size_t>(number);
}

void Follow(std::int32_t& reference, const NewNumbers& numbers) {
    if (reference >= 1 && reference <= kSetpoints) reference = numbers[At(reference)];
}
void Follow(double& reference, const NewNumbers& numbers) {
    if (reference != std::floor(reference) || reference < 1 || reference > kSetpoints) return;
    reference = numbers[static_cast<std::size_t>(reference)];
}
void FollowAll(SetpointFields& fields, const NewNumbers& numbers) {
    Follow(fields.relNum, numbers);
    Follow(fields.branch, numbers);
    Follow(fields.start, numbers);
    Follow(fields.end, numbers);
}

void AddChanges(std::vector<Change>& changes, const CSetpoint& setpoint, const SetpointFields& wanted) {
    const auto& now = setpoint.Parameters();
    if (now.fields == wanted) return;
    auto after = now;
    after.fields = wanted;
    for (std::size_t i = 0; i < now.RowCount(); ++i) {
        std::string before = now.Text(i), text = after.Text(i);
        if (before != text) changes.push_back({now.Key(i), std::move(before), std::move(text)});
    }
}

SetpointFields Fresh(const CSetpoint& like) {
    auto item = like.Parameters();
    item.ReloadDefaults();
    return item.fields;
}

std::vector<Change> Rearranged(const CSetpoints& setpoints, const Contents& contents,
                               const NewNumbers& numbers) {
    std::vector<Change> changes;
    for (const CSetpoint& setpoint : setpoints) {
        const int source = contents[At(setpoint.Number())];
        SetpointFields wanted = source == 0 ? Fresh(setpoint) : setpoints.Item(source).Values();
        FollowAll(wanted, numbers);
        AddChanges(changes, setpoint, wanted);
    }
    return changes;
}

// Raises 10002 for a number that is none.
void Need(const CSetpoints& setpoints, int number) {
    static_cast<void>(setpoints.Item(number));
}

}  // namespace

std::vector<Change> DuplicateSetpoint(const CSetpoints& setpoints, int from, int to) {
    SetpointFields copy = setpoints.Item(from).Values();
    std::vector<Change> changes;
    Need(setpoints, to);
    if (from == to) return changes;
    NewNumbers numbers = AsItIs();
    numbers[At(from)] = to;
    FollowAll(copy, numbers);
    copy.alias.Assign("");
    AddChanges(changes, setpoints.Item(to), copy);
    return changes;
}

std::vector<Change> RenumberSetpoint(const CSetpoints& setpoints, int from, int to) {
    Need(setpoints, from);
    Need(setpoints, to);
    Contents contents = AsItIs();
    NewNumbers numbers = AsItIs();
    if (from != to) {
        contents[At(to)] = from;
        contents[At(from)] = 0;
        numbers[At(from)] = to;
    }
    return Rearranged(setpoints, contents, numbers);
}

std::vector<Change> MoveSetpoint(const CSetpoints& setpoints, int from, int to) {
    Need(setpoints, from);
    Need(setpoints, to);
    Contents contents = AsItIs();
    NewNumbers numbers = AsItIs();
    const int step = from < to ? 1 : -1;
    for (int place = from; place != to; place += step) {
        contents[At(place)] = place + step;
        numbers[At(place + step)] = place;
    }
    contents[At(to)] = from;
    numbers[At(from)] = to;
    return Rearranged(setpoints, contents, numbers);
}

std::vector<Change> SwapSetpoints(const CSetpoints& setpoints, int one, int other) {
    Need(setpoints, one);
    Need(setpoints, other);
    Contents contents = AsItIs();
    std::swap(contents[At(one)], contents[At(other)]);
    return Rearranged(setpoints, contents, contents);  // an exchange is its own inverse
}

std::string CopySetpoints(const CSetpoints& setpoints, const std::vector<int>& numbers) {
    std::string lines;
    for (const int number : numbers) lines += setpoints.Item(number).GetTextOutput(true);
    return lines;
}

PastedSetpoints PasteSetpoints(const CSetpoints& setpoints, std::string_view lines, int first) {
    Need(setpoints, first);
    PastedSetpoints pasted;
    Dictionary read{std::string(lines)};
    std::vector<SetpointFields> wanted;
    NewNumbers numbers = AsItIs();
    for (const CSetpoint& from : setpoints) {
        if (read.Peek(SetpointKey("KIND", from.Number())) == nullptr) continue;
        auto item = from.Parameters();
        item.ReloadDefaults();
        item.Restore(read, pasted.report);
        wanted.push_back(item.fields);
        const int to = first + pasted.count++;
        if (to <= kSetpoints) numbers[At(from.Number())] = to;
    }
    const int behind = first + pasted.count;
    if (behind > kSetpoints + 1) return pasted;
    std::set<std::string> aliases{""};
    for (const CSetpoint& other : setpoints) {
        const bool stays = other.Number() < first || other.Number() >= behind;
        if (stays) aliases.insert(Upper(other.Values().alias.Trimmed()));
    }
    for (int i = 0; i < pasted.count; ++i) {
        SetpointFields& fields = wanted[At(i)];
        FollowAll(fields, numbers);
        if (!aliases.insert(Upper(fields.alias.Trimmed())).second) fields.alias = {};
        AddChanges(pasted.changes, setpoints.Item(first + i), fields);
    }
    return pasted;
}

std::vector<Change> ClearSetpoint(const CSetpoints& setpoints, int number) {
    std::vector<Change> changes;
    const CSetpoint& setpoint = setpoints.Item(number);
    AddChanges(changes, setpoint, Fresh(setpoint));
    return changes;
}

}  // namespace calyx
