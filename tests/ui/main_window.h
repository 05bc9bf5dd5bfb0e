#pragma once

#include <QAction>
#include <QDialog>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

#include "app/startup.h"
#include "tests/ui/scripted_dialogs.h"
#include "ui/text.h"
#include "ui/window/chrome_style.h"
#include "ui/window/frm_main.h"

namespace calyx::test {

// The real main window over the program's own data, with folders of its own and the user's answers
// scripted.
class MainWindow {
  public:
    MainWindow() : MainWindow(nullptr) {}
    // A second program of the same user.
    explicit MainWindow(const MainWindow* beside) {
        modStartup::Options options;
        options.folders.dataDir = CALYX_DATA_DIR;
        options.folders.userDir = (beside != nullptr ? beside->folder : folder).path().toStdString();
        app = modStartup::Main(options);
        app->settings.CommDelayTime = 2;  // ms, the unit of the link's waits
        Restart();
        window->resize(1366, 768);  // more than the screen of a run without one
    }
    // The program closed and started again with what it kept.
    void Restart() {
        window = std::make_unique<ui::frmMain>(*app, dialogs);
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }

    template <class T = QWidget>
    T* Find(const char* name) {
        T* found = window->findChild<T*>(QLatin1String(name));
        if (found == nullptr) qFatal("no %s", name);
        return found;
    }
    void Choose(const char* command) { Find<QAction>(command)->trigger(); }
    bool Open(const char* sample) { return window->Files().OpenPath(Sample(sample), true); }
    QDialog* Dialog(const char* name) { return window->findChild<QDialog*>(QLatin1String(name)); }
    // Presses a button of a dialog by its object name.
    void Press(const char* dialog, const char* button) {
        auto* found = Dialog(dialog)->findChild<QWidget*>(QLatin1String(button));
        QTest::mouseClick(found, Qt::LeftButton);
    }

    QString Value(const char* key) {
        return ui::ShownValue(window->Session().Document().Value(key).value_or("(none)"));
    }
    QString Status(const char* name) { return Find<QLabel>(name)->text(); }
    QString Path(const char* name) const { return folder.filePath(QLatin1String(name)); }
    static QString Sample(const char* name) {
        return QStringLiteral(CALYX_DATA_DIR "/samples/") + QLatin1String(name);
    }

    QTemporaryDir folder;
    std::unique_ptr<AppContext> app;
    ScriptedDialogs dialogs;
    std::unique_ptr<ui::frmMain> window;
};

inline QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace calyx::test

// No question came that the test did not expect, and every answer was asked for.
#define VERIFY_DIALOGS(main)                            \
    QCOMPARE((main).dialogs.unexpected, QStringList()); \
    QVERIFY((main).dialogs.AllAnswersUsed())
