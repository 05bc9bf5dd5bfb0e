#include "ui/form/calendar_popup.h"

#include <QCalendarWidget>
#include <QPushButton>
#include <QScreen>
#include <QTextCharFormat>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/form/form_texts.h"
#include "ui/theme/metrics.h"
#include "ui/theme/tokens.h"

namespace calyx::ui::form {

CalendarPopup::CalendarPopup(const ResourceTexts& texts, QWidget* field)
    : QFrame(field, Qt::Popup), calendar_(new QCalendarWidget(this)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameShape(QFrame::Box);
    setForegroundRole(role::kBorder);
    setAccessibleName(Say(texts, kChooseDay));
    calendar_->setLocale(field->locale());
    calendar_->setFirstDayOfWeek(field->locale().firstDayOfWeek());
    calendar_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    for (const auto day : {Qt::Saturday, Qt::Sunday}) calendar_->setWeekdayTextFormat(day, {});  // no red
    SetStep(texts, "qt_calendar_prevmonth", IconName::Previous, kPrevious);
    SetStep(texts, "qt_calendar_nextmonth", IconName::Next, kNext);
    auto* none = new QPushButton(Say(texts, kNoDate), this);
    auto* today = new QPushButton(Say(texts, kToday), this);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(none);
    buttons->addStretch();
    buttons->addWidget(today);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(metrics::kRelated, metrics::kRelated, metrics::kRelated, metrics::kRelated);
    column->addWidget(calendar_);
    column->addLayout(buttons);
    connect(calendar_, &QCalendarWidget::clicked, this, &CalendarPopup::Choose);
    connect(calendar_, &QCalendarWidget::activated, this, &CalendarPopup::Choose);
    connect(today, &QPushButton::clicked, this, [this] { Choose(QDate::currentDate()); });
    connect(none, &QPushButton::clicked, this, [this] { Choose({}); });
}

// Our own arrow on the head of the calendar, which has the accent's colour.
void CalendarPopup::SetStep(const ResourceTexts& texts, const char* button, IconName icon, int name) {
    auto* step = calendar_->findChild<QToolButton*>(QLatin1String(button));
    if (step == nullptr) return;
    step->setIcon(
        IconPixmap(icon, metrics::kIconSmall, devicePixelRatioF(), palette().color(role::kOnAccent)));
    step->setToolTip(Say(texts, name));
    step->setAccessibleName(Say(texts, name));
}

void CalendarPopup::Open(const QDate& date) {
    if (date.isValid()) calendar_->setSelectedDate(date);
    const QWidget* field = parentWidget();
    const QRect screen = field->screen()->availableGeometry();
    const QSize size = sizeHint();
    QPoint place = field->mapToGlobal(QPoint(0, field->height() + 2));
    if (place.y() + size.height() > screen.bottom())
        place.setY(field->mapToGlobal(QPoint(0, -size.height() - 2)).y());
    place.setX(std::clamp(place.x(), screen.left(), std::max(screen.left(), screen.right() - size.width())));
    move(place);
    show();
    calendar_->setFocus();
}

void CalendarPopup::Choose(const QDate& date) {
    emit Chosen(date);
    close();
}

}  // namespace calyx::ui::form
