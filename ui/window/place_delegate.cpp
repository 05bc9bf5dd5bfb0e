#include "ui/window/place_delegate.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>

#include "ui/theme/icons.h"
#include "ui/theme/metrics.h"
#include "ui/theme/tokens.h"

namespace calyx::ui {

void PlaceDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
    QStyleOptionViewItem shown = option;
    initStyleOption(&shown, index);
    const QStyle& style = option.widget == nullptr ? *QApplication::style() : *option.widget->style();
    const int count = index.data(kCountRole).toInt();
    const QString number = QString::number(count);
    QRect room = option.rect.adjusted(0, 0, -metrics::kRelated, 0);
    const int numberWidth = option.fontMetrics.horizontalAdvance(number) + metrics::kHalf;
    if (count != 0) {
        const int mark = numberWidth + metrics::kIconSmall + metrics::kHalf;
        const int begin = style.subElementRect(QStyle::SE_ItemViewItemText, &shown, option.widget).left();
        shown.text = shown.fontMetrics.elidedText(shown.text, Qt::ElideRight, room.right() - mark - begin);
    }
    style.drawControl(QStyle::CE_ItemViewItem, &shown, painter, option.widget);
    if (count == 0) return;
    const bool chosen = option.state.testFlag(QStyle::State_Selected);
    painter->save();
    painter->setFont(option.font);
    painter->setPen(option.palette.color(chosen ? role::kOnAccent : role::kProblem));
    painter->drawText(room, Qt::AlignRight | Qt::AlignVCenter, number);
    room.setRight(room.right() - numberWidth);
    room.setLeft(room.right() - metrics::kIconSmall);
    Icon(IconName::Problem).paint(painter, room, Qt::AlignCenter, chosen ? QIcon::Selected : QIcon::Normal);
    painter->restore();
}

QSize PlaceDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    return {0, metrics::kControlHeight};
}

}  // namespace calyx::ui
