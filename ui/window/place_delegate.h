#pragma once

#include <QStyledItemDelegate>

namespace calyx::ui {

// A row of the navigation with the number of its problems at the right end.
class PlaceDelegate : public QStyledItemDelegate {
    Q_OBJECT

  public:
    enum Role { kPlaceRole = Qt::UserRole, kCountRole };

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace calyx::ui
