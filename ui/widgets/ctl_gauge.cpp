#include "ui/widgets/ctl_gauge.h"

#include <QPainter>
#include <algorithm>

#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"
#include "ui/widgets/widget_texts.h"
#include "ui/widgets/widget_words.h"

namespace calyx::ui {

using namespace widget_text;

namespace {
constexpr int kLimit = static_cast<int>(CWidgets::kOldLimit);
constexpr int kBar = 6;
}  // namespace

ctlGauge::ctlGauge(ScreenState& state) : state_(state) {
    setObjectName(QStringLiteral("widgetGauge"));
    setAccessibleName(Say(state_.Texts(), kGaugeName));
    setFont(TextFont(TextSize::Small));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(&state_, &ScreenState::WidgetsChanged, this, &ctlGauge::Refresh);
    Refresh();
}

QSize ctlGauge::sizeHint() const {
    constexpr int kNarrowest = 128;
    return {std::max(kNarrowest, fontMetrics().horizontalAdvance(words_) + metrics::kHalf),
            fontMetrics().height() + kBar + metrics::kHalf};
}

void ctlGauge::Refresh() {
    const ResourceTexts& texts = state_.Texts();
    const std::vector<int> numbers = state_.Widgets().Numbers();
    const QString limit = QString::number(kLimit);
    used_ = static_cast<int>(numbers.size());
    beyond_ = std::max(0, used_ - kLimit);
    words_ = Say(texts, kGauge, QString::number(used_), limit);
    QString tip = Say(texts, kGaugeTip, limit);
    if (beyond_ > 0) {
        words_ += QStringLiteral(", ") + Say(texts, kGaugeOver, QString::number(beyond_));
        constexpr int kMostNamed = 5;
        QStringList names;
        for (int i = kLimit; i < std::min(used_, kLimit + kMostNamed); ++i) {
            const int number = numbers[static_cast<std::size_t>(i)];
            names +=
                WidgetWords(texts, state_.Widgets(), number) + QStringLiteral(" (") +
                Say(texts, kScreenName, QString::number(state_.Widgets().widget(number).ScreenNumber())) +
                u')';
        }
        if (beyond_ > kMostNamed) names += QStringLiteral("...");
        tip = Say(texts, kGaugeOverTip, limit, names.join(QStringLiteral(", ")));
    }
    setAccessibleDescription(words_ + QStringLiteral(". ") + tip);
    setToolTip(tip);
    updateGeometry();
    update();
}

void ctlGauge::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QPalette& colours = palette();
    painter.setPen(colours.color(beyond_ > 0 ? role::kProblem : role::kText));
    painter.drawText(rect(), Qt::AlignTop | Qt::AlignLeft, words_);
    const QRectF bar(0.5, height() - kBar - 0.5, width() - 1, kBar);
    painter.setPen(colours.color(role::kBorder));
    painter.drawRect(bar);
    // Beyond the limit the bar stands for all, and the part that is too much is hatched.
    const double whole = std::max(used_, kLimit), within = std::min(used_, kLimit);
    QRectF part(bar.x() + 1, bar.y() + 1, (bar.width() - 2) * within / whole, bar.height() - 2);
    painter.fillRect(part, colours.color(role::kAccent));
    if (beyond_ == 0) return;
    part = QRectF(part.right(), part.y(), (bar.width() - 2) * beyond_ / whole, part.height());
    painter.fillRect(part, QBrush(colours.color(role::kProblem), Qt::Dense4Pattern));
}

}  // namespace calyx::ui
