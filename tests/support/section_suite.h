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
            const double low = info.more.HasRange() ? info.more.min : 1;
            const std::string text = std::to_string(static_cast<int>(low) + 1);
            return text == now ? std::to_string(static_cast<int>(low) + 2) : text;
        }
        case ValueKind::Text:
            break;
    }
    return info.width == 1 ? "x" : "xy";
}

// The lines of a section as a dictionary, as if read from a file.
inline Dictionary AsFile(const Section& section) {
    return Dictionary(section.StoreState());
}

}  // namespace calyx::test
