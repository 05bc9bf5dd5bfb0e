#pragma once

#include <QStyledItemDelegate>

namespace calyx::ui {

// Draws what was found: label and value, and below them key and place.
class HitDelegate : public QStyledItemDelegate {
    Q_OBJECT

  public:
    enum Role { kKeyRole = Qt::UserRole, kValueRole, kWhereRole };

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace calyx::ui
