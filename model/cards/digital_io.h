#pragma once

#include "model/cards/card_fields.h"
#include "model/cards/card_lists.h"
#include "model/language/row_object.h"

namespace calyx {

// The digital points of the main board (number 0, 8 points) or of the card in expansion slot 1 to 14
// (24 points). Points count from 1. Everything before Initialize raises 10006.
class CDigitalIO {
  public:
    explicit CDigitalIO(const ModelContext& context)
        : lists_(context), board_(context, kBoardDigitalTable), card_(context, kCardDigitalTable) {}

    void Initialize(int number);  // 10002 outside 0 to 14
    void ReloadDefaults() { Parameters().ReloadDefaults(); }

    RowItem<DigitalFields>& Parameters() { return onBoard_ ? board_.Parameters() : card_.Parameters(); }
    const RowItem<DigitalFields>& Parameters() const {
        return onBoard_ ? board_.Parameters() : card_.Parameters();
    }
    const DigitalFields& Values() const { return Parameters().fields; }
    int Number() const { return Parameters().Number(); }
    int NumberOfPoints() const;
    std::string_view PointDefinition(int point) const;  // 10002 for a point that is not there
    const CTextList& PointDefinitions() const;
    std::string PointDefinitionCommand(int point) const;  // the line of the point: "DIO.3#0=INPUT"
    std::string_view Alias(int point) const;
    void SetPointDefinition(int point, std::string_view definition);  // a word of the list, else 10002
    void SetAlias(int point, std::string_view alias);  // 10001 when too long, 10010 when no identifier

    bool IsDirty() const { return Own().IsDirty(); }
    bool IsValid() const { return Own().IsValid(); }
    // Its lines are the same for every firmware.
    std::string GetTextOutput(bool allParameters) const { return Own().GetTextOutput(allParameters); }
    std::string TextView() const { return GetTextOutput(true); }
    std::string StoreState() const { return Own().StoreState(); }
    void RestoreState(Dictionary& lines, ReadReport& report) { Own().RestoreState(lines, report); }

    // The constant of the card and those of its points; nothing when no point has an alias.
    std::string GetIWriteImportDef() const;
    bool HasAlias() const;               // of any point
    std::string ConstantOfCard() const;  // "DIOCRD3"

  private:
    class Points : public RowObject<DigitalFields> {
      public:
        Points(const ModelContext& context, const RowTable<DigitalFields>& table)
            : RowObject(context, table, "CDigitalIO") {}
        void Initialize(int number) { Begin(number, "#" + std::to_string(number)); }
        using RowObject::Fail;
        using RowObject::Fields;
        using RowObject::Need;
    };
    const Points& Own() const { return onBoard_ ? board_ : card_; }
    Points& Own() { return onBoard_ ? board_ : card_; }
    std::size_t Place(int point, const char* operation) const;

    CDigitalIOLists lists_;
    Points board_, card_;  // one of them
    bool onBoard_ = true;
};

}  // namespace calyx
