#include "ui/database/schema_edits.h"

#include <algorithm>
#include <utility>

#include "model/language/text.h"

namespace calyx::ui {

bool EditCard(DocumentSession& session, int slot, const std::string& step,
              const std::function<void(CMemoryCard& card)>& act) {
    CMemoryCard card = std::as_const(session).Document().Hardware().MemoryCard(slot);
    const auto before = ReadLines(card.StoreState());
    act(card);
    const ChangeSet changes = Difference(before, ReadLines(card.StoreState()));
    if (changes.Empty()) return false;
    session.Do(step, [&](CIndicator& document) { return document.Apply(changes); });
    return true;
}

std::string FreeFieldName(const std::vector<SchemaField>& fields) {
    for (int number = static_cast<int>(fields.size()) + 1;; ++number) {
        const std::string name = "Field" + std::to_string(number);
        const auto has = [&](const SchemaField& field) { return EqualNoCase(field.name, name); };
        if (std::none_of(fields.begin(), fields.end(), has)) return name;
    }
}

std::string FreeTableName(const CMemoryCard& card) {
    const std::vector<int> tables = card.Schemas();
    for (int number = static_cast<int>(tables.size()) + 1;; ++number) {
        const std::string name = "Table" + std::to_string(number);
        const auto has = [&](int table) { return EqualNoCase(card.Schema(table).Name(), name); };
        if (std::none_of(tables.begin(), tables.end(), has)) return name;
    }
}

int TablesIn(std::string_view lines) {
    const auto read = ReadLines(lines);
    return static_cast<int>(std::count_if(read.begin(), read.end(), [](const KeyValue& line) {
        const auto key = SchemaKey::Of(line.key);
        return key && key->isName;
    }));
}

}  // namespace calyx::ui
