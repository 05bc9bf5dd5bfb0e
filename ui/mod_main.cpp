#include "ui/mod_main.h"

#include <QApplication>
#include <QPixmap>
#include <QTimer>
#include <exception>
#include <iostream>

#include "app/startup.h"
#include "ui/dialogs/qt_dialogs.h"
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

    bool notify(QObject* receiver, QEvent* event) override {
        try {
            return QApplication::notify(receiver, event);
        } catch (const Error& error) {
            Report(error);
        } catch (const std::exception& failure) {
            Report(Error(say::kUnexpected, "Calyx.modMain.notify", failure.what()));
        }
        return false;
    }

  private:
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

void ShowNotices(AppContext& app, Dialogs& dialogs, QWidget* window) {
    if (app.notices.empty()) return;
    QStringList words;
    for (const Error& notice : app.notices) words += Shown(notice.Description());
    app.notices.clear();
    Tell(dialogs, app.model.texts, window, Tone::Information, Say(app.model.texts, say::kNoticesTitle),
         words.join(QStringLiteral("\n\n")));
}

int DrawPicture(frmMain& window, const Options& options) {
    if (!options.size.isEmpty()) window.resize(options.size);
    window.show();
    QCoreApplication::processEvents();
    window.Panes().Refresh();
    QCoreApplication::processEvents();
    if (window.grab().save(options.picture, "PNG")) return 0;
    std::cerr << "calyx: cannot write " << Utf8(options.picture) << '\n';
    return kCannotRun;
}

int RunWindow(Application& application, AppContext& app, const Options& options) {
    QtDialogs dialogs;
    application.Serve(app, dialogs);
    PutOn(application, LookOf(options.themeGiven ? Utf8(options.theme) : app.settings.Theme));
    frmMain window(app, dialogs);
    const bool drawn = !options.picture.isEmpty();
    // A picture is drawn without anyone there to answer questions.
    if (!options.file.isEmpty() && !window.Files().OpenPath(options.file, drawn) && drawn) return kCannotRun;
    if (drawn) return DrawPicture(window, options);
    FirstPaint firstPaint;
    if (options.quitAfterFirstPaint) window.installEventFilter(&firstPaint);
    window.show();
    if (!options.quitAfterFirstPaint) {
        QTimer::singleShot(0, &window, [&] { ShowNotices(app, dialogs, &window); });
    }
    return QApplication::exec();
}

}  // namespace

int Run(int argc, char** argv) {
    Application application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Calyx"));
    const CommandLine line = Parse(QApplication::arguments());
    if (!line.answer.isEmpty()) {
        (line.exitCode == 0 ? std::cout : std::cerr) << Utf8(line.answer);
        return line.exitCode;
    }
    modStartup::Options start;
    start.folders.userDir = Utf8(line.options.userDir);
    start.folders.dataDir = Utf8(line.options.dataDir);
    try {
        const auto app = modStartup::Main(start);
        return RunWindow(application, *app, line.options);
    } catch (const Error& error) {
        std::cerr << "calyx: " << ErrorLine(error) << '\n';
        QtDialogs().Ask(nullptr, {Tone::Warning,
                                  QStringLiteral("Calyx"),
                                  Shown(error.Description()),
                                  {},
                                  {QStringLiteral("Close")}});
        return kCannotRun;
    }
}

}  // namespace calyx::ui::modMain
