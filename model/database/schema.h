#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/database/schema_fields.h"
#include "model/language/broken_rules.h"
#include "model/language/row_object.h"

namespace calyx {

// Which table a key is about: "DB.FIELD.3.1#7" is field 3 of table 1 on the card in slot 7.
struct SchemaKey {
    static constexpr int kSlots = 14, kMostTables = 16;

    int slot = 0, table = 0;
    bool isName = false;  // the line that makes the table exist

    static std::optional<SchemaKey> Of(std::string_view key);
};

// One field of a table. The type is a word of the list DB.TYPES.
struct SchemaField {
    std::string name, type;
    bool keyed = false;

    friend bool operator==(const SchemaField&, const SchemaField&) = default;
};

// The layout of one database table. Fields count from 1. Everything before Initialize raises 10006.
class CSchema : public RowObject<SchemaFields> {
  public:
    static constexpr int MaxFields() { return SchemaFields::kMostFields; }

    explicit CSchema(const ModelContext& context) : RowObject(context, kSchemaTable, "CSchema") {}

    void Initialize(int slot, int table);  // 1 to 14, 1 to 16; else 10002
    void ReloadDefaults() { Parameters().ReloadDefaults(); }
    int Slot() const { return slot_; }

    std::string_view Name() const { return Values().name.Trimmed(); }
    void SetName(std::string_view name);  // 10001 when longer than 8 characters
    const CTextList& Types() const;

    int FieldCount() const { return Values().FieldCount(); }
    std::vector<SchemaField> AllFields() const;
    // 10001 for a name that is too long; 10002 for a type that is not in the list, a field that is not
    // there, more fields than fit. Nothing changes then.
    void SetFields(const std::vector<SchemaField>& fields);
    void InsertField(int at, const SchemaField& field);  // at 1 to the number of fields and one
    void RemoveField(int at);
    void MoveField(int from, int to);

    // The declarations of the import file: record type, database type, one constant a field. Nothing for a
    // table without a name.
    std::string GetIWriteImportDef() const;
    void AddBrokenRules(CBrokenRules& rules, std::string_view section) const;

  private:
    void Need(int number, int most, const char* operation) const;

    int slot_ = 0;
};

}  // namespace calyx
