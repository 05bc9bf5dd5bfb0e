#include "ui/window/finder.h"

#include <algorithm>

#include "model/language/text.h"
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

void Finder::Read(const CIndicator& document, const Marks& marks) {
    const ResourceTexts& texts = document.Context().texts;
    entries_.clear();
    for (const Section* section : document.Sections()) {
        const QString title = Say(texts, section->Title());
        for (const Item* item : section->Items()) {
            const std::string itemTitle = section->ItemTitle(*item);
            const QString where = itemTitle.empty() ? title : title + QStringLiteral(", ") + Shown(itemTitle);
            ReadItem(*item, where, marks, texts);
        }
    }
}

void Finder::ReadItem(const Item& item, const QString& where, const Marks& marks,
                      const ResourceTexts& texts) {
    const std::vector<bool> written = item.WrittenRows();
    const auto initial = item.Clone();
    for (std::size_t row = 0; row < item.RowCount(); ++row) {
        const More& more = item.Info(row).more;
        const std::string name = item.Key(row), text = item.Text(row);
        const QString key = KeyText(name);
        const QString group = more.group == 0 ? QString() : QStringLiteral(" · ") + Say(texts, more.group);
        // Only what a page shows has a default that somebody could want back.
        bool differs = false;
        if (written[row] && more.group != 0 && more.use != Use::ReadOnly) {
            initial->Take(row, item.InitialText(row));
            differs = initial->Text(row) != text;
        }
        const std::string capitals = Upper(name);
        const unsigned holds = (marks.changed.contains(capitals) ? kChanged : 0u) |
                               (differs ? kNotDefault : 0u) |
                               (marks.problems.contains(capitals) ? kProblems : 0u);
        entries_.push_back({{key, more.label == 0 ? key : Say(texts, more.label),
                             ShownValue(DisplayText(item, row)), where + group},
                            ShownValue(text),
                            more.help == 0 ? QString() : Say(texts, more.help),
                            holds});
    }
}

int Finder::RankOf(const Entry& entry, const QStringList& words) {
    int rank = kKeyStarts;
    for (const QString& word : words) {
        rank = std::max(rank, RankOfWord(entry.hit, entry.written, entry.help, word));
    }
    return rank;
}

Finder::Result Finder::Find(const QString& typed, std::size_t most, unsigned filters) const {
    const QStringList words = typed.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    Result result;
    if (words.isEmpty() && filters == 0) return result;
    for (const Entry& entry : entries_) {
        if ((entry.holds & filters) != filters) continue;
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
