#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "ui/document_session.h"
#include "ui/form/item_ref.h"
#include "ui/window/places.h"

namespace calyx::ui {

// The items of a place, one a row, with the columns that matter. Filled by Refresh; a document may gain
// and lose items.
class ItemsModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    ItemsModel(DocumentSession& session, const Place& place, QObject* parent)
        : QAbstractTableModel(parent), session_(session), place_(place) {}

    void Refresh();
    ItemRef At(int row) const { return rows_[static_cast<std::size_t>(row)].ref; }
    QString TitleAt(int row) const { return rows_[static_cast<std::size_t>(row)].cells.front(); }
    int Find(const ItemRef& ref) const;  // -1: not there
    int FindKey(const QString& key) const;
    Qt::Alignment AlignmentOf(int column) const;  // numbers and their heading stand on the right

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    struct Row {
        ItemRef ref;
        QStringList cells;  // the first is the title
        QString problem;    // the first broken rule
        bool changed = false;
        bool isSet = true;  // writes more than a line that says that it is not in use
        friend bool operator==(const Row&, const Row&) = default;
    };
    std::vector<Row> ReadRows() const;
    void AlignColumns();

    DocumentSession& session_;
    const Place& place_;
    QStringList headings_;
    std::vector<Row> rows_;
    std::vector<bool> figures_;  // by column
};

}  // namespace calyx::ui
