#include "ui/tickets/ticket_painter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace calyx::ui {

namespace {

constexpr double kMarginCells = 2;  // beside the printed area
constexpr double kMarginLines = 1;  // above and below it
constexpr double kBetweenPages = 12;

}  // namespace

int TicketSheet::Pages() const {
    const auto count = static_cast<int>(lines.size());
    return std::max(1, (count + linesPerPage - 1) / linesPerPage);
}

std::vector<int> TicketSheet::CutLines() const {
    std::vector<int> cut;
    for (int line = 0; line < lines.size(); ++line) {
        if (IsCut(line)) cut.push_back(line);
    }
    return cut;
}

TicketPainter::TicketPainter(TicketSheet sheet, const QFont& font) : sheet_(std::move(sheet)), font_(font) {
    const QFontMetricsF metrics(font_);
    cellWidth_ = metrics.horizontalAdvance(u'0');
    cellHeight_ = std::ceil(metrics.lineSpacing());
    ascent_ = metrics.ascent();
}

QSizeF TicketPainter::Size() const {
    const QRectF last = Page(sheet_.Pages() - 1);
    return {last.width() + 1, last.bottom() + 1};
}

QRectF TicketPainter::Page(int page) const {
    const double width = std::ceil((sheet_.charsPerLine + 2 * kMarginCells) * cellWidth_);
    const double height = (sheet_.linesPerPage + 2 * kMarginLines) * cellHeight_;
    return {0.5, 0.5 + page * (height + kBetweenPages), width, height};
}

QRectF TicketPainter::Line(int line) const {
    const QRectF page = Page(line / sheet_.linesPerPage);
    const double top = page.top() + (kMarginLines + line % sheet_.linesPerPage) * cellHeight_;
    return {page.left() + kMarginCells * cellWidth_, top, sheet_.charsPerLine * cellWidth_, cellHeight_};
}

void TicketPainter::Paint(QPainter& painter, const QRectF& part) const {
    painter.save();
    painter.setFont(font_);
    const double step = Page(1).top() - Page(0).top();
    const int from = std::max(0, static_cast<int>(part.top() / step));
    for (int page = from; page < sheet_.Pages() && Page(page).top() <= part.bottom(); ++page) {
        PaintPage(painter, page);
        const int first = page * sheet_.linesPerPage;
        const int behind = std::min(first + sheet_.linesPerPage, static_cast<int>(sheet_.lines.size()));
        for (int line = first; line < behind; ++line) {
            if (Line(line).bottom() >= part.top() && Line(line).top() <= part.bottom())
                PaintLine(painter, line);
        }
    }
    painter.restore();
}

void TicketPainter::PaintPage(QPainter& painter, int page) const {
    painter.setPen(QPen(colours_.edge, 1));
    painter.setBrush(colours_.paper);
    painter.drawRect(Page(page));
    const QRectF printed(Line(page * sheet_.linesPerPage).topLeft(),
                         QSizeF(sheet_.charsPerLine * cellWidth_, sheet_.linesPerPage * cellHeight_));
    painter.setPen(QPen(colours_.guide, 1, Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    constexpr double kAir = 3;  // between the print and its guide
    painter.drawRect(printed.adjusted(-kAir, -kAir, kAir, kAir));
}

void TicketPainter::PaintLine(QPainter& painter, int line) const {
    const QRectF place = Line(line);
    const QString& text = sheet_.lines[line];
    const qsizetype fits = std::min<qsizetype>(text.size(), sheet_.charsPerLine);
    painter.setPen(colours_.ink);
    for (qsizetype i = 0; i < fits; ++i) {
        if (text[i].isSpace() || text[i].isLowSurrogate()) continue;
        const double left = place.left() + static_cast<double>(i) * cellWidth_;
        painter.drawText(QPointF(left, place.top() + ascent_),
                         text.mid(i, text[i].isHighSurrogate() ? 2 : 1));
    }
    if (!sheet_.IsCut(line)) return;
    // An arrow that points at what is not there.
    const double x = place.right() + cellWidth_ / 2, y = place.center().y(), size = cellHeight_ / 4;
    const QPointF arrow[] = {{x, y - size}, {x + size * 1.5, y}, {x, y + size}};
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours_.cut);
    painter.drawPolygon(arrow, 3);
}

}  // namespace calyx::ui
