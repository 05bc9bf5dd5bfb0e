#include "ui/widgets/screen_marks.h"

#include "ui/theme/tokens.h"
#include "ui/widgets/widget_look.h"

namespace calyx::ui::marks {

namespace {

constexpr double kGrip = 8;  // side of a handle

QColor Accent(int alpha = 255) {
    QColor colour = LightTokens().accent;
    colour.setAlpha(alpha);
    return colour;
}

void Frame(QPainter& painter, const QRectF& rect, const QPen& pen) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(pen);
    painter.drawRect(rect.adjusted(-0.5, -0.5, 0.5, 0.5));
}

}  // namespace

std::vector<Grip> GripsOf(const QRectF& rect, WidgetKind kind) {
    std::vector<Grip> grips;
    if (!HasWidth(kind)) return grips;
    for (int down = -1; down <= 1; ++down) {
        for (int across = -1; across <= 1; ++across) {
            const bool middle = across == 0 && down == 0;
            if (middle || (down != 0 && !HasHeight(kind))) continue;
            QRectF place(0, 0, kGrip, kGrip);
            place.moveCenter({rect.center().x() + across * rect.width() / 2,
                              rect.center().y() + down * rect.height() / 2});
            grips.push_back({{across, down}, place});
        }
    }
    return grips;
}

Qt::CursorShape CursorOf(Handle handle) {
    if (handle.down == 0) return Qt::SizeHorCursor;
    if (handle.across == 0) return Qt::SizeVerCursor;
    return handle.across == handle.down ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor;
}

void Outline(QPainter& painter, const QRectF& rect) {
    Frame(painter, rect, QPen(Accent(90), 1, Qt::DotLine));
}

void Chosen(QPainter& painter, const QRectF& rect, bool lead) {
    painter.fillRect(rect, Accent(28));
    Frame(painter, rect, QPen(Accent(), lead ? 2 : 1));
}

void Grips(QPainter& painter, const std::vector<Grip>& grips) {
    painter.setPen(QPen(Accent(), 1));
    painter.setBrush(Qt::white);
    for (const Grip& grip : grips) painter.drawRect(grip.place.adjusted(0.5, 0.5, -0.5, -0.5));
}

void Band(QPainter& painter, const QRectF& rect) {
    painter.fillRect(rect, Accent(28));
    Frame(painter, rect, QPen(Accent(), 1, Qt::DashLine));
}

void Grid(QPainter& painter, QPointF corner, QSize grid, double zoom) {
    constexpr double kClosest = 7;  // dots nearer to each other only make grey
    if (grid.width() <= 0 || grid.height() <= 0) return;
    // A finer grid than can be seen shows every other dot, and so on.
    int across = grid.width(), down = grid.height();
    while (across * zoom < kClosest) across *= 2;
    while (down * zoom < kClosest) down *= 2;
    for (int y = down; y < kScreenHeight; y += down) {
        for (int x = across; x < kScreenWidth; x += across)
            painter.fillRect(QRectF(corner + QPointF(x, y) * zoom, QSizeF(1, 1)), Accent(56));
    }
}

}  // namespace calyx::ui::marks
