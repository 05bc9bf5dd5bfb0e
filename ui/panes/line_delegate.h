#pragma once

#include <QStyledItemDelegate>

namespace calyx::ui {

// Draws a line of the pane: mark of a change, the line in the fixed-width font, and below a line that is
// not sent, why. Such a line is in quiet text besides.
class LineDelegate : public QStyledItemDelegate {
    Q_OBJECT

  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace calyx::ui
