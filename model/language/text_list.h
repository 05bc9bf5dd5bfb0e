#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "model/language/resource_texts.h"

namespace calyx {

// The allowed values of one parameter: each a key (the word in the parameter line) and a display text
// (shown to people). Keys match exactly, case included.
class CTextList {
  public:
    struct Entry {
        std::string key;
        std::string text;
    };

    // Two delimited lists of equal length; the display texts are given by their numbers.
    void Fetch(const ResourceTexts& texts, std::string_view textIds, std::string_view keys, char delimiter);
    void Load(const ResourceTexts& texts, std::string_view textIds, std::string_view keys, char delimiter) {
        Fetch(texts, textIds, keys, delimiter);
    }
    void ManualLoad(std::string_view texts, std::string_view keys, char delimiter);

    // Display text of a key, key of a display text; nothing when there is none.
    const std::string* Item(std::string_view key) const;
    const std::string* Key(std::string_view text) const;
    bool ValidateItem(std::string_view key) const { return Item(key) != nullptr; }
    std::size_t Place(std::string_view key) const;  // in the list; Count() when it is not there

    std::size_t Count() const { return entries_.size(); }
    std::string TabDelimitedList() const;

    // Enumeration, in list order.
    auto begin() const { return entries_.begin(); }
    auto end() const { return entries_.end(); }

    const std::string& First() const;  // key of the first entry; empty for an empty list
    const std::string& Last() const;
    const std::string& Default() const;  // key of the designated default item, else the first
    void SetDefault(std::string_view key) { default_ = key; }

  private:
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };
    using Places = std::unordered_map<std::string, std::size_t, Hash, std::equal_to<>>;

    void Add(std::string text, std::string_view key);

    std::vector<Entry> entries_;
    Places byKey_;
    Places byText_;
    std::string default_;
};

// The value itself when its trimmed form is a key of the list, otherwise the default. The trimmed
// form serves the look-up only.
std::string ValidateTextListItem(std::string_view value, const CTextList& list, std::string_view absent);

}  // namespace calyx
