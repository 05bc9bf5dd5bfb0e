#include "ui/panes/where.h"

#include "ui/text.h"

namespace calyx::ui {

QString WhereWords(const CIndicator& document, std::string_view key) {
    for (const Section* section : document.Sections()) {
        if (!section->Owns(key)) continue;
        QString words = Say(document.Context().texts, section->Title());
        for (const Item* item : section->Items()) {
            const std::string title = item->Find(key) ? section->ItemTitle(*item) : std::string();
            if (!title.empty()) words += QStringLiteral(", ") + Shown(title);
        }
        return words;
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
