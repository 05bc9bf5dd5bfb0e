#include "model/language/text_list.h"

#include <algorithm>

#include "model/language/text.h"

namespace calyx {

namespace {
const std::string kNone;
}

void CTextList::Fetch(const ResourceTexts& texts, std::string_view textIds, std::string_view keys,
                      char delimiter) {
    *this = CTextList();
    const auto ids = Split(textIds, delimiter);
    const auto words = Split(keys, delimiter);
    for (std::size_t i = 0; i < words.size() && i < ids.size(); ++i) {
        const auto id = ReadInteger(ids[i]);
        Add(id ? texts.Text(id->value) : std::string(words[i]), words[i]);
    }
}

void CTextList::ManualLoad(std::string_view texts, std::string_view keys, char delimiter) {
    *this = CTextList();
    const auto shown = Split(texts, delimiter);
    const auto words = Split(keys, delimiter);
    for (std::size_t i = 0; i < words.size() && i < shown.size(); ++i) Add(std::string(shown[i]), words[i]);
}

void CTextList::Add(std::string text, std::string_view key) {
    byKey_.emplace(key, entries_.size());
    byText_.emplace(text, entries_.size());
    entries_.push_back({std::string(key), std::move(text)});
}

const std::string* CTextList::Item(std::string_view key) const {
    const std::size_t place = Place(key);
    return place == Count() ? nullptr : &entries_[place].text;
}

const std::string* CTextList::Key(std::string_view text) const {
    const auto found = byText_.find(text);
    return found == byText_.end() ? nullptr : &entries_[found->second].key;
}

std::size_t CTextList::Place(std::string_view key) const {
    constexpr std::size_t kFew = 8;
    if (Count() <= kFew) {  // the quicker way
        const auto found = std::find_if(begin(), end(), [&](const Entry& entry) { return entry.key == key; });
        return static_cast<std::size_t>(found - begin());
    }
    const auto found = byKey_.find(key);
    return found == byKey_.end() ? Count() : found->second;
}

std::string CTextList::TabDelimitedList() const {
    std::string joined;
    for (const Entry& entry : entries_) {
        if (&entry != &entries_.front()) joined += '\t';
        joined += entry.text;
    }
    return joined;
}

const std::string& CTextList::First() const {
    return entries_.empty() ? kNone : entries_.front().key;
}

const std::string& CTextList::Last() const {
    return entries_.empty() ? kNone : entries_.back().key;
}

const std::string& CTextList::Default() const {
    return default_.empty() ? First() : default_;
}

std::string ValidateTextListItem(std::string_view value, const CTextList& list, std::string_view absent) {
    return std::string(list.ValidateItem(Trim(value)) ? value : absent);
}

}  // namespace calyx
