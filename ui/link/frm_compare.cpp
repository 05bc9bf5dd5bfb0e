#include "ui/link/frm_compare.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeView>
#include <algorithm>

#include "ui/dialogs/screen_fit.h"
#include "ui/panes/pane_list.h"
#include "ui/panes/where.h"
#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/metrics.h"

namespace calyx::ui {

namespace {
constexpr int kWhere = 0, kCaption = 1, kBefore = 3;  // columns; kept lines have no captions
constexpr int kWhereWidth = 160;                      // pixels
}  // namespace

frmCompare::frmCompare(const ChangeSet& changes, const CIndicator& before, const CIndicator& after,
                       const Sides& sides, QWidget* parent)
    : QDialog(parent) {
    const ResourceTexts& texts = before.Context().texts;
    setObjectName(QStringLiteral("frmCompare"));
    setWindowTitle(sides.title);
    setAttribute(Qt::WA_DeleteOnClose);
    auto* count = new QLabel(
        changes.Empty() ? sides.same : Say(texts, say::kCompareCount, QString::number(changes.Count())));
    count->setObjectName(QStringLiteral("lblCount"));
    count->setWordWrap(true);

    auto* list = new PaneList(Say(texts, say::kCompareList),
                              {Say(texts, say::kWhereHeading), Say(texts, say::kParameterHeading),
                               Say(texts, say::kKeyHeading), sides.before, sides.after},
                              4);
    list->setObjectName(QStringLiteral("differences"));
    const auto side = [&texts](const std::optional<std::string>& value) {
        return value ? ShownValue(*value) : Say(texts, say::kNoLine);
    };
    std::vector<PaneList::Row> rows;
    for (const Change& change : changes.Changes()) {
        const CIndicator& holder = change.before ? before : after;
        rows.push_back({.cells = {WhereWords(holder, change.key), LabelOf(holder, change.key),
                                  ShownValue(change.key), side(change.before), side(change.after)},
                        .key = KeyText(change.key),
                        .action = Say(texts, say::kGoTo)});
    }
    const bool captions = std::any_of(
        rows.begin(), rows.end(), [](const PaneList::Row& row) { return !row.cells[kCaption].isEmpty(); });
    list->SetRows(std::move(rows));
    list->View()->setColumnHidden(kCaption, !captions);
    QHeaderView* header = list->View()->header();
    header->setSectionResizeMode(kWhere, QHeaderView::Interactive);
    header->resizeSection(kWhere, kWhereWidth);
    header->setSectionResizeMode(kBefore, QHeaderView::Stretch);  // as much room as the other side has
    list->setVisible(!changes.Empty());
    const auto goTo = [this](const QString& key) {
        emit Chosen(key);
        accept();
    };
    connect(list, &PaneList::Chosen, this, goTo);
    connect(list, &PaneList::Acted, this, goTo);

    auto* close = new QPushButton(Say(texts, say::kCloseMnemonic));
    close->setObjectName(QStringLiteral("cmdClose"));
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(close);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(metrics::kGroups, metrics::kGroups, metrics::kGroups, metrics::kGroups);
    all->setSpacing(metrics::kGroups);
    all->addWidget(count);
    all->addWidget(list, 1);
    if (changes.Empty()) all->addStretch();
    all->addLayout(buttons);
    resize(FitScreen(*this, changes.Empty() ? QSize(440, 140) : QSize(860, 480)));
}

}  // namespace calyx::ui
