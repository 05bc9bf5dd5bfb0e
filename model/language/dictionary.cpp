#include "model/language/dictionary.h"

#include <bit>
#include <cstring>

#include "model/language/text.h"

namespace calyx {

namespace {

// Eight characters a step, the last ones together with some before them; bit 5 set folds the letters.
// Other characters that fold together only collide, the comparison of keys is exact. The upper bits are
// the good ones.
std::uint64_t HashKey(std::string_view key) {
    constexpr std::uint64_t kFold = 0x2020202020202020ull;
    constexpr std::uint64_t kMix = 0x9E3779B97F4A7C15ull;
    const auto chunk = [&key](std::size_t at) {
        std::uint64_t characters;
        std::memcpy(&characters, key.data() + at, 8);
        return characters | kFold;
    };
    std::uint64_t hash = key.size();
    if (key.size() < 8) {
        for (const char c : key) hash = hash << 8 | static_cast<unsigned char>(c | 0x20);
    } else {
        for (std::size_t at = 0; at + 8 < key.size(); at += 8) {
            hash = (hash ^ chunk(at)) * kMix;
            hash ^= hash >> 32;
        }
        hash ^= chunk(key.size() - 8);
    }
    return hash * kMix;
}

}  // namespace

Dictionary::Dictionary(std::string text) : text_(std::make_unique<const std::string>(std::move(text))) {
    ReadLines();
    Index();
    FindRuns();
}

Dictionary Dictionary::FromEntries(const std::vector<std::pair<std::string, std::string>>& lines) {
    std::string text;
    for (const auto& [key, value] : lines) text.append(key).append("=").append(value).append("\r\n");
    return Dictionary(std::move(text));
}

// Lines end in CR LF or LF; a CR inside a line ends it as well, so that a dump whose lines end in CR
// alone is read too.
void Dictionary::ReadLines() {
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
        while (last != at) {
            const auto* cr =
                static_cast<const char*>(std::memchr(at, '\r', static_cast<std::size_t>(last - at)));
            if (cr == nullptr) break;
            take(at, cr);
            at = cr + 1;
        }
        if (newline != nullptr || last != at) take(at, last);
        at = newline == nullptr ? stop : newline + 1;
    }
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

// The slot that holds the key, or the free one where it would stand.
std::size_t Dictionary::SlotOf(std::string_view key) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = HashKey(key) >> slotShift_;
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
