#include "model/kept/kept_lines.h"

#include <algorithm>

#include "model/language/text.h"

namespace calyx {

namespace {

constexpr RowInfo kPlainRow{};

}  // namespace

const RowInfo& KeptLines::Info(std::size_t) const {
    return kPlainRow;
}

Taken KeptLines::Take(std::size_t row, std::string_view text) {
    BeforeEdit();
    lines_[row].value = text;
    return Taken::Whole;
}

std::optional<std::size_t> KeptLines::Find(std::string_view key) const {
    const auto found = std::find_if(lines_.begin(), lines_.end(),
                                    [key](const KeyValue& line) { return EqualNoCase(line.key, key); });
    if (found == lines_.end()) return std::nullopt;
    return static_cast<std::size_t>(found - lines_.begin());
}

void KeptLines::EachLine(const std::function<void(std::size_t, Gate, bool)>& visit) const {
    for (std::size_t i = 0; i < lines_.size(); ++i) visit(i, Gate{}, true);
}

void KeptLines::Initialize() {
    lines_.clear();
    MarkSaved();
}

void KeptLines::Restore(Dictionary& lines, ReadReport&) {
    lines_.clear();
    std::vector<std::span<const Dictionary::Entry>> runs;
    std::size_t most = 0;
    for (const Dictionary::Run& run : lines.Runs()) {
        if (!MayAdopt(run.head)) continue;
        runs.push_back(run.entries);
        most += run.entries.size();
    }
    lines_.reserve(most);
    for (const auto run : runs) {
        for (const Dictionary::Entry& entry : run) {
            if (!Adopts(entry.key)) continue;
            lines.MarkAsked(entry);
            lines_.push_back({std::string(entry.key), std::string(entry.value)});
        }
    }
    MarkSaved();
}

void KeptLines::Append(std::string& out, const Target&, std::optional<LinePart>) const {
    for (const KeyValue& line : lines_) out.append(line.key).append(1, '=').append(line.value).append("\r\n");
}

bool KeptLines::Adopts(std::string_view key) const {
    return std::any_of(starts_.begin(), starts_.end(), [key](std::string_view start) {
        return start.ends_with('=') ? EqualNoCase(key, start.substr(0, start.size() - 1))
                                    : StartsNoCase(key, start);
    });
}

// Whether there can be keys of ours among those that begin so.
bool KeptLines::MayAdopt(std::string_view head) const {
    return std::any_of(starts_.begin(), starts_.end(), [head](std::string_view start) {
        return StartsNoCase(start, head) || StartsNoCase(head, start);
    });
}

void KeptLines::Adopt(std::string_view key, std::string_view value) {
    BeforeEdit();
    if (const auto row = Find(key)) {
        lines_[*row].value = value;
    } else {
        lines_.push_back({std::string(key), std::string(value)});
    }
}

void KeptLines::Drop(std::string_view key) {
    const auto row = Find(key);
    if (!row) return;
    BeforeEdit();
    lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(*row));
}

}  // namespace calyx
