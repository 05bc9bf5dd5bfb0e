#include "ui/setpoints/ctl_trip_drawing.h"

#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>

#include "ui/setpoints/setpoint_texts.h"
#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

namespace {

constexpr int kLabelRows = 3;
constexpr int kBar = 10;   // thickness of the stretches
constexpr int kArrow = 6;  // at the end of the axis
constexpr int kWidth = 380, kNarrowest = 160;

}  // namespace

// From numbers to pixels.
struct ctlTripDrawing::Axis {
    double low = 0, high = 1;
    int left = 0, right = 1, y = 0;

    double At(double value) const { return left + (value - low) / (high - low) * (right - left); }
};

ctlTripDrawing::ctlTripDrawing(const ResourceTexts& texts, QWidget* parent) : QWidget(parent), texts_(texts) {
    setObjectName(QStringLiteral("tripDrawing"));
    setAccessibleName(Say(texts, say::kDrawingName));
    setFont(TextFont(TextSize::Small));
    setMinimumWidth(kNarrowest);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize ctlTripDrawing::sizeHint() const {
    return {kWidth, kLabelRows * fontMetrics().height() + kBar + 2 * metrics::kRelated};
}

QString ctlTripDrawing::Words(const TripPicture::Mark& mark) const {
    constexpr int kDigits = 10;
    QLocale plain = locale();
    plain.setNumberOptions(QLocale::OmitGroupSeparator);
    return Say(texts_, mark.text, plain.toString(mark.at, 'g', kDigits));
}

void ctlTripDrawing::Show(const TripPicture& picture) {
    picture_ = picture;
    QStringList words;
    for (const TripPicture::Mark& mark : picture_.marks) words += Words(mark);
    setAccessibleDescription(words.join(QStringLiteral(", ")));
    setToolTip(accessibleDescription());
    update();
}

// The marks take up the middle half; a single one has its own size around it.
ctlTripDrawing::Axis ctlTripDrawing::MakeAxis() const {
    Axis axis{.left = metrics::kHalf, .right = width() - metrics::kRelated};
    axis.y = height() - kBar - metrics::kHalf;
    const double least = picture_.marks.front().at, most = picture_.marks.back().at;
    double room = (most - least) / 2;
    if (room <= 0) room = least == 0 ? 1 : std::abs(least) / 2;
    axis.low = least - room;
    axis.high = most + room;
    return axis;
}

void ctlTripDrawing::DrawStretches(QPainter& painter, const Axis& axis) const {
    const QPalette& colours = palette();
    for (const TripPicture::Stretch& stretch : picture_.stretches) {
        const double from = stretch.from ? axis.At(*stretch.from) : axis.left;
        const double to = stretch.to ? axis.At(*stretch.to) : axis.right;
        const QRectF bar(from, axis.y - kBar / 2.0, std::max(0.0, to - from), kBar);
        const QColor accent = colours.color(role::kAccent);
        switch (stretch.style) {
            case TripPicture::Style::Trip:
                painter.fillRect(bar, accent);
                break;
            case TripPicture::Style::Preact:
                painter.fillRect(bar, QBrush(accent, Qt::BDiagPattern));
                break;
            case TripPicture::Style::Ready:  // thin, so that it can be told from a preact over it
                painter.fillRect(QRectF(bar.left(), bar.bottom(), bar.width(), metrics::kHalf),
                                 colours.color(role::kIcon));
                break;
        }
    }
}

// Labels stand in the lowest row in which they are free, over the lines that lead down to the axis.
void ctlTripDrawing::DrawMarks(QPainter& painter, const Axis& axis) const {
    const int line = fontMetrics().height();
    std::array<double, kLabelRows> taken;
    taken.fill(-1);
    std::vector<QRectF> labels;
    for (const TripPicture::Mark& mark : picture_.marks) {
        const double x = axis.At(mark.at), wide = fontMetrics().horizontalAdvance(Words(mark)) + 2;
        const double left = std::clamp(x - wide / 2, 0.0, std::max(0.0, width() - wide));
        std::size_t row = 0;
        while (row + 1 < taken.size() && taken[row] > left) ++row;
        taken[row] = left + wide + metrics::kRelated;
        const int top = axis.y - kBar / 2 - metrics::kHalf - static_cast<int>(row + 1) * line;
        labels.emplace_back(left, top, wide, line);
        const bool trip = mark.style == TripPicture::Style::Trip;
        painter.setPen(
            QPen(palette().color(trip ? role::kText : role::kIcon), 1, trip ? Qt::SolidLine : Qt::DashLine));
        painter.drawLine(QPointF(x, top + line), QPointF(x, axis.y + kBar / 2.0));
    }
    painter.setPen(palette().color(role::kText));
    for (std::size_t i = 0; i < labels.size(); ++i) {
        painter.fillRect(labels[i], palette().color(role::kWindow));
        painter.drawText(labels[i], Qt::AlignCenter, Words(picture_.marks[i]));
    }
}

void ctlTripDrawing::paintEvent(QPaintEvent*) {
    if (picture_.marks.empty()) return;
    QPainter painter(this);
    const Axis axis = MakeAxis();
    painter.setPen(palette().color(role::kBorder));
    painter.drawLine(axis.left, axis.y, axis.right, axis.y);
    painter.drawLine(axis.right, axis.y, axis.right - kArrow, axis.y - kArrow / 2);
    painter.drawLine(axis.right, axis.y, axis.right - kArrow, axis.y + kArrow / 2);
    DrawStretches(painter, axis);
    DrawMarks(painter, axis);
}

}  // namespace calyx::ui
