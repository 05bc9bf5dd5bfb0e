#include "model/cards/fieldbus_cards.h"

#include <algorithm>

#include "model/cards/card_types.h"
#include "model/language/text.h"

namespace calyx {

namespace {

constexpr std::string_view kPrefix = "FB.";

// The card number of a key of ours, 0 for none.
int NumberOf(std::string_view key) {
    for (const auto& row : kFieldbusTable.rows) {
        const std::string start = std::string(kPrefix) + std::string(row.stem) + "#";
        if (!StartsNoCase(key, start)) continue;
        const auto number = ReadInteger(key.substr(start.size()));
        if (number && number->whole && number->value >= 1 && number->value <= card::kSlots)
            return number->value;
    }
    return 0;
}

}  // namespace

void CFieldbusCard::Initialize(int number) {
    if (number < 1 || number > card::kSlots) {
        Fail(code::kOutOfRange, "Initialize", {std::to_string(number), "1 to 14"});
    }
    Begin(number, "#" + std::to_string(number));
}

void CFieldbusCard::SetSwapByte(std::string_view word) {
    FieldbusFields& fields = Fields("SwapByte");
    if (!swapByteList().ValidateItem(Trim(word)))
        Fail(code::kOutOfRange, "SwapByte", {word, swapByteList().TabDelimitedList()});
    fields.swapByte.Assign(Trim(word));
}

std::vector<calyx::Item*> CFieldbusCards::Items() {
    std::vector<calyx::Item*> items;
    for (const int number : present_) items.push_back(&cards_.at(number).Parameters());
    return items;
}

void CFieldbusCards::Initialize() {
    cards_.clear();
    present_.clear();
    saved_.clear();
}

void CFieldbusCards::RestoreState(Dictionary& lines, ReadReport& report) {
    Initialize();
    for (int number = 1; number <= card::kSlots; ++number) {
        CFieldbusCard fresh(Context());
        fresh.Initialize(number);
        const auto& rows = fresh.Parameters();
        bool held = false;
        for (std::size_t row = 0; row < rows.RowCount(); ++row) held |= lines.Peek(rows.Key(row)) != nullptr;
        if (held) Add(number);
    }
    Section::RestoreState(lines, report);
    MarkSaved();
}

void CFieldbusCards::Add(int number) {
    const auto [place, isNew] = cards_.try_emplace(number, Context());
    if (isNew) {
        place->second.Initialize(number);
    } else {
        place->second.ReloadDefaults();
    }
    present_.insert(number);
}

bool CFieldbusCards::Owns(std::string_view key) const {
    return NumberOf(key) != 0;
}

bool CFieldbusCards::IsDirty() const {
    return present_ != saved_ || Section::IsDirty();
}

void CFieldbusCards::MarkSaved() {
    std::erase_if(cards_, [&](const auto& card) { return !present_.contains(card.first); });
    saved_ = present_;
    Section::MarkSaved();
}

// Whether anything would be taken: a refused line makes no card.
bool CFieldbusCards::IsTaken(int number, const std::vector<Change>& lines, Check check) const {
    CFieldbusCards trial(*this);
    trial.Add(number);
    return trial.Take(lines, check).size() < lines.size();
}

// A card comes with its first line and goes when all its lines go.
void CFieldbusCards::Prepare(std::vector<Change>& changes, Check check, const ValueOf&) {
    std::map<int, std::vector<Change>> lines;  // by card
    for (const Change& change : changes) {
        if (const int number = NumberOf(change.key)) lines[number].push_back(change);
    }
    for (const auto& [number, own] : lines) {
        const auto gone = std::count_if(own.begin(), own.end(), [](const Change& c) { return !c.after; });
        if (gone == static_cast<std::ptrdiff_t>(kFieldbusTable.rows.size())) {
            present_.erase(number);
        } else if (!Exists(number) && gone < std::ssize(own) && IsTaken(number, own, check)) {
            Add(number);
        }
    }
}

const CFieldbusCard& CFieldbusCards::Item(int number) const {
    if (Exists(number)) return cards_.at(number);
    throw Error(code::kOutOfRange, "Calyx.CFieldbusCards.Item",
                Context().texts.Format(code::kOutOfRange, {std::to_string(number), "1 to 14"}));
}

std::vector<Change> CFieldbusCards::Adding(int number) const {
    CFieldbusCard fresh(Context());
    fresh.Initialize(number);
    std::vector<Change> changes;
    const auto& rows = fresh.Parameters();
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
        changes.push_back({rows.Key(row), std::nullopt, rows.Text(row)});
    }
    return changes;
}

std::vector<Change> CFieldbusCards::Removing(int number) const {
    std::vector<Change> changes;
    if (!Exists(number)) return changes;
    const auto& rows = cards_.at(number).Parameters();
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
        changes.push_back({rows.Key(row), rows.Text(row), std::nullopt});
    }
    return changes;
}

}  // namespace calyx
