#include "ui/mod_main.h"

#include <QApplication>
#include <QHelpEvent>
#include <QMessageBox>
#include <QPixmap>
#include <QScopeGuard>
#include <QTimer>
#include <algorithm>
#include <exception>
#include <iostream>
#include <memory>
#include <utility>
#include <vector>

#include "app/startup.h"
#include "model/language/reason.h"
#include "platform/standard_output.h"
#include "ui/dialogs/qt_dialogs.h"
#include "ui/dialogs/silent_dialogs.h"
#include "ui/text.h"
#include "ui/texts.h"
#include "ui/window/chrome_style.h"
#include "ui/window/frm_main.h"

namespace calyx::ui::modMain {

namespace {

constexpr int kCannotRun = 3;

// An error that leaves a handler ends there, in the log and before the user, not in the message loop.
class Application final : public QApplication {
  public:
    Application(int& argc, char** argv) : QApplication(argc, argv) {}

    void Serve(AppContext& app, Dialogs& dialogs) {
        app_ = &app;
        dialogs_ = &dialogs;
    }

    void Rest() { app_ = nullptr; }

    bool notify(QObject* receiver, QEvent* event) override {
        if (event->type() == QEvent::ToolTip) TimeToolTip(receiver);
        try {
            return QApplication::notify(receiver, event);
        } catch (const Error& error) {
            Report(error);
        } catch (const std::exception& failure) {
            Report(Error(say::kUnexpected, "Calyx.modMain.notify", ReasonIn(failure.what())));
        }
        return false;
    }

  private:
    void TimeToolTip(QObject* receiver) {
        if (app_ == nullptr || !receiver->isWidgetType()) return;
        constexpr int kLongest = 600;  // s
        const int seconds = std::clamp<int>(app_->settings.ToolTipDisplayTime, 1, kLongest);
        static_cast<QWidget*>(receiver)->setToolTipDuration(seconds * 1000);
    }

    void Report(const Error& error) {
        if (app_ == nullptr) return;
        app_->Record(error);
        const ResourceTexts& texts = app_->model.texts;
        Tell(*dialogs_, texts, activeWindow(), Tone::Warning, Say(texts, say::kUnexpectedTitle),
             Say(texts, say::kUnexpected, Shown(error.Description())), ErrorNumber(texts, error));
    }

    AppContext* app_ = nullptr;
    Dialogs* dialogs_ = nullptr;
};

// Ends the program when the window has been drawn for the first time.
class FirstPaint final : public QObject {
  public:
    using QObject::QObject;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(0); });
        return false;
    }
};

void ShowNotices(const AppContext& app, const std::vector<Error>& notices, Dialogs& dialogs,
                 QWidget* window) {
    if (notices.empty()) return;
    QStringList words;
    for (const Error& notice : notices) words += Shown(notice.Description());
    Tell(dialogs, app.model.texts, window, Tone::Information, Say(app.model.texts, say::kNoticesTitle),
         words.join(QStringLiteral("\n\n")));
}

int DrawPicture(frmMain& window, const Options& options) {
    if (!options.size.isEmpty()) window.resize(options.size);
    window.show();
    if (!options.show.isEmpty()) window.ShowParameter(options.show);
    QCoreApplication::processEvents();
    window.Panes().Refresh();
    QCoreApplication::processEvents();
    if (window.grab().save(options.picture, "PNG")) return 0;
    std::cerr << "calyx: cannot write " << Utf8(options.picture) << '\n';
    return kCannotRun;
}

int RunWindow(Application& application, AppContext& app, const Options& options, Dialogs& dialogs) {
    application.Serve(app, dialogs);
    const auto rest = qScopeGuard([&application] { application.Rest(); });
    PutOn(application, LookOf(options.themeGiven ? Utf8(options.theme) : app.settings.Theme));
    frmMain window(app, dialogs);
    const bool drawn = !options.picture.isEmpty();
    // Of the start alone: opening the file tells what it finds by itself.
    const std::vector<Error> notices = std::exchange(app.notices, {});
    // Without questions, since nobody is there to answer them.
    if (!options.file.isEmpty() && !window.Files().OpenPath(options.file, drawn) && drawn) return kCannotRun;
    if (drawn) return DrawPicture(window, options);
    FirstPaint firstPaint;
    if (options.quitAfterFirstPaint) window.installEventFilter(&firstPaint);
    window.show();
    if (!options.show.isEmpty()) window.ShowParameter(options.show);
    if (!options.quitAfterFirstPaint) {
        QTimer::singleShot(0, &window, [&] { ShowNotices(app, notices, dialogs, &window); });
    }
    return QApplication::exec();
}

// The texts may be what is missing, so these words are English ones.
int CannotStart(Dialogs& dialogs, const QString& words) {
    dialogs.Ask(nullptr, {Tone::Warning, QStringLiteral("Calyx"), words, {}, {QStringLiteral("Close")}});
    return kCannotRun;
}

int Start(Application& application, const Options& options, Dialogs& dialogs) {
    modStartup::Options start;
    start.folders.userDir = Utf8(options.userDir);
    start.folders.dataDir = Utf8(options.dataDir);
    start.language = Utf8(options.language);
    try {
        const auto app = modStartup::Main(start);
        return RunWindow(application, *app, options, dialogs);
    } catch (const Error& error) {
        std::cerr << "calyx: " << ErrorLine(error) << '\n';
        return CannotStart(dialogs, Shown(error.Description()));
    } catch (const std::exception& failure) {
        std::cerr << "calyx: " << failure.what() << '\n';
        return CannotStart(dialogs, Shown(ReasonIn(failure.what())));
    }
}

// Words for Qt's own options ("-platform offscreen") are its application's to take out.
bool HasToolkitOptions(const QStringList& words) {
    return std::any_of(words.begin(), words.end(), [](const QString& word) {
        return word.size() > 2 && word.startsWith(QLatin1Char('-')) && !word.startsWith(QLatin1String("--"));
    });
}

int Answer(const CommandLine& line) {
    if (!HasStandardOutput()) {
        QMessageBox::information(nullptr, QStringLiteral("Calyx"),
                                 QStringLiteral("<pre>%1</pre>").arg(line.answer.toHtmlEscaped()));
        return line.exitCode;
    }
    (line.exitCode == 0 ? std::cout : std::cerr) << Utf8(line.answer);
    return line.exitCode;
}

}  // namespace

int Run(int argc, char** argv) {
    {
        // Help, version and wrong words need no screen.
        const QCoreApplication words(argc, argv);
        const CommandLine line = Parse(QCoreApplication::arguments());
        const bool inWindow = !HasStandardOutput() || HasToolkitOptions(QCoreApplication::arguments());
        if (!line.answer.isEmpty() && !inWindow) return Answer(line);
    }
    Application application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Calyx"));
    const CommandLine line = Parse(QApplication::arguments());
    if (!line.answer.isEmpty()) return Answer(line);
    std::unique_ptr<Dialogs> dialogs = std::make_unique<QtDialogs>();
    if (!line.options.picture.isEmpty()) dialogs = std::make_unique<SilentDialogs>();
    return Start(application, line.options, *dialogs);
}

}  // namespace calyx::ui::modMain
