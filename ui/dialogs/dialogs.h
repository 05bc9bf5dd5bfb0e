#pragma once

#include <QString>
#include <QStringList>

#include "model/language/error.h"
#include "model/language/resource_texts.h"

class QWidget;

namespace calyx::ui {

enum class Tone { Information, Question, Warning };

// A question in a box of its own. The buttons are verbs; the last is the one that Esc takes.
struct Question {
    Tone tone = Tone::Question;
    QString title;
    QString text;
    QString details;  // in small print below the text; may be empty
    QStringList buttons;
    int standard = 0;  // place of the button that Enter takes: the one that loses nothing
};

struct FileQuestion {
    QString title;
    QString start;        // a folder, or a file in it that is proposed
    QStringList filters;  // "Merrin configurations (*.mrn)"
    QString suffix;       // appended to a new file's name that has none: "mrn"
};

// Every box in which the program asks and waits. A test answers in the user's place.
class Dialogs {
  public:
    virtual ~Dialogs() = default;

    virtual int Ask(QWidget* parent, const Question& question) = 0;  // place of the button
    // A path; empty: cancelled. For saving, whether a file is replaced is asked by the caller.
    virtual QString AskOpenFile(QWidget* parent, const FileQuestion& question) = 0;
    virtual QString AskSaveFile(QWidget* parent, const FileQuestion& question) = 0;
};

// A message with the one button "Close".
void Tell(Dialogs& dialogs, const ResourceTexts& texts, QWidget* parent, Tone tone, const QString& title,
          const QString& text, const QString& details = {});
// An error in its own words, with number and source in small print.
void TellError(Dialogs& dialogs, const ResourceTexts& texts, QWidget* parent, const QString& title,
               const Error& error);
// "Error 10005 (0x80042715), Calyx.CIndicator.Load, line 47 of indicator_file.cpp".
QString ErrorNumber(const ResourceTexts& texts, const Error& error);
// Whether an existing file may be replaced; true for one that does not exist.
bool AskReplace(Dialogs& dialogs, const ResourceTexts& texts, QWidget* parent, const QString& path);

}  // namespace calyx::ui
