#include "ui/dialogs/dialogs.h"

#include <QFileInfo>

#include "ui/text.h"
#include "ui/texts.h"

namespace calyx::ui {

void Tell(Dialogs& dialogs, const ResourceTexts& texts, QWidget* parent, Tone tone, const QString& title,
          const QString& text, const QString& details) {
    dialogs.Ask(parent, {tone, title, text, details, {Say(texts, say::kClose)}});
}

QString ErrorNumber(const ResourceTexts& texts, const Error& error) {
    const QString number = QString::number(error.Number(), 16).toUpper();
    return Say(texts, say::kErrorNumber, QString::number(error.Code()), QStringLiteral("0x") + number,
               Shown(error.Source()), QString::number(error.Line().number), Shown(error.Line().file));
}

void TellError(Dialogs& dialogs, const ResourceTexts& texts, QWidget* parent, const QString& title,
               const Error& error) {
    Tell(dialogs, texts, parent, Tone::Warning, title, Shown(error.Description()), ErrorNumber(texts, error));
}

bool AskReplace(Dialogs& dialogs, const ResourceTexts& texts, QWidget* parent, const QString& path) {
    if (!QFileInfo::exists(path)) return true;
    return dialogs.Ask(parent, {Tone::Warning,
                                Say(texts, say::kReplaceTitle),
                                Say(texts, say::kReplaceQuestion),
                                path,
                                {Say(texts, say::kReplace), Say(texts, say::kKeep)},
                                1}) == 0;
}

}  // namespace calyx::ui
