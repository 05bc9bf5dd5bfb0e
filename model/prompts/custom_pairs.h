#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "model/language/item.h"

namespace calyx {

// Up to 50 parameters of the user's own choice, for what an indicator knows and this program does not. Each
// has a place, a name and a value:
//
//   CUSTOM#1=BEEPTONE     that a line BEEPTONE is one of ours; in the file only, never sent
//   BEEPTONE=3            the parameter itself, behind the places of all
//
// Only keys that a place names are read. A misspelt key of another section so stays unknown and is
// reported, instead of becoming a custom parameter by accident.
//
// Place and value of all are parameters of the item, the value under the key "CUSTOM.VALUE#1" as well as
// under its own name: so undo puts back the order, too.
class CustomPairs final : public Item {
  public:
    static constexpr std::size_t kCount = 50;
    static constexpr std::size_t kLongestName = 20;

    // An upper-case word: a letter, then letters, digits and "_", 20 characters at most.
    static bool IsName(std::string_view name);
    static std::string PlaceKey(std::size_t place);  // "CUSTOM#1" of place 0
    static std::string ValueKey(std::size_t place);
    // The place that a key stands for: its own key, in any case.
    static std::optional<std::size_t> PlaceOf(std::string_view key);
    // The place of the pair of that name.
    std::optional<std::size_t> Named(std::string_view name) const;

    const std::string& Name(std::size_t place) const { return pairs_[place].name; }
    const std::string& Value(std::size_t place) const { return pairs_[place].value; }
    // Names that the changes at hand may not give, because something else has them.
    void Bar(std::vector<std::string> names) { barred_ = std::move(names); }
    void Clear(std::size_t place) { pairs_[place] = {}; }

    int Number() const override { return 0; }
    std::size_t RowCount() const override { return 2 * kCount; }  // place and value, in turn
    const RowInfo& Info(std::size_t row) const override;
    std::string Key(std::size_t row) const override;
    const CTextList* List(std::size_t) const override { return nullptr; }
    std::string Text(std::size_t row, const Target& target = Target::Everything()) const override;
    std::string InitialText(std::size_t) const override { return {}; }
    Taken Take(std::size_t row, std::string_view text) override;
    std::optional<std::size_t> Find(std::string_view key) const override;
    void EachLine(const std::function<void(std::size_t row, Gate gate, bool met)>& visit) const override;

    void Initialize() override;
    void Restore(Dictionary& lines, ReadReport& report) override;
    void Append(std::string& out, const Target& target,
                std::optional<LinePart> part = std::nullopt) const override;
    bool IsDirty() const override { return pairs_ != saved_; }
    void MarkSaved() override { saved_ = pairs_; }
    std::unique_ptr<Item> Clone() const override { return std::make_unique<CustomPairs>(*this); }

  private:
    struct Pair {
        std::string name;  // empty: the place is free
        std::string value;
        friend bool operator==(const Pair&, const Pair&) = default;
    };

    std::array<Pair, kCount> pairs_;
    std::array<Pair, kCount> saved_;
    std::vector<std::string> barred_;
};

}  // namespace calyx
