#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QTreeWidget>

#include "sim/tcp_server.h"
#include "tests/ui/main_window.h"
#include "ui/link/link_desk.h"

using namespace calyx;
using namespace calyx::test;

// Sending what differs the safe way, and detection, against the simulated indicator.
class LinkSafeTest : public QObject {
    Q_OBJECT

  private slots:
    void WhatDiffersIsSentReadBackAndRestored();
    void WhatIsNotReadBackIsNoSuccess();
    void ABrokenRunGoesOnAfterARestart();
    void ABrokenRunCanBeForgotten();
    void APlainDownloadGoesOnToo();
    void PausedNothingIsSent();
    void DetectionCanBeCancelled();
};

namespace {

constexpr const char* kDialog = "frmCompareIndicator";

// The document and an indicator that differ in these three parameters.
struct Differing {
    MainWindow main;
    Differing() {
        QVERIFY(main.Open("truck-scale.mrn"));
        main.app->settings.DownloadOptions = 31;
        main.Choose("linkSimulated");
        main.Choose("linkCompare");
        main.Press(kDialog, "cmdSend");
        QVERIFY2(Note().startsWith("Every line that was sent was read back"), qPrintable(Note()));
        Close();
        main.window->Session().Edit({{"UID", "ONE"}, {"SC.GRADS#1", "4000"}, {"SC.ZRANGE#1", "1.8%"}},
                                    "edit");
        main.window->Desk().Simulator()->ForgetReceived();
    }
    QString Note() { return main.Dialog(kDialog)->findChild<QLabel*>("lblCount")->text(); }
    QPushButton* Button(const char* name) { return main.Dialog(kDialog)->findChild<QPushButton*>(name); }
    void Close() {
        main.Press(kDialog, "cmdClose");
        QTRY_VERIFY(main.Dialog(kDialog) == nullptr);
    }
    QTreeWidgetItem* Item(const QString& key) {
        auto* lines = main.Dialog(kDialog)->findChild<QTreeWidget*>("lines");
        const auto found = lines->findItems(key, Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? nullptr : found.front();
    }
    QString State(const QString& key) { return Item(key)->text(4); }
    std::string Dump() { return main.window->Desk().Simulator()->Snapshot().dump; }
    bool Holds(const std::string& line) { return Dump().find(line + "\r\n") != std::string::npos; }
    QStringList Backups() { return QDir(main.Path("backups")).entryList({"*.mrn"}); }
};

}  // namespace

void LinkSafeTest::WhatDiffersIsSentReadBackAndRestored() {
    Differing test;
    const std::string before = test.Dump();
    test.main.Choose("linkCompare");
    QVERIFY2(test.Note().startsWith("To be sent: 3."), qPrintable(test.Note()));
    QVERIFY(!test.Backups().isEmpty());
    test.Item("SC.GRADS#1")->setCheckState(0, Qt::Unchecked);
    QCOMPARE(test.State("SC.GRADS#1"), "Left out");
    test.main.Press(kDialog, "cmdSend");
    QVERIFY2(test.Note().contains("Sent: 2. Refused: 0."), qPrintable(test.Note()));
    QCOMPARE(test.State("UID"), "Read back as sent");
    QVERIFY(test.Holds("UID=ONE"));
    QVERIFY(!test.Holds("SC.GRADS#1=4000"));
    test.main.Press(kDialog, "cmdRestore");
    QVERIFY2(test.Note().startsWith("What was there is back"), qPrintable(test.Note()));
    QCOMPARE(test.Dump(), before);
    VERIFY_DIALOGS(test.main);
}

void LinkSafeTest::WhatIsNotReadBackIsNoSuccess() {
    Differing test;
    test.main.window->Desk().Simulator()->AddFault("forget:UID");
    test.main.window->Desk().Simulator()->AddFault("refuse:SC.GRADS*");
    test.main.Choose("linkCompare");
    test.main.Press(kDialog, "cmdSend");
    QVERIFY2(test.Note().startsWith("Not every line"), qPrintable(test.Note()));
    QVERIFY2(test.Note().contains("Sent: 2. Refused: 1."), qPrintable(test.Note()));
    QVERIFY2(test.State("UID").startsWith("Accepted, but"), qPrintable(test.State("UID")));
    QCOMPARE(test.State("SC.GRADS#1"), "Refused");
    QCOMPARE(test.State("SC.ZRANGE#1"), "Read back as sent");
}

void LinkSafeTest::ABrokenRunGoesOnAfterARestart() {
    Differing test;
    test.main.Choose("linkCompare");
    // After the probe and one line the wire is cut; the other lines are left.
    test.main.window->Desk().Simulator()->AddFault("drop:2");
    test.main.Press(kDialog, "cmdSend");
    QVERIFY2(test.Note().startsWith("Paused"), qPrintable(test.Note()));
    QVERIFY(test.main.dialogs.asked.isEmpty());  // the window says what is to be done, and nothing else does
    QCOMPARE(test.Button("cmdSend")->text(), "Res&ume");
    test.Close();
    QVERIFY(QFile::exists(test.main.Path("send.journal")));

    // The same indicator is there when the program runs again.
    sim::SimulatorOptions options;
    options.content = test.Dump();
    sim::TcpSimulator indicator(options);
    test.main.window->Session().Save(ui::Utf8(test.main.Path("work.mrn")));
    test.main.dialogs.Answer("Resume");
    test.main.dialogs.Answer("Connect...");
    test.main.dialogs.Answer("It is the same");
    test.main.Restart();
    QVERIFY(test.main.window->Files().OpenPath(test.main.Path("work.mrn"), true));
    QTRY_VERIFY(test.main.Dialog("frmConnect") != nullptr);
    auto* connect = test.main.Dialog("frmConnect");
    connect->findChild<QRadioButton*>("optTcp")->click();
    connect->findChild<QLineEdit*>("txtHost")->setText("127.0.0.1");
    connect->findChild<QLineEdit*>("txtPort")->setText(QString::number(indicator.Port()));
    test.main.Press("frmConnect", "cmdConnect");
    QTRY_VERIFY(test.main.Dialog(kDialog) != nullptr && test.Note().contains("Sent: 3"));
    QVERIFY(!QFile::exists(test.main.Path("send.journal")));
    for (const char* line : {"UID=ONE", "SC.GRADS#1=4000", "SC.ZRANGE#1=1.8%"})
        QVERIFY2(indicator.Snapshot().dump.find(line) != std::string::npos, line);
    test.main.Press(kDialog, "cmdRestore");
    QVERIFY2(test.Note().startsWith("What was there is back"), qPrintable(test.Note()));
    QVERIFY(indicator.Snapshot().dump.find("UID=ONE") == std::string::npos);
    test.Close();
    VERIFY_DIALOGS(test.main);
}

void LinkSafeTest::ABrokenRunCanBeForgotten() {
    Differing test;
    test.main.Choose("linkCompare");
    test.main.window->Desk().Simulator()->AddFault("drop:2");
    test.main.Press(kDialog, "cmdSend");
    test.Close();
    test.main.dialogs.Answer("Connect...");
    test.main.Choose("linkCompare");
    QTRY_VERIFY(test.main.Dialog("frmConnect") != nullptr);
    test.main.dialogs.Answer("Forget it");
    test.main.Press("frmConnect", "cmdSimulated");
    QTRY_VERIFY(test.main.Dialog(kDialog) != nullptr && test.Note().startsWith("To be sent: 2"));
    QVERIFY(!QFile::exists(test.main.Path("send.journal")));
    VERIFY_DIALOGS(test.main);
}

void LinkSafeTest::APlainDownloadGoesOnToo() {
    Differing test;
    test.main.window->Desk().Simulator()->AddFault("drop:40");
    test.main.Choose("linkSend");
    test.main.Press("frmDownload", "cmdStart");
    const QString status = test.main.Dialog("frmDownload")->findChild<QLabel*>("lblStatus")->text();
    QVERIFY2(status.contains("The position is kept"), qPrintable(status));
    test.main.Press("frmDownload", "cmdClose");
    QTRY_VERIFY(test.main.Dialog("frmDownload") == nullptr);
    QVERIFY(QFile::exists(test.main.Path("send.journal")));

    test.main.dialogs.Answer("Connect...");
    test.main.Choose("linkSend");
    QTRY_VERIFY(test.main.Dialog("frmConnect") != nullptr);
    test.main.dialogs.Answer("Resume");
    test.main.Press("frmConnect", "cmdSimulated");
    QVERIFY(!test.main.dialogs.asked.back().buttons.contains("Restore what was there"));
    QTRY_VERIFY(test.main.Dialog(kDialog) != nullptr && test.Note().contains("Sent: "));
    QVERIFY(!QFile::exists(test.main.Path("send.journal")));
    for (const char* line : {"UID=ONE", "SC.GRADS#1=4000", "SC.ZRANGE#1=1.8%"})
        QVERIFY2(test.Holds(line), line);
    VERIFY_DIALOGS(test.main);
}

void LinkSafeTest::PausedNothingIsSent() {
    Differing test;
    test.main.Choose("linkCompare");
    test.main.window->Desk().Simulator()->ForgetReceived();
    std::size_t paused = 0, later = 0;
    const auto received = [&] { return test.main.window->Desk().Simulator()->Snapshot().received.size(); };
    auto* dialog = test.main.Dialog(kDialog);
    const auto look = [&, dialog] {
        paused = received();
        QTimer::singleShot(50, dialog, [&] {
            later = received();
            test.Button("cmdAbort")->click();
        });
    };
    // With the first line on its way; it is still answered.
    bool first = true;
    connect(&test.main.window->Desk(), &ui::LinkDesk::Logged, dialog, [&, dialog](const QString& line) {
        if (!line.contains('=') || !std::exchange(first, false)) return;
        test.Button("cmdPause")->click();
        QTimer::singleShot(100, dialog, look);
    });
    test.main.Press(kDialog, "cmdSend");
    QVERIFY(later > 0);
    QCOMPARE(later, paused);
    QVERIFY2(test.Note().startsWith("The download was aborted"), qPrintable(test.Note()));
    // Neither while it paused nor on leaving.
    const int held = static_cast<int>(test.Holds("UID=ONE")) +
                     static_cast<int>(test.Holds("SC.GRADS#1=4000")) +
                     static_cast<int>(test.Holds("SC.ZRANGE#1=1.8%"));
    QCOMPARE(held, 1);
    QVERIFY(!test.main.window->Desk().Busy());
}

void LinkSafeTest::DetectionCanBeCancelled() {
    // A port at which nobody answers.
    if (!QFile::exists("/dev/ptmx")) QSKIP("no pseudo-terminals here");
    MainWindow main;
    main.Choose("linkConnect");
    auto* dialog = main.Dialog("frmConnect");
    dialog->findChild<QComboBox*>("cboPort")->setEditText("/dev/ptmx");
    QString tried;
    connect(&main.window->Desk(), &ui::LinkDesk::Detecting, dialog, [&](const QString& settings) {
        tried = settings;
        dialog->reject();
    });
    main.Press("frmConnect", "cmdDetect");
    QCOMPARE(tried, "9600,E,7,1");
    QVERIFY(dialog->isVisible());
    QCOMPARE(dialog->findChild<QLabel*>("lblNote")->text(),
             "Detection was cancelled. The settings are as they were.");
    QVERIFY(!main.window->Desk().Busy());
    QCOMPARE(main.app->settings.IndicatorPort, "/dev/ptmx");
    QCOMPARE(main.app->settings.IndicatorParity, "N");
}

QTEST_MAIN(LinkSafeTest)
#include "link_safe_test.moc"
