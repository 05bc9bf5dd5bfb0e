#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <vector>

#include "ui/panes/pane_list.h"

namespace calyx::ui {

// The rows of a pane as a table; the last column holds the actions.
class PaneModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    PaneModel(QStringList headings, QObject* parent)
        : QAbstractTableModel(parent), headings_(std::move(headings)) {}

    int ActionColumn() const { return static_cast<int>(headings_.size()); }
    const std::vector<PaneList::Row>& Rows() const { return rows_; }
    void SetRows(std::vector<PaneList::Row> rows);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    const PaneList::Row& At(const QModelIndex& index) const {
        return rows_[static_cast<std::size_t>(index.row())];
    }

    QStringList headings_;
    std::vector<PaneList::Row> rows_;
};

}  // namespace calyx::ui
