#include "ui/form/flash.h"

#include <QPainter>
#include <QVariantAnimation>

#include "ui/theme/metrics.h"
#include "ui/theme/tokens.h"

namespace calyx::ui::form {

namespace {
constexpr int kMilliseconds = 1400;
constexpr int kEdge = metrics::kHalf;
}  // namespace

Flash::Flash(QWidget* first, QWidget* last, QWidget* parent) : QWidget(parent), first_(first), last_(last) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    Follow();
    auto* fade = new QVariantAnimation(this);
    fade->setDuration(kMilliseconds);
    fade->setStartValue(1.0);
    fade->setEndValue(0.0);
    fade->setEasingCurve(QEasingCurve::InQuad);
    connect(fade, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        strength_ = value.toDouble();
        Follow();
        update();
    });
    connect(fade, &QVariantAnimation::finished, this, &QObject::deleteLater);
    show();
    raise();
    fade->start();
}

// Messages that come and go move the fields.
void Flash::Follow() {
    if (!first_ || !last_) return hide();
    const auto place = [this](const QWidget* part) {
        return QRect(part->mapTo(parentWidget(), QPoint()), part->size());
    };
    setGeometry(place(first_).united(place(last_)).adjusted(-kEdge, -kEdge, kEdge, kEdge));
}

void Flash::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor line = palette().color(role::kAccent);
    line.setAlphaF(static_cast<float>(strength_));
    QColor fill = line;
    fill.setAlphaF(static_cast<float>(strength_ * 0.12));
    painter.setPen(QPen(line, 2));
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 6, 6);
}

}  // namespace calyx::ui::form
