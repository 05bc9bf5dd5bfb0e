#pragma once

#include <QAbstractListModel>
#include <vector>

#include "model/language/resource_texts.h"
#include "ui/panes/shown_lines.h"

namespace calyx::ui {

// The lines of the pane, as a list.
class LinesModel : public QAbstractListModel {
    Q_OBJECT

  public:
    enum Role { kKeyRole = Qt::UserRole, kChangedRole, kReasonRole };  // reason: empty where it is sent

    LinesModel(const ResourceTexts& texts, QObject* parent) : QAbstractListModel(parent), texts_(texts) {}

    const std::vector<ShownLine>& Lines() const { return lines_; }
    void SetLines(std::vector<ShownLine> lines);
    // The row of a key; -1 when there is none.
    int Find(const QString& key) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

  private:
    QString Reason(const ShownLine& line) const;

    const ResourceTexts& texts_;
    std::vector<ShownLine> lines_;
};

}  // namespace calyx::ui
