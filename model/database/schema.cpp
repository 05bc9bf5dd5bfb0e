#include "model/database/schema.h"

#include <algorithm>
#include <set>

namespace calyx {

namespace {

constexpr std::size_t kNameWidth = 8;
// What is wrong, in words.
constexpr int kNoFields = 6702;       // {1} table
constexpr int kTwoFields = 6703;      // {1} table, {2} field
constexpr int kNamelessField = 6705;  // {1} field, {2} table

// How the program declares each type.
struct TypeWord {
    std::string_view type, keyword;
};
constexpr TypeWord kKeywords[] = {{"STRING", "string;"},
                                  {"SHORT", "integer;"},
                                  {"LONG", "integer;"},
                                  {"REAL", "real;"},
                                  {"DATETIME", "datetime;"}};

std::string_view KeywordOf(std::string_view type) {
    for (const TypeWord& word : kKeywords) {
        if (word.type == type) return word.keyword;
    }
    return kKeywords[0].keyword;
}

// A number exactly as it is written: no sign, no leading zero; 0 for anything else.
int Numbered(std::string_view digits, int most) {
    const auto number = ReadInteger(digits);
    if (!number || number->value < 1 || number->value > most) return 0;
    return digits == std::to_string(number->value) ? number->value : 0;
}

}  // namespace

std::optional<SchemaKey> SchemaKey::Of(std::string_view key) {
    if (!StartsNoCase(key, kSchemaTable.prefix)) return std::nullopt;
    key.remove_prefix(kSchemaTable.prefix.size());
    const std::size_t mark = key.rfind('#');
    const std::size_t dot = key.substr(0, mark).rfind('.');
    if (mark == std::string_view::npos || dot == std::string_view::npos) return std::nullopt;
    const std::string_view stem = key.substr(0, dot);
    const SchemaKey found{Numbered(key.substr(mark + 1), kSlots),
                          Numbered(key.substr(dot + 1, mark - dot - 1), kMostTables),
                          EqualNoCase(stem, kSchemaTable.rows[0].stem)};
    const bool known = std::any_of(kSchemaTable.rows.begin(), kSchemaTable.rows.end(),
                                   [&](const auto& row) { return EqualNoCase(row.stem, stem); });
    if (!known || found.slot == 0 || found.table == 0) return std::nullopt;
    return found;
}

void CSchema::Initialize(int slot, int table) {
    Need(slot, SchemaKey::kSlots, "Initialize");
    Need(table, SchemaKey::kMostTables, "Initialize");
    Begin(table, "." + std::to_string(table) + "#" + std::to_string(slot));
    slot_ = slot;
}

void CSchema::Need(int number, int most, const char* operation) const {
    if (number >= 1 && number <= most) return;
    Fail(code::kOutOfRange, operation, {std::to_string(number), "1 to " + std::to_string(most)});
}

void CSchema::SetName(std::string_view name) {
    FixedText<8>& own = Fields().name;
    if (Trim(name).size() > kNameWidth) Fail(code::kTextTooLong, "Name");
    own.Assign(Trim(name));
}

const CTextList& CSchema::Types() const {
    return *detail::NeedList("DB.TYPES", Context());
}

std::vector<SchemaField> CSchema::AllFields() const {
    const SchemaFields& values = Values();
    std::vector<SchemaField> fields;
    for (std::size_t i = 0; i < static_cast<std::size_t>(FieldCount()); ++i) {
        fields.push_back({std::string(values.fieldName[i].Trimmed()),
                          std::string(values.fieldType[i].Trimmed()), values.keyed[i]});
    }
    return fields;
}

void CSchema::SetFields(const std::vector<SchemaField>& fields) {
    SchemaFields& own = Fields();
    if (!fields.empty()) Need(static_cast<int>(fields.size()), MaxFields(), "SetFields");
    for (const SchemaField& field : fields) {
        if (Trim(field.name).size() > kNameWidth) Fail(code::kTextTooLong, "SetFields");
        if (!Types().ValidateItem(field.type)) {
            Fail(code::kOutOfRange, "SetFields", {field.type, Types().TabDelimitedList()});
        }
    }
    const SchemaField none{{}, Types().Default(), false};
    for (std::size_t i = 0; i < own.fieldName.size(); ++i) {
        const SchemaField& field = i < fields.size() ? fields[i] : none;
        own.fieldName[i].Assign(Trim(field.name));
        own.fieldType[i].Assign(field.type);
        own.keyed[i] = field.keyed;
    }
}

void CSchema::InsertField(int at, const SchemaField& field) {
    Need(at, FieldCount() + 1, "InsertField");
    std::vector<SchemaField> fields = AllFields();
    fields.insert(fields.begin() + (at - 1), field);
    SetFields(fields);
}

void CSchema::RemoveField(int at) {
    Need(at, FieldCount(), "RemoveField");
    std::vector<SchemaField> fields = AllFields();
    fields.erase(fields.begin() + (at - 1));
    SetFields(fields);
}

void CSchema::MoveField(int from, int to) {
    Need(from, FieldCount(), "MoveField");
    Need(to, FieldCount(), "MoveField");
    std::vector<SchemaField> fields = AllFields();
    const SchemaField moved = fields[static_cast<std::size_t>(from - 1)];
    fields.erase(fields.begin() + (from - 1));
    fields.insert(fields.begin() + (to - 1), moved);
    SetFields(fields);
}

std::string CSchema::GetIWriteImportDef() const {
    if (Name().empty()) return {};
    const std::string name(Name());
    std::string declared, constants;
    int number = 0;
    for (const SchemaField& field : AllFields()) {
        ++number;
        if (field.name.empty()) continue;
        declared.append("    ").append(field.name).append(" : ").append(KeywordOf(field.type)).append("\r\n");
        constants.append(name).append("_").append(field.name).append(" : constant integer := ");
        constants.append(std::to_string(number)).append(";\r\n");
    }
    return "type " + name + "Record is\r\n  record\r\n" + declared + "  end record;\r\n" + "type " + name +
           "Database is\r\n  Database (\"" + name + "\")\r\n" + declared + "  end database;\r\n" + constants;
}

void CSchema::AddBrokenRules(CBrokenRules& rules, std::string_view section) const {
    const ResourceTexts& texts = Context().texts;
    const std::string table = Name().empty() ? std::to_string(Number()) : std::string(Name());
    const auto add = [&](const std::string& stem, std::string words) {
        rules.Add({std::string(section), Number(),
                   "DB." + stem + "." + std::to_string(Number()) + "#" + std::to_string(Slot()),
                   std::move(words)});
    };
    if (FieldCount() == 0) add("NAME", texts.Format(kNoFields, {table}));
    std::set<std::string> names;  // the language ignores case
    int number = 0;
    for (const SchemaField& field : AllFields()) {
        const std::string stem = "FIELD." + std::to_string(++number);
        if (field.name.empty()) {
            add(stem, texts.Format(kNamelessField, {std::to_string(number), table}));
        } else if (!names.insert(Upper(field.name)).second) {
            add(stem, texts.Format(kTwoFields, {table, field.name}));
        }
    }
}

}  // namespace calyx
