#include "ui/files/other_programs.h"

#include <QDateTime>
#include <QFileInfo>
#include <QLocale>

#include "ui/text.h"
#include "ui/texts.h"

namespace calyx::ui {

bool OtherPrograms::AreMeantBy(const Error& error) {
    return error.Code() == code::kFileChanged || error.Code() == code::kFileGone ||
           error.Code() == code::kFileUnknown;
}

QString OtherPrograms::Text(int number) const {
    return Say(texts_, number);
}

OtherPrograms::Saving OtherPrograms::AskSave(const Error& error, const QString& path) {
    const bool changed = error.Code() == code::kFileChanged, gone = error.Code() == code::kFileGone;
    const int title = changed ? say::kChangedTitle : gone ? say::kGoneTitle : say::kUnknownTitle;
    const int text = changed ? say::kChanged : gone ? say::kGone : say::kUnknown;
    QList<Saving> answers{Saving::Anyway, Saving::Elsewhere};
    QStringList buttons{Text(say::kSaveAnyway), Text(say::kSaveElsewhere)};
    if (changed) {  // of the others there is nothing to compare
        answers += Saving::Differences;
        buttons += Text(say::kShowDifferences);
    }
    answers += Saving::Cancel;
    buttons += Text(say::kCancel);
    const int last = static_cast<int>(buttons.size()) - 1;
    return answers[dialogs_.Ask(window_,
                                {Tone::Warning, Text(title), Say(texts_, text, QFileInfo(path).fileName()),
                                 changed || gone ? path : Shown(error.Description()), buttons, last})];
}

// The day only where it is another one.
QString OtherPrograms::Since(std::int64_t seconds) const {
    const QDateTime at = QDateTime::fromSecsSinceEpoch(seconds);
    // Without the seconds that some locales have in it.
    const QString format = QLocale().timeFormat(QLocale::ShortFormat).remove(QStringLiteral(":ss"));
    const QString time = QLocale().toString(at.time(), format);
    const bool today = at.date() == QDate::currentDate();
    return today ? time : QLocale().toString(at.date(), QLocale::ShortFormat) + QLatin1Char(' ') + time;
}

QString OtherPrograms::Words(int text, const OpenFiles::Holder& other, const QString& name) const {
    if (other.process == 0) return Say(texts_, say::kElsewhereUnknown, name);
    return Say(texts_, text, name, QString::number(other.process), Since(other.since));
}

OtherPrograms::Opening OtherPrograms::AskOpen(const OpenFiles::Holder& other, const QString& name) {
    return static_cast<Opening>(
        dialogs_.Ask(window_, {Tone::Warning,
                               Text(say::kElsewhereTitle),
                               Words(say::kElsewhere, other, name),
                               Text(say::kElsewhereHint),
                               {Text(say::kOpenAnyway), Text(say::kOpenCopy), Text(say::kCancel)},
                               2}));
}

bool OtherPrograms::AskReplace(const OpenFiles::Holder& other, const QString& name) {
    return dialogs_.Ask(window_, {Tone::Warning,
                                  Text(say::kElsewhereTitle),
                                  Words(say::kReplaceElsewhere, other, name),
                                  {},
                                  {Text(say::kReplaceAnyway), Text(say::kCancel)},
                                  1}) == 0;
}

OtherPrograms::Reloading OtherPrograms::AskReload(std::size_t changes, const QString& name) {
    if (changes == 0) return Reloading::Anyway;
    const QString words = changes == 1 ? Say(texts_, say::kReloadLosesOne, name)
                                       : Say(texts_, say::kReloadLoses, name, QString::number(changes));
    return static_cast<Reloading>(
        dialogs_.Ask(window_, {Tone::Warning,
                               Text(say::kReloadTitle),
                               words,
                               {},
                               {Text(say::kReloadAnyway), Text(say::kShowDifferences), Text(say::kCancel)},
                               2}));
}

}  // namespace calyx::ui
