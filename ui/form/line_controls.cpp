#include "ui/form/line_controls.h"

#include <QAction>
#include <QDate>
#include <algorithm>
#include <limits>

#include "ui/form/calendar_popup.h"
#include "ui/form/form_texts.h"
#include "ui/form/widths.h"
#include "ui/theme/icons.h"

namespace calyx::ui::form {

namespace {

constexpr int kFreeNarrowest = 160, kFreeWidest = 352;
constexpr int kFrame = 26;

int WidthFor(const QFontMetrics& metrics, int characters) {
    return InSteps(metrics.horizontalAdvance(u'0') * characters + kFrame);
}

int Digits(const RowInfo& info) {
    const double most = std::max(std::abs(info.more.min), std::abs(info.more.max));
    if (!info.more.HasRange()) return info.width == 0 ? 11 : info.width;
    const int sign = info.more.min < 0 ? 1 : 0;
    const int decimals = info.kind == ValueKind::Decimal ? 4 : 0;
    return static_cast<int>(std::to_string(static_cast<long long>(most)).size()) + sign + decimals;
}

}  // namespace

LineControl::LineControl(QWidget* parent, int characters) : line_(new QLineEdit(parent)) {
    constexpr int kMostShown = 40;  // longer texts scroll in their field
    if (characters == 0 || characters > kMostShown) {
        line_->setMinimumWidth(kFreeNarrowest);
        line_->setMaximumWidth(kFreeWidest);
    } else {
        QFont bold = line_->font();
        bold.setBold(true);  // the widest that it can become
        line_->setFixedWidth(WidthFor(QFontMetrics(bold), characters));
    }
    connect(line_, &QLineEdit::textEdited, this, &LineControl::Clean);
}

// A pasted text may be of several lines.
void LineControl::Clean(const QString& text) {
    const QString clean = OneLine(text);
    if (clean != text) ShowText(clean);
    emit Edited(true);
}

void LineControl::ShowText(const QString& text) {
    if (line_->text() == text) return;
    const auto cursor = line_->cursorPosition();
    line_->setText(text);
    line_->setCursorPosition(line_->hasFocus() ? std::min(cursor, static_cast<int>(text.size())) : 0);
}

TextControl::TextControl(const RowInfo& info, const ResourceTexts& texts, QWidget* parent)
    : LineControl(parent, info.width), texts_(texts), width_(info.width) {}

QString TextControl::ToText(const std::string& text) {
    old_ = text;
    return ToShown(text);
}

Entry TextControl::Read(bool) const {
    Entry entry{.text = ToBytes(Typed(), old_)};
    if (width_ == 0 || entry.text.size() <= width_) return entry;
    // Bytes count, and a character may be several of them.
    const bool longer = static_cast<std::size_t>(Typed().size()) > width_;
    return {Entry::State::Wrong, {}, Say(texts_, longer ? kTooLong : kTooLongBytes, QString::number(width_))};
}

NumberControl::NumberControl(const RowInfo& info, const ResourceTexts& texts, QWidget* parent)
    : LineControl(parent, Digits(info)),
      texts_(texts),
      whole_(info.kind == ValueKind::Integer),
      hasRange_(info.more.HasRange()),
      min_(info.more.HasRange() ? info.more.min : std::numeric_limits<std::int32_t>::min()),
      max_(info.more.HasRange() ? info.more.max : std::numeric_limits<std::int32_t>::max()),
      locale_(Line()->locale()) {
    if (!whole_ && !info.more.HasRange()) max_ = -(min_ = -std::numeric_limits<float>::max());
    RowInfo range = info;
    range.more.min = min_;
    range.more.max = max_;
    if (whole_ || info.more.HasRange()) ends_ = RangeWords(range, locale_);
    locale_.setNumberOptions(QLocale::RejectGroupSeparator | QLocale::OmitGroupSeparator);
    Line()->setInputMethodHints(Qt::ImhFormattedNumbersOnly);
}

QString NumberControl::ToText(const std::string& text) {
    const NumberText parts = SplitNumber(text);
    sign_ = ToShown(parts.after);
    QString number = ToShown(parts.number.empty() ? text : parts.number);
    return whole_ ? number : number.replace(u'.', locale_.decimalPoint());
}

// What is outside the range may be the beginning of what is in it: "3" of 50 to 5000.
Entry NumberControl::Refuse(double number, bool understood, const QString& typed) const {
    const bool started = typed.isEmpty() || (min_ < 0 && typed == QLatin1String("-"));
    const bool goesOn = understood && ((number > 0 && number < min_ && number * 10 <= max_) ||
                                       (number < 0 && number > max_ && number * 10 >= min_));
    QString words = understood || started
                        ? QString()
                        : Say(texts_, whole_ ? kWholeNumber : kDecimalNumber, locale_.decimalPoint());
    if (!ends_.least.isEmpty() && (understood || hasRange_)) {
        words += (words.isEmpty() ? QString() : QStringLiteral(" ")) +
                 Say(texts_, kAllowed, ends_.least, ends_.most);
    }
    return {started || goesOn ? Entry::State::Unfinished : Entry::State::Wrong, {}, words};
}

Entry NumberControl::Read(bool) const {
    const QString typed = Typed().trimmed();
    QString plain = typed;
    // A dot is taken for the decimal sign as well, unless the locale groups thousands with it.
    if (locale_.groupSeparator() != QLatin1String(".")) plain.replace(u'.', locale_.decimalPoint());
    const bool figures = std::none_of(plain.begin(), plain.end(), [](QChar c) { return c.isLetter(); });
    bool understood = false;
    const double number = whole_ ? static_cast<double>(locale_.toLongLong(plain, &understood))
                                 : locale_.toDouble(plain, &understood);
    understood = understood && figures;  // "1e3" is no form of the lines
    if (!understood || number < min_ || number > max_) return Refuse(number, understood, typed);
    std::string text;
    if (whole_) {
        text = std::to_string(static_cast<long long>(number));
    } else {
        text = plain.replace(locale_.decimalPoint(), QLatin1String(".")).toStdString();
    }
    return {.text = std::move(text)};
}

DateControl::DateControl(const ResourceTexts& texts, QWidget* parent)
    : LineControl(parent, 14), texts_(texts), locale_(Line()->locale()), pattern_(DatePattern(locale_)) {
    Line()->setPlaceholderText(Say(texts, kNoDate));
    QAction* choose = Line()->addAction(Icon(IconName::Calendar), QLineEdit::TrailingPosition);
    choose->setText(Say(texts, kChooseDay));
    choose->setShortcut(Qt::ALT | Qt::Key_Down);
    choose->setShortcutContext(Qt::WidgetShortcut);
    connect(choose, &QAction::triggered, this, &DateControl::OpenCalendar);
}

QString DateControl::ToText(const std::string& text) {
    const auto date = ReadDate(text);
    return date ? locale_.toString(QDate(date->year, date->month, date->day), pattern_) : ToShown(text);
}

QDate DateControl::Parse(const QString& typed, bool leaving) const {
    for (const QString& pattern : {pattern_, QStringLiteral("yyyy-M-d")}) {
        if (const QDate date = locale_.toDate(typed, pattern); date.isValid()) return date;
    }
    if (!leaving) return {};
    QString shortYear = pattern_;
    shortYear.replace(QLatin1String("yyyy"), QLatin1String("yy"));
    const QDate date = locale_.toDate(typed, shortYear);
    return date.isValid() ? date.addYears(date.year() < 2000 ? 100 : 0) : date;
}

Entry DateControl::Read(bool leaving) const {
    const QString typed = Typed().trimmed();
    if (typed.isEmpty()) return {};
    if (const QDate date = Parse(typed, leaving); date.isValid()) {
        return {.text = date.toString(QStringLiteral("MMddyyyy")).toStdString()};
    }
    const QString example = locale_.toString(QDate(2027, 4, 15), pattern_);
    const bool longer = typed.size() > example.size() + 4;
    return {longer ? Entry::State::Wrong : Entry::State::Unfinished, {}, Say(texts_, kDatePattern, example)};
}

void DateControl::OpenCalendar() {
    auto* popup = new CalendarPopup(texts_, Line());
    connect(popup, &CalendarPopup::Chosen, this, [this](const QDate& date) {
        ShowText(date.isValid() ? locale_.toString(date, pattern_) : QString());
        emit Edited(false);
    });
    popup->Open(Parse(Typed().trimmed(), true));
}

}  // namespace calyx::ui::form
