#include "ui/form/words.h"

#include <QDate>
#include <cmath>

#include "model/language/date.h"
#include "ui/form/form_texts.h"

namespace calyx::ui::form {

namespace {

// As it can be typed: without marks between the thousands.
QString LocalNumber(double number, QLocale locale) {
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    const bool whole = number == std::floor(number) && std::abs(number) < 1e15;
    return whole ? locale.toString(static_cast<qlonglong>(number)) : locale.toString(number, 'g', 7);
}

}  // namespace

QString Caption(const ResourceTexts& texts, const Parameter& parameter) {
    const int label = parameter.Info().more.label;
    return label == 0 ? ToShown(parameter.Key()) : Say(texts, label);
}

QString ValueWords(const ResourceTexts& texts, ValueKind kind, const CTextList* list, const std::string& text,
                   const QLocale& locale) {
    if (text.empty()) return Say(texts, kEmpty);
    if (list != nullptr) {
        if (const std::string* shown = list->Item(text)) return ToShown(*shown);
    }
    if (kind == ValueKind::Date) {
        if (const auto date = ReadDate(text)) {
            return locale.toString(QDate(date->year, date->month, date->day), DatePattern(locale));
        }
    }
    return ToShown(text);
}

RangeEnds RangeWords(const RowInfo& info, const QLocale& locale) {
    const QString unit = ToShown(info.more.unit);
    // The degree sign stands close, as it does on paper.
    const QString gap = unit.isEmpty() || !unit.front().isLetter() ? QString() : QStringLiteral("\u00A0");
    return {LocalNumber(info.more.min, locale), LocalNumber(info.more.max, locale) + gap + unit};
}

QString ToolTip(const ResourceTexts& texts, const Parameter& parameter, const QLocale& locale) {
    const RowInfo& info = parameter.Info();
    QStringList facts{Say(texts, kTipKey, ToShown(parameter.Key()))};
    if (const auto lines = parameter.Lines(); !lines.empty()) {
        if (info.more.use == Use::Page) {
            QStringList keys;
            for (const KeyValue& line : lines) keys += ToShown(line.key);
            facts.front() = Say(texts, kTipKey, keys.join(QStringLiteral(", ")));
        }
        facts += Say(texts, kTipFirmware, ToShown(calyx::Words(parameter.Versions())));
    }
    if (info.more.HasRange()) {
        const RangeEnds ends = RangeWords(info, locale);
        facts += Say(texts, kTipRange, ends.least, ends.most);
    }
    if (info.more.use != Use::ReadOnly) {
        facts += Say(texts, kTipDefault, ValueWords(texts, parameter, parameter.DefaultText(), locale));
    }
    QString tip;
    if (info.more.help != 0)
        tip = QStringLiteral("<p>%1</p>").arg(Say(texts, info.more.help).toHtmlEscaped());
    for (QString& fact : facts) fact = fact.toHtmlEscaped();
    return tip + QStringLiteral("<p>%1</p>").arg(facts.join(QStringLiteral("<br>")));
}

QString Description(const ResourceTexts& texts, const Parameter& parameter) {
    const int help = parameter.Info().more.help;
    QString words = ToShown(parameter.Key()) + u'.';
    if (help != 0) words += u' ' + Say(texts, help);
    return words;
}

NumberText SplitNumber(const std::string& text) {
    constexpr std::string_view kFigures = "0123456789", kNumber = "+-.0123456789";
    const std::size_t first = text.find_first_of(kFigures);
    if (first == std::string::npos) return {text, {}, {}};
    std::size_t begin = first;
    while (begin > 0 && kNumber.substr(0, 3).find(text[begin - 1]) != std::string_view::npos) --begin;
    const std::size_t end = std::min(text.find_first_not_of(kNumber, begin), text.size());
    return {text.substr(0, begin), text.substr(begin, end - begin), text.substr(end)};
}

QString DatePattern(const QLocale& locale) {
    QString pattern = locale.dateFormat(QLocale::ShortFormat);
    if (!pattern.contains(QLatin1String("yyyy"))) pattern.replace(QLatin1String("yy"), QLatin1String("yyyy"));
    return pattern;
}

}  // namespace calyx::ui::form
