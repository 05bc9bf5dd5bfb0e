#pragma once

#include <QLocale>
#include <QString>
#include <string>

#include "model/language/resource_texts.h"
#include "ui/form/parameter.h"

// What is said of a parameter to people, in their locale.
namespace calyx::ui::form {

QString Caption(const ResourceTexts& texts, const Parameter& parameter);  // without mnemonic
// A value as the page shows it: the list's words, a date in the locale's form; "empty" for nothing.
QString ValueWords(const ResourceTexts& texts, ValueKind kind, const CTextList* list, const std::string& text,
                   const QLocale& locale);
inline QString ValueWords(const ResourceTexts& texts, const Parameter& parameter, const std::string& text,
                          const QLocale& locale) {
    return ValueWords(texts, parameter.Info().kind, parameter.List(), text, locale);
}
// Both ends with their unit: "50", "5000 ms".
struct RangeEnds {
    QString least, most;
};
RangeEnds RangeWords(const RowInfo& info, const QLocale& locale);
// Help, key, firmware, range and default, as rich text.
QString ToolTip(const ResourceTexts& texts, const Parameter& parameter, const QLocale& locale);
// For screen readers and drivers: "TRUCK. How trucks ...".
QString Description(const ResourceTexts& texts, const Parameter& parameter);

// A number with what a codec writes around it: "SCALE3", "1.9%".
struct NumberText {
    std::string before, number, after;
};
NumberText SplitNumber(const std::string& text);

QString DatePattern(const QLocale& locale);  // the short form, with the year in full

}  // namespace calyx::ui::form
