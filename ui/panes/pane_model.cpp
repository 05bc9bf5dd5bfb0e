#include "ui/panes/pane_model.h"

#include <QApplication>
#include <QFont>

#include "ui/theme/icons.h"
#include "ui/theme/tokens.h"

namespace calyx::ui {

void PaneModel::SetRows(std::vector<PaneList::Row> rows) {
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

int PaneModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int PaneModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ActionColumn() + 1;
}

QVariant PaneModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const PaneList::Row& row = At(index);
    const bool action = index.column() == ActionColumn();
    switch (role) {
        case Qt::DisplayRole:
            return action ? row.action : row.cells.value(index.column());
        case Qt::ToolTipRole:
            return action ? QString() : row.cells.value(index.column());
        case Qt::DecorationRole:
            return index.column() == 0 && row.problem ? QVariant(Icon(IconName::Problem)) : QVariant();
        case Qt::ForegroundRole:
            return action ? QVariant(QApplication::palette().brush(QPalette::Link)) : QVariant();
        case Qt::FontRole: {
            if (!action) return {};
            QFont font = QApplication::font();
            font.setUnderline(true);
            return font;
        }
        default:
            return {};
    }
}

QVariant PaneModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::DisplayRole) return headings_.value(section);
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter));
    return {};
}

}  // namespace calyx::ui
