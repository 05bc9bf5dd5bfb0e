#include "ui/window/finder.h"

#include <algorithm>

#include "ui/text.h"

namespace calyx::ui {

namespace {

enum Rank { kKeyStarts, kLabelStarts, kLabelHolds, kKeyHolds, kValueHolds, kHelpHolds, kNowhere };

// Where one word is found best.
int RankOfWord(const Finder::Hit& hit, const QString& written, const QString& help, const QString& word) {
    const auto holds = [&word](const QString& text) { return text.contains(word, Qt::CaseInsensitive); };
    const auto starts = [&word](const QString& text) { return text.startsWith(word, Qt::CaseInsensitive); };
    if (starts(hit.key)) return kKeyStarts;
    if (starts(hit.label)) return kLabelStarts;
    if (holds(hit.label)) return kLabelHolds;
    if (holds(hit.key)) return kKeyHolds;
    if (holds(hit.value) || holds(written)) return kValueHolds;
    if (holds(help) || holds(hit.where)) return kHelpHolds;
    return kNowhere;
}

}  // namespace

void Finder::Read(const CIndicator& document) {
    const ResourceTexts& texts = document.Context().texts;
    entries_.clear();
    for (const Section* section : document.Sections()) {
        const QString title = Say(texts, section->Title());
        for (const Item* item : section->Items()) {
            const std::string itemTitle = section->ItemTitle(*item);
            const QString where = itemTitle.empty() ? title : title + QStringLiteral(", ") + Shown(itemTitle);
            for (std::size_t row = 0; row < item->RowCount(); ++row) {
                const More& more = item->Info(row).more;
                const QString key = KeyText(item->Key(row));
                const QString group =
                    more.group == 0 ? QString() : QStringLiteral(" · ") + Say(texts, more.group);
                entries_.push_back({{key, more.label == 0 ? key : Say(texts, more.label),
                                     ShownValue(DisplayText(*item, row)), where + group},
                                    ShownValue(item->Text(row)),
                                    more.help == 0 ? QString() : Say(texts, more.help)});
            }
        }
    }
}

int Finder::RankOf(const Entry& entry, const QStringList& words) {
    int rank = kKeyStarts;
    for (const QString& word : words) {
        rank = std::max(rank, RankOfWord(entry.hit, entry.written, entry.help, word));
    }
    return rank;
}

Finder::Result Finder::Find(const QString& typed, std::size_t most) const {
    const QStringList words = typed.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    Result result;
    if (words.isEmpty()) return result;
    for (const Entry& entry : entries_) {
        const int rank = RankOf(entry, words);
        if (rank == kNowhere) continue;
        result.hits.push_back(entry.hit);
        result.hits.back().rank = rank;
    }
    std::stable_sort(result.hits.begin(), result.hits.end(),
                     [](const Hit& a, const Hit& b) { return a.rank < b.rank; });
    if (result.hits.size() > most) {
        result.more = result.hits.size() - most;
        result.hits.resize(most);
    }
    return result;
}

}  // namespace calyx::ui
