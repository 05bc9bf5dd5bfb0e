#pragma once

#include <QSize>
#include <QString>
#include <QStringList>
#include <optional>

// The start of the desktop program.
namespace calyx::ui::modMain {

// The command line.
struct Options {
    QString file;      // to open; empty: a new configuration
    QString userDir;   // takes the place of the user's folders; empty: the platform's
    QString dataDir;   // takes the place of the program's data folder
    QString language;  // code of a texts file; empty: as the settings say
    QString theme;     // a word of the setting `Theme`, for this run only
    QString picture;   // PNG file that the window is drawn into, then the program ends
    QString show;      // key of the parameter to begin with; empty: the first page
    QSize size;        // of the window for the picture; invalid: as usual
    bool themeGiven = false;
    bool quitAfterFirstPaint = false;  // to measure the start
};

// What the words after the program's name say; needs a QCoreApplication. Words that are not understood,
// --help and --version are answered in `answer`, and the program ends with `exitCode`.
struct CommandLine {
    Options options;
    QString answer;
    int exitCode = 0;
};
CommandLine Parse(const QStringList& words);

// Runs the program until its window is closed. The exit code: 0, 2 for wrong usage, 3 when it cannot start
// or a picture cannot be written.
int Run(int argc, char** argv);

}  // namespace calyx::ui::modMain
