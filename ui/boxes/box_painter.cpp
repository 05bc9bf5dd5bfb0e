#include "ui/boxes/box_painter.h"

#include <QPainter>
#include <QPainterPath>

#include "ui/boxes/boxes_texts.h"
#include "ui/text.h"
#include "ui/theme/icon_shapes.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

using namespace boxes_text;

namespace {
constexpr double kRound = 4, kThick = 2, kMark = metrics::kIconSmall;
}

void BoxPainter::Draw(const BoxPlan& plan, const BoxMarks& marks) {
    painter_.setRenderHint(QPainter::Antialiasing);
    DrawLanes(plan);
    for (const BoxPlan::Band& band : plan.bands) DrawBand(band, plan, marks.drop == band.platform);
    DrawLinks(plan);
    for (std::size_t i = 0; i < plan.parts.size(); ++i)
        DrawPart(plan.parts[i], marks, marks.hasFocus && marks.focus == static_cast<int>(i));
    DrawDragged(marks);
}

void BoxPainter::DrawLanes(const BoxPlan& plan) {
    painter_.setFont(TextFont(TextSize::Small));
    painter_.setPen(Colour(role::kQuietText));
    for (std::size_t i = 0; i < std::size(plan.lanes); ++i)
        painter_.drawText(plan.lanes[i], Qt::AlignLeft | Qt::AlignVCenter, Say(texts_, kLanes[i]));
}

void BoxPainter::DrawBand(const BoxPlan::Band& band, const BoxPlan& plan, bool drop) {
    const bool warns = band.platform == 0 && plan.unassigned > 0;
    QPen pen(Colour(drop ? role::kAccent : warns ? role::kProblem : role::kDivider), drop ? kThick : 1);
    if (band.platform == 0 && !drop) pen.setStyle(Qt::DashLine);
    painter_.setPen(pen);
    painter_.setBrush(Colour(role::kRaised));
    painter_.drawRoundedRect(band.rect, kRound, kRound);
    if (band.title.isEmpty()) return;
    QRectF title = band.rect.adjusted(metrics::kRelated, metrics::kRelated, -metrics::kRelated, 0);
    painter_.setFont(warns ? StrongFont() : TextFont(TextSize::Body));
    title.setHeight(QFontMetricsF(painter_.font()).height());
    if (warns) {
        DrawProblem({title.left(), title.center().y() - kMark / 2}, Colour(role::kProblem));
        title.setLeft(title.left() + kMark + metrics::kHalf);
    }
    painter_.setPen(Colour(warns ? role::kProblem : role::kQuietText));
    painter_.drawText(title, Qt::AlignLeft | Qt::AlignVCenter, band.title);
}

// Bands with cells lead to their platforms, platforms of the system to it.
void BoxPainter::DrawLinks(const BoxPlan& plan) {
    const BoxPlan::Part& system = plan.parts.back();
    for (const BoxPlan::Part& part : plan.parts) {
        if (part.kind != BoxPlan::Kind::Platform) continue;
        const auto& band = plan.bands[static_cast<std::size_t>(part.number)];  // behind that of no platform
        const double y = part.rect.center().y();
        bool hasCells = false;
        for (const BoxPlan::Part& cell : plan.parts)
            hasCells = hasCells || (cell.kind == BoxPlan::Kind::Cell && cell.platform == part.number);
        if (hasCells) DrawArrow({band.rect.right(), y}, {part.rect.left(), y}, 0);
        if (!part.used) continue;
        const double bend = (part.rect.right() + system.rect.left()) / 2 - metrics::kHalf;
        DrawArrow({part.rect.right(), y}, {system.rect.left(), system.rect.center().y()}, bend);
    }
}

// `bend`: where the line turns up or down; 0: it is straight.
void BoxPainter::DrawArrow(const QPointF& from, const QPointF& to, double bend) {
    constexpr double kHead = 5;
    QPainterPath path(from);
    if (bend > 0) {
        path.lineTo(bend, from.y());
        path.lineTo(bend, to.y());
    }
    path.lineTo(to);
    path.moveTo(to + QPointF(-kHead, -kHead));
    path.lineTo(to);
    path.lineTo(to + QPointF(-kHead, kHead));
    painter_.setBrush(Qt::NoBrush);
    painter_.setPen(QPen(Colour(role::kIcon), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter_.drawPath(path);
}

void BoxPainter::DrawPart(const BoxPlan::Part& part, const BoxMarks& marks, bool focused) {
    const bool isCell = part.kind == BoxPlan::Kind::Cell;
    const bool chosen = isCell && marks.cells.contains(part.number);
    const bool free = isCell && part.platform == 0;
    const bool drop = part.kind == BoxPlan::Kind::System && marks.dropOnSystem;
    QPen pen(Colour(part.broken || free ? role::kProblem : role::kBorder));
    if (free || !part.used) pen.setStyle(Qt::DashLine);
    if (drop) pen = QPen(Colour(role::kAccent), kThick);
    if (chosen) pen = QPen(Colour(role::kAccent));
    painter_.setPen(pen);
    painter_.setBrush(Colour(chosen ? role::kAccent : role::kField));
    painter_.drawRoundedRect(part.rect, kRound, kRound);
    const QColor text = Colour(chosen ? role::kOnAccent : role::kText);
    isCell ? DrawCell(part, text) : DrawBox(part, text);
    if (!focused) return;
    painter_.setPen(QPen(Colour(role::kAccent), kThick));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRoundedRect(part.rect.adjusted(-2.5, -2.5, 2.5, 2.5), kRound + 2, kRound + 2);
}

void BoxPainter::DrawCell(const BoxPlan::Part& part, const QColor& text) {
    QRectF room = part.rect.adjusted(metrics::kRelated, 0, -metrics::kRelated, 0);
    if (part.broken) {
        const bool chosen = text == Colour(role::kOnAccent);
        DrawProblem({room.right() - kMark, room.center().y() - kMark / 2},
                    chosen ? text : Colour(role::kProblem));
        room.setRight(room.right() - kMark - metrics::kHalf);
    }
    painter_.setPen(text);
    painter_.setFont(StrongFont());
    painter_.drawText(room, Qt::AlignLeft | Qt::AlignVCenter, part.name);
    // Names stand below one another, behind numbers of two digits.
    room.setLeft(room.left() + QFontMetricsF(painter_.font()).horizontalAdvance(QStringLiteral("00")) +
                 metrics::kRelated);
    painter_.setFont(TextFont(TextSize::Small));
    const QString words = QFontMetricsF(painter_.font()).elidedText(part.words, Qt::ElideRight, room.width());
    painter_.drawText(room, Qt::AlignLeft | Qt::AlignVCenter, words);
}

void BoxPainter::DrawBox(const BoxPlan::Part& part, const QColor& text) {
    QRectF room = part.rect.adjusted(metrics::kRelated, metrics::kHalf, -metrics::kRelated, -metrics::kHalf);
    if (part.broken) {
        DrawProblem({room.right() - kMark, room.top() + metrics::kHalf}, Colour(role::kProblem));
        room.setRight(room.right() - kMark - metrics::kHalf);
    }
    const QRectF upper(room.left(), room.top(), room.width(), room.height() / 2);
    painter_.setPen(text);
    painter_.setFont(StrongFont());
    painter_.drawText(upper, Qt::AlignLeft | Qt::AlignVCenter,
                      QFontMetricsF(painter_.font()).elidedText(part.name, Qt::ElideRight, upper.width()));
    painter_.setPen(Colour(role::kQuietText));
    painter_.setFont(TextFont(TextSize::Small));
    const QRectF lower(room.left(), upper.bottom(), part.rect.width() - 2 * metrics::kRelated,
                       room.height() / 2);
    painter_.drawText(lower, Qt::AlignLeft | Qt::AlignVCenter,
                      QFontMetricsF(painter_.font()).elidedText(part.words, Qt::ElideRight, lower.width()));
}

void BoxPainter::DrawDragged(const BoxMarks& marks) {
    if (!marks.dragged) return;
    painter_.setFont(StrongFont());
    const double wide =
        QFontMetricsF(painter_.font()).horizontalAdvance(marks.draggedWords) + 2 * metrics::kRelated;
    const QRectF tile(marks.dragged->x() + metrics::kRelated, marks.dragged->y() + metrics::kRelated, wide,
                      metrics::kControlHeight);
    painter_.setPen(QPen(Colour(role::kAccent)));
    painter_.setBrush(Colour(role::kAccent));
    painter_.drawRoundedRect(tile, kRound, kRound);
    painter_.setPen(Colour(role::kOnAccent));
    painter_.drawText(tile, Qt::AlignCenter, marks.draggedWords);
}

void BoxPainter::DrawProblem(const QPointF& corner, const QColor& colour) {
    DrawStrokes(painter_, corner, kMark, colour, IconStrokes(IconName::Problem));
}

}  // namespace calyx::ui
