#include "ui/panes/where.h"

#include "ui/text.h"

namespace calyx::ui {

QString WhereWords(const CIndicator& document, std::string_view key) {
    for (const Section* section : document.Sections()) {
        if (!section->Owns(key)) continue;
        const QString item = ItemWords(document, key);
        return Say(document.Context().texts, section->Title()) +
               (item.isEmpty() ? QString() : QStringLiteral(", ") + item);
    }
    return {};
}

QString ItemWords(const CIndicator& document, std::string_view key) {
    for (const Section* section : document.Sections()) {
        for (const Item* item : section->Items()) {
            if (item->Find(key)) return Shown(section->ItemTitle(*item));
        }
    }
    return {};
}

QString LabelOf(const CIndicator& document, std::string_view key) {
    for (const Section* section : document.Sections()) {
        for (const Item* item : section->Items()) {
            const auto row = item->Find(key);
            if (!row) continue;
            const int label = item->Info(*row).more.label;
            return label == 0 ? QString() : Say(document.Context().texts, label);
        }
    }
    return {};
}

}  // namespace calyx::ui
