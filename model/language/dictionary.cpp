#include "model/language/dictionary.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

#include "model/language/text.h"

namespace calyx {

namespace {

// "#3"; empty for a key without a number.
std::string_view SuffixOf(std::string_view key) {
    for (std::size_t at = key.size(); at != 0; --at) {
        if (key[at - 1] == '#') return key.substr(at - 1);
    }
    return {};
}

// In steps short enough for a count in one byte, which the compiler turns into wide instructions.
std::size_t CountOf(char wanted, std::string_view text) {
    constexpr std::size_t kStep = 128;
    std::size_t count = 0;
    while (text.size() >= kStep) {
        std::uint8_t inStep = 0;
        for (std::size_t i = 0; i < kStep; ++i)
            inStep = static_cast<std::uint8_t>(inStep + (text[i] == wanted));
        count += inStep;
        text.remove_prefix(kStep);
    }
    return count + static_cast<std::size_t>(std::count(text.begin(), text.end(), wanted));
}

}  // namespace

Dictionary::Dictionary(std::string text) : text_(std::make_unique<std::string>(std::move(text))) {
    ReadLines();
    Index();
    FindRuns();
    FindGroups();
}

Dictionary Dictionary::FromEntries(const std::vector<std::pair<std::string, std::string>>& lines) {
    std::string text;
    for (const auto& [key, value] : lines) text.append(key).append("=").append(value).append("\r\n");
    return Dictionary(std::move(text));
}

// Lines end in CR LF or LF; a CR inside a line ends it as well, so that a dump whose lines end in CR
// alone is read too.
void Dictionary::ReadLines() {
    // Nearly every file has all its CRs before LFs.
    const std::size_t returns = CountOf('\r', *text_);
    if (ReadLines(false) == returns) return;
    entries_.clear();
    textLines_.clear();
    ReadLines(true);
}

std::size_t Dictionary::ReadLines(bool splitAtReturns) {
    std::size_t returns = 0;
    entries_.reserve(text_->size() / 16 + 16);
    std::uint32_t number = 0;
    const auto take = [&](const char* begin, const char* end) {
        ++number;
        const auto length = static_cast<std::size_t>(end - begin);
        const auto* equals =
            static_cast<const char*>(length == 0 ? nullptr : std::memchr(begin, '=', length));
        if (equals == nullptr || equals == begin) {
            if (length != 0) textLines_.push_back({{begin, length}, number});
            return;
        }
        entries_.push_back({{begin, static_cast<std::size_t>(equals - begin)},
                            {equals + 1, static_cast<std::size_t>(end - equals - 1)},
                            number});
    };
    const char* at = text_->data();
    const char* const stop = at + text_->size();
    while (at != stop) {
        const auto* newline =
            static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(stop - at)));
        const char* end = newline == nullptr ? stop : newline;
        const char* last = newline != nullptr && end != at && end[-1] == '\r' ? end - 1 : end;
        returns += last != end ? 1 : 0;
        while (splitAtReturns && last != at) {
            const auto* cr =
                static_cast<const char*>(std::memchr(at, '\r', static_cast<std::size_t>(last - at)));
            if (cr == nullptr) break;
            take(at, cr);
            at = cr + 1;
        }
        if (newline != nullptr || last != at) take(at, last);
        at = newline == nullptr ? stop : newline + 1;
    }
    return returns;
}

void Dictionary::Index() {
    slots_.assign(std::bit_ceil(entries_.size() * 2 + 8), 0);
    slotShift_ = 64 - std::countr_zero(slots_.size());
    std::size_t kept = 0;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        const std::size_t slot = SlotOf(entries_[i].key);
        if (slots_[slot] != 0) {
            duplicates_.push_back(entries_[i]);
            continue;
        }
        if (kept != i) entries_[kept] = entries_[i];
        slots_[slot] = static_cast<std::uint32_t>(++kept);
    }
    entries_.resize(kept);
}

void Dictionary::FindRuns() {
    const Entry* begin = entries_.data();
    const Entry* const stop = begin + entries_.size();
    while (begin != stop) {
        const std::size_t mark = begin->key.find_first_of(".#");
        const std::string_view head = begin->key.substr(0, mark == std::string_view::npos ? mark : mark + 1);
        const Entry* end = begin + 1;
        if (mark != std::string_view::npos) {
            while (end != stop && end->key.starts_with(head)) ++end;
        }
        runs_.push_back({head, {begin, end}});
        begin = end;
    }
}

// An item's lines stand together in a file that a program wrote, so nearly every line goes on with the
// group of the line before.
void Dictionary::FindGroups() {
    nextInGroup_.assign(entries_.size(), kNone);
    groupSlots_.assign(std::bit_ceil(entries_.size() + 8), 0);
    for (const Run& run : runs_) {
        if (!run.head.ends_with('.')) continue;
        std::string_view suffix;
        std::uint32_t group = kNone;
        for (const Entry& entry : run.entries) {
            const auto place = static_cast<std::uint32_t>(&entry - entries_.data());
            if (group == kNone || !entry.key.ends_with(suffix)) {
                const std::string_view own = SuffixOf(entry.key);
                if (own.empty()) continue;
                suffix = own;
                const std::size_t slot = GroupSlotOf(run.head, suffix);
                if (groupSlots_[slot] == 0) {
                    groups_.push_back({place, place});
                    groupSlots_[slot] = static_cast<std::uint32_t>(groups_.size());
                    group = static_cast<std::uint32_t>(groups_.size() - 1);
                    continue;
                }
                group = groupSlots_[slot] - 1;
            }
            nextInGroup_[std::exchange(groups_[group].last, place)] = place;
        }
    }
}

std::size_t Dictionary::GroupSlotOf(std::string_view head, std::string_view suffix) const {
    const std::size_t mask = groupSlots_.size() - 1;
    std::size_t slot = (HashNoCase(head) ^ HashNoCase(suffix)) >> 32 & mask;
    const auto isThis = [&](std::uint32_t group) {
        const std::string_view key = entries_[groups_[group].first].key;
        return SuffixOf(key) == suffix && StartsNoCase(key, head);
    };
    while (groupSlots_[slot] != 0 && !isThis(groupSlots_[slot] - 1)) slot = (slot + 1) & mask;
    return slot;
}

Dictionary::Group Dictionary::GroupOf(std::string_view head, std::string_view suffix) const {
    const std::uint32_t group = groupSlots_[GroupSlotOf(head, suffix)];
    return {*this, group == 0 ? kNone : groups_[group - 1].first};
}

// The slot that holds the key, or the free one where it would stand.
std::size_t Dictionary::SlotOf(std::string_view key) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = HashNoCase(key) >> slotShift_;
    while (slots_[slot] != 0 && !EqualNoCase(entries_[slots_[slot] - 1].key, key)) slot = (slot + 1) & mask;
    return slot;
}

const Dictionary::Entry* Dictionary::Peek(std::string_view key) const {
    const std::uint32_t index = slots_[SlotOf(key)];
    return index == 0 ? nullptr : &entries_[index - 1];
}

const Dictionary::Entry* Dictionary::Find(std::string_view key) {
    const std::uint32_t index = slots_[SlotOf(key)];
    if (index == 0) return nullptr;
    entries_[index - 1].asked = true;
    return &entries_[index - 1];
}

std::string Dictionary::FindParameter(std::string_view key, std::string_view absent) {
    const Entry* entry = Find(key);
    return std::string(entry == nullptr ? absent : entry->value);
}

}  // namespace calyx
