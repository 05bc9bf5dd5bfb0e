#pragma once

#include <map>
#include <set>
#include <span>

#include "model/cards/card_fields.h"
#include "model/cards/card_lists.h"
#include "model/language/row_object.h"
#include "model/language/section.h"

namespace calyx {

// One fieldbus card, 1 to 14. Everything before Initialize raises 10006.
class CFieldbusCard : public RowObject<FieldbusFields> {
  public:
    explicit CFieldbusCard(const ModelContext& context)
        : RowObject(context, kFieldbusTable, "CFieldbusCard"), lists_(context) {}
    void Initialize(int number);  // 10002 outside 1 to 14
    void ReloadDefaults() { Parameters().ReloadDefaults(); }

    std::int32_t Size() const { return Values().size; }
    void SetSize(std::int32_t size) { Fields("Size").size = size; }
    std::string SwapByte() const { return std::string(Values().swapByte.Trimmed()); }
    void SetSwapByte(std::string_view word);  // a word of the list, else 10002
    const CTextList& swapByteList() const { return lists_.swapByteList(); }

  private:
    CFieldbusLists lists_;
};

// The fieldbus cards. A card exists when the file holds a line of it, or once it was put into its slot.
class CFieldbusCards : public Section {
  public:
    explicit CFieldbusCards(const ModelContext& context) : Section(context) {}

    std::string_view Name() const override { return "fieldbuscards"; }
    int Title() const override { return 2128; }
    using Section::Items;
    std::vector<calyx::Item*> Items() override;
    void Initialize() override;
    void RestoreState(Dictionary& lines, ReadReport& report) override;
    bool Owns(std::string_view key) const override;
    bool IsDirty() const override;
    void MarkSaved() override;

    bool Exists(int number) const { return present_.contains(number); }
    const CFieldbusCard& Item(int number) const;  // 10002 when there is none
    // The lines that a new card of that number has, or that go with one.
    std::vector<Change> Adding(int number) const;
    std::vector<Change> Removing(int number) const;
    CBrokenRules Validate() const { return BrokenRules(); }

  protected:
    void Prepare(std::vector<Change>& changes, Check check, const ValueOf& valueOf) override;

  private:
    void Add(int number);
    bool IsTaken(int number, const std::vector<Change>& lines, Check check) const;

    std::map<int, CFieldbusCard> cards_;  // those removed stay until the next save, with what was saved
    std::set<int> present_, saved_;
};

}  // namespace calyx
