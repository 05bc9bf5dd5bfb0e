#include "ui/link/frm_compare.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "ui/panes/pane_list.h"
#include "ui/panes/where.h"
#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/metrics.h"

namespace calyx::ui {

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
                        .key = KeyText(change.key)});
    }
    list->SetRows(std::move(rows));
    list->setVisible(!changes.Empty());
    connect(list, &PaneList::Chosen, this, [this](const QString& key) {
        emit Chosen(key);
        accept();
    });

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
    resize(changes.Empty() ? QSize(440, 140) : QSize(860, 480));
}

}  // namespace calyx::ui
