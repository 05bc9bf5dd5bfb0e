#include "ui/window/hit_delegate.h"

#include <QPainter>

#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

namespace {
constexpr int kLead = 4;  // above the first and below the second line
}

void HitDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    const bool chosen = option.state.testFlag(QStyle::State_Selected);
    const QPalette& palette = option.palette;
    if (chosen) painter->fillRect(option.rect, palette.color(role::kAccent));
    const QColor text = palette.color(chosen ? role::kOnAccent : QPalette::Text);
    const QColor quiet = palette.color(chosen ? role::kOnAccent : role::kQuietText);
    const QFontMetrics body(TextFont(TextSize::Body));
    const QRect area = option.rect.adjusted(metrics::kRelated, kLead, -metrics::kRelated, -kLead);

    painter->save();
    painter->setFont(TextFont(TextSize::Body));
    QRect line(area.left(), area.top(), area.width(), body.height());
    const QString value =
        body.elidedText(index.data(kValueRole).toString(), Qt::ElideRight, line.width() / 2);
    painter->setPen(quiet);
    painter->drawText(line, Qt::AlignRight | Qt::AlignVCenter, value);
    painter->setPen(text);
    const int room = line.width() - body.horizontalAdvance(value) - metrics::kRelated;
    painter->drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                      body.elidedText(index.data().toString(), Qt::ElideRight, room));

    painter->setFont(TextFont(TextSize::Small));
    painter->setPen(quiet);
    line = QRect(area.left(), line.bottom() + 1, area.width(), area.bottom() - line.bottom());
    const QString below =
        index.data(kKeyRole).toString() + QStringLiteral("  ") + index.data(kWhereRole).toString();
    painter->drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                      painter->fontMetrics().elidedText(below, Qt::ElideRight, line.width()));
    painter->restore();
}

QSize HitDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    const int height = QFontMetrics(TextFont(TextSize::Body)).height() +
                       QFontMetrics(TextFont(TextSize::Small)).height() + 2 * kLead;
    return {0, height};  // as wide as the list
}

}  // namespace calyx::ui
