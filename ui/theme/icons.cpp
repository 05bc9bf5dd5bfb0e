#include "ui/theme/icons.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <charconv>
#include <cmath>

#include "ui/theme/icon_shapes.h"
#include "ui/theme/tokens.h"

namespace calyx::ui {

namespace {

constexpr double kGrid = 16;
constexpr double kStroke = 1.2;  // of the grid, before it is rounded to whole device pixels

// Reads the strokes and draws them in device pixels, every point set so that straight lines fall on
// whole pixels.
class Pen {
  public:
    Pen(QPainter& painter, QPointF origin, double pixels, const QColor& colour)
        : painter_(painter),
          origin_(origin),
          scale_(pixels / kGrid),
          width_(std::max(1.0, std::round(scale_ * kStroke))),
          colour_(colour) {}

    void Draw(std::string_view strokes) {
        rest_ = strokes;
        for (char command = Command(); command != 0; command = Command()) Step(command);
        Finish(false);
    }

  private:
    char Command() {
        while (!rest_.empty() && rest_.front() == ' ') rest_.remove_prefix(1);
        if (rest_.empty()) return 0;
        const char command = rest_.front();
        rest_.remove_prefix(1);
        return command;
    }
    double Number() {
        while (!rest_.empty() && rest_.front() == ' ') rest_.remove_prefix(1);
        double number = 0;
        const auto read = std::from_chars(rest_.data(), rest_.data() + rest_.size(), number);
        rest_.remove_prefix(static_cast<std::size_t>(read.ptr - rest_.data()));
        return number;
    }
    double Snapped(double place) const {
        const double half = width_ / 2;
        return std::round(place * scale_ - half) + half;
    }
    QPointF Point() {
        const double x = Number();
        return origin_ + QPointF(Snapped(x), Snapped(Number()));
    }
    void Step(char command) {
        switch (command) {
            case 'M':
                Finish(false);
                path_.moveTo(Point());
                break;
            case 'L':
                path_.lineTo(Point());
                break;
            case 'Q': {
                const QPointF control = Point();
                path_.quadTo(control, Point());
                break;
            }
            case 'Z':
                path_.closeSubpath();
                break;
            case 'F':
                Finish(true);
                break;
            default: {
                Finish(false);
                const QPointF centre = Point();
                const double radius = std::max(Number() * scale_, width_ / 2);
                path_.addEllipse(centre, radius, radius);
                Finish(command == 'D');
            }
        }
    }
    void Finish(bool filled) {
        if (filled) {
            painter_.fillPath(path_, colour_);
        } else if (!path_.isEmpty()) {
            painter_.strokePath(path_, QPen(colour_, width_, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        }
        path_ = {};
    }

    QPainter& painter_;
    QPointF origin_;
    double scale_, width_;
    QColor colour_;
    std::string_view rest_;
    QPainterPath path_;
};

QPalette::ColorRole RoleOf(IconName name) {
    if (name == IconName::Problem) return role::kProblem;
    return name == IconName::Changed || name == IconName::Differs ? role::kAccent : role::kIcon;
}

QPixmap StrokePixmap(std::string_view strokes, int size, qreal ratio, const QColor& colour) {
    const int pixels = qRound(size * ratio);
    QPixmap picture(pixels, pixels);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    DrawStrokes(painter, {0, 0}, pixels, colour, strokes);
    painter.end();
    picture.setDevicePixelRatio(ratio);
    return picture;
}

class Engine : public QIconEngine {
  public:
    Engine(std::string_view strokes, QPalette::ColorRole colour, int size)
        : strokes_(strokes), colour_(colour), size_(size) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const qreal ratio = painter->device()->devicePixelRatioF();
        const int side = std::min(rect.width(), rect.height());
        const QPixmap picture = StrokePixmap(strokes_, side, ratio, Colour(mode));
        painter->drawPixmap(rect.x() + (rect.width() - side) / 2, rect.y() + (rect.height() - side) / 2,
                            picture);
    }
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State, qreal) override {
        // The size is in device pixels already.
        return StrokePixmap(strokes_, std::min(size.width(), size.height()), 1, Colour(mode));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return scaledPixmap(size, mode, state, 1);
    }
    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override {
        const int side = std::min(size.width(), size.height());
        return {side, side};
    }
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override { return {QSize(size_, size_)}; }
    QIconEngine* clone() const override { return new Engine(*this); }

  private:
    QColor Colour(QIcon::Mode mode) const {
        const QPalette palette = QApplication::palette();
        if (mode == QIcon::Selected) return palette.color(role::kOnAccent);
        return palette.color(mode == QIcon::Disabled ? role::kQuietText : colour_);
    }

    std::string_view strokes_;
    QPalette::ColorRole colour_;
    int size_;
};

}  // namespace

QIcon Icon(IconName name, int size) {
    return QIcon(new Engine(IconStrokes(name), RoleOf(name), size));
}

QPixmap IconPixmap(IconName name, int size, qreal ratio, const QColor& colour) {
    return StrokePixmap(IconStrokes(name), size, ratio, colour);
}

QIcon StrokeIcon(std::string_view strokes, int size) {
    return QIcon(new Engine(strokes, role::kIcon, size));
}

void DrawStrokes(QPainter& painter, QPointF corner, double side, const QColor& colour,
                 std::string_view strokes) {
    Pen(painter, corner, side, colour).Draw(strokes);
}

}  // namespace calyx::ui
