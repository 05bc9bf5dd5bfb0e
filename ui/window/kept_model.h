#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "ui/document_session.h"
#include "ui/window/places.h"

namespace calyx::ui {

// Key and value of the lines of a place; values can be edited.
class KeptModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    KeptModel(DocumentSession& session, const Place& place, QObject* parent)
        : QAbstractTableModel(parent), session_(session), place_(place) {}

    void Refresh();
    int Find(const QString& key) const;  // row; -1: none
    QString KeyAt(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    DocumentSession& session_;
    const Place& place_;
    std::vector<KeyValue> lines_;
    std::vector<bool> changed_;
};

}  // namespace calyx::ui
