#include "ui/window/place_delegate.h"

#include <QPainter>

#include "ui/theme/icons.h"
#include "ui/theme/metrics.h"
#include "ui/theme/tokens.h"

namespace calyx::ui {

void PlaceDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    const int count = index.data(kCountRole).toInt();
    if (count == 0) return;
    const bool chosen = option.state.testFlag(QStyle::State_Selected);
    const QString number = QString::number(count);
    QRect room = option.rect.adjusted(0, 0, -metrics::kRelated, 0);
    painter->save();
    painter->setFont(option.font);
    painter->setPen(option.palette.color(chosen ? role::kOnAccent : role::kProblem));
    painter->drawText(room, Qt::AlignRight | Qt::AlignVCenter, number);
    room.setRight(room.right() - option.fontMetrics.horizontalAdvance(number) - metrics::kHalf);
    room.setLeft(room.right() - metrics::kIconSmall);
    Icon(IconName::Problem).paint(painter, room, Qt::AlignCenter, chosen ? QIcon::Selected : QIcon::Normal);
    painter->restore();
}

QSize PlaceDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    return {0, metrics::kControlHeight};
}

}  // namespace calyx::ui
