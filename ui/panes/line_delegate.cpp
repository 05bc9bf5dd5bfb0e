#include "ui/panes/line_delegate.h"

#include <QPainter>

#include "ui/panes/lines_model.h"
#include "ui/theme/icons.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

namespace {

constexpr int kMark = 16;  // column of the mark
constexpr int kLead = 3;   // above and below the text of a line

int LineHeight() {
    return QFontMetrics(FixedFont()).height() + 2 * kLead;
}

}  // namespace

void LineDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    const bool chosen = option.state.testFlag(QStyle::State_Selected);
    const QString reason = index.data(LinesModel::kReasonRole).toString();
    const QPalette& palette = option.palette;
    if (chosen) painter->fillRect(option.rect, palette.color(role::kAccent));
    const QColor text = palette.color(chosen             ? role::kOnAccent
                                      : reason.isEmpty() ? QPalette::Text
                                                         : role::kQuietText);

    painter->save();
    QRect line = option.rect.adjusted(metrics::kHalf, 0, -metrics::kHalf, 0);
    line.setHeight(LineHeight());
    if (index.data(LinesModel::kChangedRole).toBool()) {
        const QRect mark(line.left(), line.top() + (line.height() - kMark) / 2, kMark, kMark);
        Icon(IconName::Changed)
            .paint(painter, mark, Qt::AlignCenter, chosen ? QIcon::Selected : QIcon::Normal);
    }
    line.setLeft(line.left() + kMark);
    painter->setPen(text);
    painter->setFont(FixedFont());
    painter->drawText(
        line, Qt::AlignLeft | Qt::AlignVCenter,
        painter->fontMetrics().elidedText(index.data().toString(), Qt::ElideRight, line.width()));
    if (!reason.isEmpty()) {
        line.moveTop(line.bottom() + 1 - kLead);
        painter->setFont(TextFont(TextSize::Small));
        painter->drawText(line, Qt::AlignLeft | Qt::AlignTop,
                          painter->fontMetrics().elidedText(reason, Qt::ElideRight, line.width()));
    }
    painter->restore();
}

QSize LineDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const {
    int height = LineHeight();
    if (!index.data(LinesModel::kReasonRole).toString().isEmpty()) {
        height += QFontMetrics(TextFont(TextSize::Small)).height();
    }
    return {0, height};
}

}  // namespace calyx::ui
