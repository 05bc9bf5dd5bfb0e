#include <QCommandLineParser>
#include <QSize>

#include "app/version.h"
#include "ui/mod_main.h"

namespace calyx::ui::modMain {

namespace {

constexpr int kWrongUsage = 2;

QSize SizeOf(const QString& words) {
    const QStringList parts = words.split(QLatin1Char('x'));
    return parts.size() == 2 ? QSize(parts[0].toInt(), parts[1].toInt()) : QSize();
}

}  // namespace

CommandLine Parse(const QStringList& words) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Calyx, the configuration editor for Merrin weight indicators."));
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("configuration to open"),
                                 QStringLiteral("[FILE]"));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    const QCommandLineOption userDir(QStringLiteral("user-dir"),
                                     QStringLiteral("folder for settings and logs"), QStringLiteral("DIR"));
    const QCommandLineOption dataDir(QStringLiteral("data-dir"),
                                     QStringLiteral("folder with the program's data"), QStringLiteral("DIR"));
    const QCommandLineOption language(
        QStringLiteral("language"),
        QStringLiteral("language of texts and labels, as a file in the folder texts has it"),
        QStringLiteral("CODE"));
    const QCommandLineOption theme(QStringLiteral("theme"), QStringLiteral("system, light, dark or contrast"),
                                   QStringLiteral("NAME"));
    const QCommandLineOption picture(QStringLiteral("screenshot"),
                                     QStringLiteral("draws the window into a PNG file and ends"),
                                     QStringLiteral("FILE"));
    const QCommandLineOption size(
        QStringLiteral("size"), QStringLiteral("size of the window for the picture"), QStringLiteral("WxH"));
    const QCommandLineOption show(QStringLiteral("show"), QStringLiteral("goes to a parameter at the start"),
                                  QStringLiteral("KEY"));
    const QCommandLineOption quit(QStringLiteral("quit-after-first-paint"),
                                  QStringLiteral("ends once the window has been drawn"));
    parser.addOptions({userDir, dataDir, language, theme, picture, size, show, quit});

    CommandLine line;
    const auto wrong = [&](const QString& why) {
        line.answer = QStringLiteral("calyx: %1\n\n%2").arg(why, parser.helpText());
        line.exitCode = kWrongUsage;
        return line;
    };
    if (!parser.parse(words)) return wrong(parser.errorText());
    if (parser.isSet(help)) line.answer = parser.helpText();
    if (parser.isSet(version))
        line.answer = QStringLiteral("Calyx %1\n").arg(QString::fromStdString(ProgramVersion()));
    if (parser.positionalArguments().size() > 1) return wrong(QStringLiteral("one file at a time"));

    Options& options = line.options;
    options.file = parser.positionalArguments().value(0);
    options.userDir = parser.value(userDir);
    options.dataDir = parser.value(dataDir);
    options.language = parser.value(language);
    options.picture = parser.value(picture);
    options.show = parser.value(show);
    options.quitAfterFirstPaint = parser.isSet(quit);
    options.themeGiven = parser.isSet(theme);
    options.theme = parser.value(theme);
    if (options.theme == QStringLiteral("system")) options.theme.clear();
    const QStringList themes{QString(), QStringLiteral("light"), QStringLiteral("dark"),
                             QStringLiteral("contrast")};
    if (!themes.contains(options.theme)) return wrong(QStringLiteral("no such theme: %1").arg(options.theme));
    if (parser.isSet(size)) {
        options.size = SizeOf(parser.value(size));
        if (options.size.isEmpty())
            return wrong(QStringLiteral("the size is two numbers, for example 1366x768"));
    }
    return line;
}

}  // namespace calyx::ui::modMain
