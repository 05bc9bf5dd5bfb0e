#include "ui/items/ctl_grid_page.h"

#include <QItemSelectionModel>
#include <QLabel>
#include <QVBoxLayout>

#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

ctlGridPage::ctlGridPage(DocumentSession& session, const QStringList& headings, GridSource source,
                         const QString& name, QWidget* foot)
    : ctlGridPage(new ctlGrid(session, new GridModel(session, headings, std::move(source), nullptr), name),
                  foot) {}

ctlGridPage::ctlGridPage(ctlGrid* grid, QWidget* foot) : grid_(grid), note_(new QLabel) {
    note_->setObjectName(QStringLiteral("cellNote"));
    note_->setTextFormat(Qt::PlainText);
    note_->setWordWrap(true);
    note_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    note_->setMinimumHeight(2 * note_->fontMetrics().lineSpacing());
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(metrics::kPageEdge, metrics::kRelated, metrics::kPageEdge, metrics::kGroups);
    column->setSpacing(metrics::kRelated);
    column->addWidget(grid_, 1);
    column->addWidget(note_);
    if (foot != nullptr) column->addWidget(foot);
    setFocusProxy(grid_);
    connect(grid_->selectionModel(), &QItemSelectionModel::currentChanged, this, &ctlGridPage::ShowNote);
    connect(&grid_->Model(), &GridModel::UntakenChanged, this, &ctlGridPage::ShowNote);
    ShowNote();
}

void ctlGridPage::ShowNote() {
    const QModelIndex current = grid_->currentIndex();
    const QString problem = grid_->Model().Problem(current);
    note_->setForegroundRole(problem.isEmpty() ? role::kQuietText : role::kProblem);
    note_->setText(problem.isEmpty() ? grid_->Model().Help(current) : problem);
}

}  // namespace calyx::ui
