#include "ui/panes/pane_list.h"

#include <QHeaderView>
#include <QLabel>
#include <QShortcut>
#include <QTreeView>
#include <algorithm>

#include "ui/panes/pane_model.h"
#include "ui/theme/metrics.h"
#include "ui/theme/tokens.h"

namespace calyx::ui {

namespace {
constexpr int kMeasuredRows = 200;  // that decide the width of columns
}

PaneList::PaneList(const QString& name, QStringList headings, int wide, QWidget* parent)
    : QStackedWidget(parent),
      model_(new PaneModel(std::move(headings), this)),
      view_(new QTreeView),
      empty_(new QLabel) {
    view_->setModel(model_);
    view_->setAccessibleName(name);
    view_->setRootIsDecorated(false);
    view_->setUniformRowHeights(true);
    view_->setAllColumnsShowFocus(true);
    view_->setFrameShape(QFrame::NoFrame);
    view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    QHeaderView* header = view_->header();
    header->setStretchLastSection(false);
    header->setResizeContentsPrecision(kMeasuredRows);
    header->setSectionsMovable(false);
    header->setHighlightSections(false);
    for (int column = 0; column <= model_->ActionColumn(); ++column) {
        header->setSectionResizeMode(column,
                                     column == wide ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
    }

    empty_->setWordWrap(true);
    empty_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    empty_->setForegroundRole(role::kQuietText);
    empty_->setMargin(metrics::kGroups);

    addWidget(view_);
    addWidget(empty_);
    setCurrentWidget(empty_);

    connect(view_, &QTreeView::activated, this, [this](const QModelIndex& index) { Choose(index.row()); });
    connect(view_, &QTreeView::clicked, this, [this](const QModelIndex& index) {
        if (index.column() == model_->ActionColumn()) Act(index.row());
    });
    auto* act = new QShortcut(Qt::Key_Space, view_, nullptr, nullptr, Qt::WidgetShortcut);
    connect(act, &QShortcut::activated, this, [this] {
        if (view_->currentIndex().isValid()) Act(view_->currentIndex().row());
    });
}

void PaneList::SetEmptyText(const QString& text) {
    empty_->setText(text);
}

const std::vector<PaneList::Row>& PaneList::Rows() const {
    return model_->Rows();
}

void PaneList::SetRows(std::vector<Row> rows) {
    if (rows == Rows()) return;
    const QModelIndex current = view_->currentIndex();
    const Row before = current.isValid() ? Rows()[static_cast<std::size_t>(current.row())] : Row();
    model_->SetRows(std::move(rows));
    setCurrentWidget(Rows().empty() ? static_cast<QWidget*>(empty_) : view_);
    const auto again = std::find_if(Rows().begin(), Rows().end(), [&before](const Row& row) {
        return row.key == before.key && row.cells.value(0) == before.cells.value(0);
    });
    if (current.isValid() && again != Rows().end()) {
        view_->setCurrentIndex(model_->index(static_cast<int>(again - Rows().begin()), 0));
    }
}

QString PaneList::AsText() const {
    QString text;
    for (const Row& row : Rows()) text += row.cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
    return text;
}

void PaneList::Act(int row) {
    const Row acted = Rows()[static_cast<std::size_t>(row)];
    if (!acted.action.isEmpty()) emit Acted(acted.key);
}

void PaneList::Choose(int row) {
    const QString key = Rows()[static_cast<std::size_t>(row)].key;
    if (!key.isEmpty()) emit Chosen(key);
}

}  // namespace calyx::ui
