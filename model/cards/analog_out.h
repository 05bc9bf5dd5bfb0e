#pragma once

#include "model/cards/card_fields.h"
#include "model/language/row_object.h"

namespace calyx {

// One analog output channel, 1 to 28: the first channel of a card in slot s is s, the second s + 14.
// Everything before Initialize raises 10006.
class CAnalogOut : public RowObject<AnalogFields> {
  public:
    explicit CAnalogOut(const ModelContext& context) : RowObject(context, kAnalogTable, "CAnalogOut") {}

    void Initialize(int channel);  // 10002 outside 1 to 28
    void ReloadDefaults() { Parameters().ReloadDefaults(); }
    int Position() const;  // its card's slot
    std::string Alias() const { return std::string(Values().alias.Trimmed()); }
    std::int32_t Source() const { return Values().source; }  // scale; 0: a Scrivo program
    std::string Mode() const { return std::string(Values().mode.Trimmed()); }
    void SetAlias(
        std::string_view alias);  // at most 8 characters, else 10001; an identifier or empty, else 10010

    std::string GetIWriteImportDef() const;  // nothing without an alias
};

}  // namespace calyx
