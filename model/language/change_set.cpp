#include "model/language/change_set.h"

#include <unordered_map>

#include "model/language/text.h"

namespace calyx {

namespace {

using Places = std::unordered_map<std::string, std::size_t>;

Places FirstPlaces(const std::vector<KeyValue>& lines) {
    Places places;
    places.reserve(lines.size() * 2);
    for (std::size_t i = 0; i < lines.size(); ++i) places.emplace(Upper(lines[i].key), i);
    return places;
}

}  // namespace

ChangeSet ChangeSet::Inverse() const {
    ChangeSet inverse;
    for (auto at = changes_.rbegin(); at != changes_.rend(); ++at)
        inverse.Add({at->key, at->after, at->before});
    return inverse;
}

ChangeSet ChangeSet::Then(const ChangeSet& later) const {
    ChangeSet joined = *this;
    Places places;
    for (std::size_t i = 0; i < changes_.size(); ++i) places.emplace(Upper(changes_[i].key), i);
    for (const Change& change : later.changes_) {
        const auto [at, fresh] = places.emplace(Upper(change.key), joined.changes_.size());
        if (fresh) {
            joined.changes_.push_back(change);
        } else {
            joined.changes_[at->second].after = change.after;
        }
    }
    return joined.Where([](const Change& change) { return change.before != change.after; });
}

ChangeSet Difference(const std::vector<KeyValue>& before, const std::vector<KeyValue>& after) {
    const Places old = FirstPlaces(before);
    const Places fresh = FirstPlaces(after);
    ChangeSet changes;
    std::size_t next = 0;  // first line of `after` that is not dealt with
    const auto addNewUpTo = [&](std::size_t end) {
        for (; next < end; ++next) {
            const std::string key = Upper(after[next].key);
            if (!old.contains(key) && fresh.at(key) == next)
                changes.Add({after[next].key, std::nullopt, after[next].value});
        }
    };
    for (std::size_t i = 0; i < before.size(); ++i) {
        const std::string key = Upper(before[i].key);
        if (old.at(key) != i) continue;
        const auto found = fresh.find(key);
        if (found == fresh.end()) {
            changes.Add({before[i].key, before[i].value, std::nullopt});
            continue;
        }
        addNewUpTo(found->second);
        next = std::max(next, found->second + 1);
        if (before[i].value != after[found->second].value) {
            changes.Add({before[i].key, before[i].value, after[found->second].value});
        }
    }
    addNewUpTo(after.size());
    return changes;
}

std::vector<KeyValue> ReadLines(std::string_view text) {
    std::vector<KeyValue> lines;
    ForEachLine(text, [&](std::string_view line) {
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos || equals == 0) return;
        lines.push_back({std::string(line.substr(0, equals)), std::string(line.substr(equals + 1))});
    });
    return lines;
}

}  // namespace calyx
