#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "model/language/section.h"
#include "tests/support/model_fixture.h"

namespace calyx::test {

// What every section must do, whatever its parameters are. A section joins by one line in
// tests/document/sections_test.cpp.
struct SectionCase {
    std::string name;  // as in Section::Name
    std::function<std::unique_ptr<Section>(const ModelContext&)> make;
    std::string base = {};  // lines that give it items of every kind, with all their lines
    std::map<std::string, std::string> others = {};  // texts for rows that take no usual one, by key
};

inline void PrintTo(const SectionCase& section, std::ostream* out) {
    *out << section.name;
}

// Another allowed text for a row: the next word of the list, a number in the range, a text that fits.
inline std::string OtherText(const SectionCase& section, const Item& item, std::size_t row) {
    if (const auto other = section.others.find(item.Key(row)); other != section.others.end()) {
        return other->second;
    }
    const RowInfo& info = item.Info(row);
    const std::string now = item.Text(row);
    if (const CTextList* list = item.List(row)) {
        for (const auto& entry : *list) {
            if (entry.key != now) return entry.key;
        }
        return {};
    }
    switch (info.kind) {
        case ValueKind::Switch: {
            const bool capitals = now == "ON" || now == "OFF";
            return now == "ON" || now == "True" ? (capitals ? "OFF" : "False") : (capitals ? "ON" : "True");
        }
        case ValueKind::Date:
            return now == "04152027" ? "12312026" : "04152027";
        case ValueKind::Integer:
        case ValueKind::Decimal: {
            // The row may write a word around the number.
            const int low = info.more.HasRange() ? static_cast<int>(info.more.min) : 1;
            const auto other = item.Clone();
            other->Take(row, std::to_string(low + 1));
            return std::to_string(other->Text(row) == now ? low + 2 : low + 1);
        }
        case ValueKind::Text:
            break;
    }
    return info.width == 1 ? "x" : "xy";
}

}  // namespace calyx::test
