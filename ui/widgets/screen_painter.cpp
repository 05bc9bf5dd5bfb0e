#include "ui/widgets/screen_painter.h"

#include <QPainterPath>
#include <algorithm>

#include "ui/form/bytes.h"
#include "ui/theme/icons.h"
#include "ui/widgets/symbol_shapes.h"

namespace calyx::ui {

namespace {

// Codes of the records; the display texts stand in the lists "WDGT....".
enum Border { kNone = 0, kRaised = 2, kSunken = 3 };
enum Justification { kLeft = 0, kCentre = 1, kRight = 2, kDecimal = 3 };
enum BarStyle { kFromEnd = 0, kFromMiddle = 1, kPointer = 2 };
enum BitmapStyle { kInverted = 1, kFlashing = 2, kFlashingInverted = 3 };

constexpr QLatin1String kSampleValue("123.4");
constexpr double kSampleShare = 0.64;  // of a bar
constexpr double kGhost = 0.35;        // how much of a hidden widget is seen
constexpr int kBorderRoom = 3;         // between border and text

// The pixels of a border lie inside the rectangle.
QRectF Inner(const QRect& rect, double by) {
    return QRectF(rect).adjusted(by, by, -by, -by);
}

}  // namespace

ScreenPainter::ScreenPainter(const CWidgets& widgets, const ScaleDisplays& scales)
    : widgets_(widgets), scales_(scales) {}

QFont ScreenPainter::FontOf(int pixels, bool strong) const {
    QFont font;
    font.setFamilies({QStringLiteral("DejaVu Sans"), QStringLiteral("Verdana"), QStringLiteral("Arial")});
    font.setPixelSize(pixels);
    font.setBold(strong);
    // The same at every zoom and on every screen.
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    return font;
}

void ScreenPainter::Paint(QPainter& painter, int screen) const {
    painter.save();
    painter.setClipRect(kScreenRect, Qt::IntersectClip);
    painter.fillRect(kScreenRect, colours_.paper);
    for (const int number : widgets_.OnScreen(screen)) PaintWidget(painter, number);
    painter.restore();
}

void ScreenPainter::PaintWidget(QPainter& painter, int number) const {
    const CWidget& widget = widgets_.widget(number);
    const WidgetFields& fields = widget.Values();
    const bool hidden = HasPlace(widget.WidgetType()) && !fields.visible;
    if (hidden && !ghosts_) return;
    const QRect rect = ShownRect(widgets_, number);
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.setClipRect(rect, Qt::IntersectClip);
    if (hidden) painter.setOpacity(kGhost);
    switch (widget.WidgetType()) {
        case WidgetKind::Scale:
            PaintScale(painter, number);
            break;
        case WidgetKind::Bitmap:
            PaintBitmap(painter, fields, rect);
            break;
        case WidgetKind::Bargraph:
            PaintBar(painter, fields, rect);
            break;
        case WidgetKind::Label:
            PaintText(painter, fields, rect, ToShown(fields.caption));
            break;
        case WidgetKind::Numeric:
            PaintText(painter, fields, rect, kSampleValue);
            break;
        case WidgetKind::Symbol:
            DrawStrokes(painter, rect.topLeft(), kSymbolSide, colours_.ink, SymbolStrokes(fields.style));
            break;
    }
    painter.restore();
}

// The weight in the middle of its cell, the unit behind it, the scale's name above where there is room.
void ScreenPainter::PaintScale(QPainter& painter, int number) const {
    const ScaleCell cell = CellOf(widgets_, number);
    const ScaleDisplay shown = scales_(widgets_.widget(number).Values().numberDisplayed);
    constexpr int kSmallest = 10, kGap = 4;
    QFont figures = FontOf(cell.figures, true);
    QFont words = FontOf(std::max(kSmallest, cell.figures / 3));
    const double units = QFontMetricsF(words).horizontalAdvance(shown.units);
    double weight = QFontMetricsF(figures).horizontalAdvance(shown.weight);
    const double room = cell.area.width() - units - 3 * kGap;
    if (weight > room) {
        figures.setPixelSize(std::max(kSmallest, static_cast<int>(cell.figures * room / weight)));
        weight = QFontMetricsF(figures).horizontalAdvance(shown.weight);
    }
    const QFontMetricsF measure(figures);
    const double left = cell.area.x() + (cell.area.width() - weight - units - kGap) / 2;
    const double base = cell.area.y() + cell.area.height() / 2.0 + measure.capHeight() / 2;
    painter.setPen(colours_.ink);
    painter.setFont(figures);
    painter.drawText(QPointF(left, base), shown.weight);
    painter.setFont(words);
    painter.drawText(QPointF(left + weight + kGap, base), shown.units);
    const double above = base - measure.capHeight() - 2 * kGap;
    if (above - QFontMetricsF(words).ascent() > cell.area.y() + cell.area.height() * 0.15) {
        painter.drawText(QPointF(left, above), shown.name);
    }
}

void ScreenPainter::PaintBorder(QPainter& painter, int style, const QRect& rect) const {
    if (style == kNone) return;
    const QRectF line = Inner(rect, 0.5);
    const bool relief = style == kRaised || style == kSunken;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colours_.ink, 1));
    painter.drawRect(line);
    if (!relief) return;
    // Two sides are in shade: below a raised widget, above a sunken one.
    const QRectF in = Inner(rect, 1.5);
    painter.setPen(QPen(colours_.shade, 1));
    painter.drawPolyline(style == kRaised ? QPolygonF({in.topRight(), in.bottomRight(), in.bottomLeft()})
                                          : QPolygonF({in.topRight(), in.topLeft(), in.bottomLeft()}));
}

// The picture itself is in the indicator; a landscape stands for it.
void ScreenPainter::PaintBitmap(QPainter& painter, const WidgetFields& fields, const QRect& rect) const {
    const bool inverted = fields.style == kInverted || fields.style == kFlashingInverted;
    const bool flashing = fields.style == kFlashing || fields.style == kFlashingInverted;
    const QColor ground = inverted ? colours_.ink : colours_.paper;
    const QColor line = inverted ? colours_.paper : colours_.ink;
    painter.fillRect(rect, ground);
    const QRectF area = Inner(rect, 4);
    if (area.width() > 4 && area.height() > 4) {
        const auto at = [&](double x, double y) {
            return QPointF(area.x() + x * area.width(), area.y() + y * area.height());
        };
        painter.setPen(QPen(line, 1));
        painter.drawPolyline(
            QPolygonF({at(0, 1), at(0.35, 0.35), at(0.6, 0.8), at(0.75, 0.55), at(1, 1), at(0, 1)}));
        const double sun = std::min(area.width(), area.height()) * 0.12;
        painter.setBrush(flashing ? line : ground);
        painter.drawEllipse(at(0.75, 0.2), sun, sun);
    }
    PaintBorder(painter, fields.borderStyle, rect);
}

void ScreenPainter::PaintBar(QPainter& painter, const WidgetFields& fields, const QRect& rect) const {
    constexpr int kDivisions = 10;
    const bool upwards = fields.orientation == 1;
    const QRectF area = Inner(rect, fields.borderStyle == kNone ? 0 : 2);
    if (area.isEmpty()) return PaintBorder(painter, fields.borderStyle, rect);
    // A part of the length between two shares, over a part of the thickness.
    const auto part = [&](double from, double to, double near, double far) {
        return upwards
                   ? QRectF(QPointF(area.left() + near * area.width(), area.bottom() - to * area.height()),
                            QPointF(area.left() + far * area.width(), area.bottom() - from * area.height()))
                   : QRectF(QPointF(area.left() + from * area.width(), area.top() + near * area.height()),
                            QPointF(area.left() + to * area.width(), area.top() + far * area.height()));
    };
    const double thick = fields.graduations ? 0.68 : 1;  // the marks stand beside it
    switch (fields.style) {
        case kFromMiddle:
            painter.fillRect(part(0.5, 0.5 + kSampleShare / 2, 0, thick), colours_.ink);
            painter.fillRect(part(0.497, 0.503, 0, 1), colours_.ink);
            break;
        case kPointer: {
            const double half = 4 / std::max(8.0, upwards ? area.height() : area.width());
            painter.fillRect(part(kSampleShare - half, kSampleShare + half, 0, thick), colours_.ink);
            painter.fillRect(part(0, 1, thick / 2 - 0.03, thick / 2 + 0.03), colours_.shade);
            break;
        }
        default:
            painter.fillRect(part(0, kSampleShare, 0, thick), colours_.ink);
    }
    if (fields.graduations) {
        painter.setPen(QPen(colours_.ink, 1));
        for (int mark = 0; mark <= kDivisions; ++mark) {
            const double at = static_cast<double>(mark) / kDivisions;
            const double start = mark % (kDivisions / 2) == 0 ? 0.74 : 0.86;
            const QRectF line = part(at, at, start, 1);
            painter.drawLine(line.topLeft(), line.bottomRight());
        }
    }
    PaintBorder(painter, fields.borderStyle, rect);
}

void ScreenPainter::PaintText(QPainter& painter, const WidgetFields& fields, const QRect& rect,
                              const QString& text) const {
    const QFont font = FontOf(FontPixels(fields.fontSize));
    const QFontMetricsF measure(font);
    const double room = fields.borderStyle == kNone ? 0 : kBorderRoom;
    const double spare = rect.width() - 2 * room - measure.horizontalAdvance(text);
    double left = 0;
    switch (fields.justification) {
        case kCentre:
            left = spare / 2;
            break;
        case kRight:
            left = spare;
            break;
        case kDecimal: {
            // The sign stands at two thirds, so that columns of numbers line up.
            const QString whole = text.left(text.indexOf(u'.') < 0 ? text.size() : text.indexOf(u'.'));
            left = (rect.width() - 2 * room) * 2 / 3 - measure.horizontalAdvance(whole);
            break;
        }
        default:
            break;
    }
    PaintBorder(painter, fields.borderStyle, rect);
    painter.setPen(colours_.ink);
    painter.setFont(font);
    const double base = rect.y() + rect.height() / 2.0 + (measure.ascent() - measure.descent()) / 2;
    painter.drawText(QPointF(rect.x() + room + left, base), text);
}

}  // namespace calyx::ui
