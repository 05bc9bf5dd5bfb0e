#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QTimer>
#include <QToolButton>

#include "tests/ui/main_window.h"
#include "ui/panes/pane_list.h"

using namespace calyx;
using namespace calyx::test;

// The Indicator menu against the simulated indicator, over a real socket.
class LinkTest : public QObject {
    Q_OBJECT

  private slots:
    void SentIsReadBackAndEqual();
    void RefusedLinesAreCountedAndShown();
    void AbortEndsALineInFlight();
    void SendingAsksForAConnection();
    void UnreachableHostIsToldInTheDialog();
    void AnIndicatorWithoutVersionIsNotConnected();
    void ConnectingCanBeGivenUp();
    void WhatWasNotSentIsTold();
    void OldFirmwareSetsTheTarget();
    void OtherCardsAreToldAndCanBeTakenOver();
    void UnknownFirmwareIsTold();
    void DownloadOptionsAreKept();
    void ReadingCanBeCancelled();
    void NotInSetupModeSendsNothing();
};

namespace {

void ConnectSimulated(MainWindow& main) {
    main.Choose("linkSimulated");
    QVERIFY(main.window->Desk().Connected());
}

void SendEverything(MainWindow& main) {
    main.Choose("linkSend");
    for (QCheckBox* box : main.Dialog("frmDownload")->findChildren<QCheckBox*>()) {
        if (box->objectName() != "chkCODFile") box->setChecked(box->isEnabled());
    }
    main.Press("frmDownload", "cmdStart");
}

QString DialogText(MainWindow& main, const char* dialog, const char* label) {
    return main.Dialog(dialog)->findChild<QLabel*>(QLatin1String(label))->text();
}

}  // namespace

void LinkTest::SentIsReadBackAndEqual() {
    MainWindow main;
    QVERIFY(main.Open("truck-scale.mrn"));
    ConnectSimulated(main);
    QVERIFY(main.Status("statusDevice").contains("V3.10.02 MERRIN"));
    SendEverything(main);
    QCOMPARE(DialogText(main, "frmDownload", "lblDownloadErrors"), "Errors: 0");
    QCOMPARE(DialogText(main, "frmDownload", "lblStatus"), "The download is complete.");
    main.Press("frmDownload", "cmdClose");
    QVERIFY(main.Status("statusDevice").contains("sent"));

    main.Choose("linkCompare");
    QVERIFY(DialogText(main, "frmCompareIndicator", "lblCount").startsWith("No differences"));
    main.Press("frmCompareIndicator", "cmdClose");
    QTRY_VERIFY(main.Dialog("frmCompareIndicator") == nullptr);

    const auto before = main.window->Session().Document().Lines();
    main.dialogs.AnswerFile(main.Path("read.mrn"));
    main.dialogs.Answer("Check it");
    main.Choose("linkRead");
    QVERIFY(main.Status("statusFile").startsWith("read.mrn"));
    const ChangeSet different = Difference(before, main.window->Session().Document().Lines());
    for (const Change& change : different.Changes()) {
        // The indicator tells its own version and keeps to itself which cards are in it.
        QVERIFY2(change.key == "VERSION" || change.key == "HARDWARE", change.key.c_str());
    }
    QCOMPARE(main.window->Panes().currentWidget(), &main.window->Panes().Problems());
    VERIFY_DIALOGS(main);
}

void LinkTest::RefusedLinesAreCountedAndShown() {
    MainWindow main;
    ConnectSimulated(main);
    main.window->Desk().Simulator()->AddFault("refuse:UID*");
    main.dialogs.Answer("View errors");
    SendEverything(main);
    QCOMPARE(DialogText(main, "frmDownload", "lblDownloadErrors"), "Errors: 1");
    QVERIFY(main.dialogs.asked.back().text.startsWith("There were 1 error(s) encountered"));
    const auto* errors = main.Dialog("frmDownload")->findChild<QDialog*>("frmDownloadErrors");
    QVERIFY(errors->findChild<ui::PaneList*>()->AsText().startsWith("UID=1\t"));
    VERIFY_DIALOGS(main);
}

void LinkTest::AbortEndsALineInFlight() {
    MainWindow main;
    ConnectSimulated(main);
    main.window->Desk().Simulator()->AddFault("silent");
    main.Choose("linkSend");
    QTimer::singleShot(0, [&] {
        QVERIFY(main.window->Desk().Busy());
        main.Choose("linkCompare");  // a second exchange is refused
        QVERIFY(!main.window->close());
        main.Press("frmDownload", "cmdAbort");
    });
    main.Press("frmDownload", "cmdStart");
    QVERIFY(DialogText(main, "frmDownload", "lblStatus").startsWith("The download was aborted"));
    QVERIFY(!main.window->Desk().Busy());
    QCOMPARE(main.dialogs.asked.size(), 2);
    for (const ui::Question& told : main.dialogs.asked) QCOMPARE(told.title, "The link is in use");
}

void LinkTest::SendingAsksForAConnection() {
    MainWindow main;
    main.dialogs.Answer("Cancel");
    main.Choose("linkSend");
    QVERIFY(main.Dialog("frmDownload") == nullptr);
    main.dialogs.Answer("Connect...");
    main.Choose("linkSend");
    main.Press("frmConnect", "cmdSimulated");
    QTRY_VERIFY(main.Dialog("frmDownload") != nullptr);  // it goes on once connected
    VERIFY_DIALOGS(main);
}

void LinkTest::UnreachableHostIsToldInTheDialog() {
    std::uint16_t closedPort = 0;
    {
        sim::TcpSimulator gone(sim::SimulatorOptions{});
        closedPort = gone.Port();
    }
    MainWindow main;
    main.Choose("linkConnect");
    auto* dialog = main.Dialog("frmConnect");
    dialog->findChild<QRadioButton*>("optTcp")->click();
    dialog->findChild<QLineEdit*>("txtHost")->setText("127.0.0.1");
    dialog->findChild<QLineEdit*>("txtPort")->setText(QString::number(closedPort));
    main.Press("frmConnect", "cmdConnect");
    QVERIFY(dialog->isVisible());
    QVERIFY(DialogText(main, "frmConnect", "lblNote").contains(QString::number(closedPort)));
    dialog->findChild<QLineEdit*>("txtPort")->setText("0");
    main.Press("frmConnect", "cmdConnect");
    QVERIFY(DialogText(main, "frmConnect", "lblNote").contains("65535"));
    QVERIFY(main.Status("statusDevice").startsWith("Not connected"));
}

void LinkTest::AnIndicatorWithoutVersionIsNotConnected() {
    MainWindow main;
    sim::SimulatorOptions options;
    options.version = "V3 MERRIN";  // it is heard, and does not tell its firmware
    sim::TcpSimulator indicator(options);
    try {
        main.window->Desk().Open("127.0.0.1", indicator.Port());
        QFAIL("connected");
    } catch (const Error& error) {
        QCOMPARE(error.Code(), code::kLink);
    }
    QVERIFY(!main.window->Desk().Connected());
    QVERIFY(!main.window->Desk().Link().Connected());
    QVERIFY(main.Status("statusDevice").startsWith("Not connected"));
    QVERIFY(!main.window->Desk().Busy());
}

void LinkTest::ConnectingCanBeGivenUp() {
    MainWindow main;
    sim::TcpSimulator indicator(sim::SimulatorOptions{});
    indicator.AddFault("silent");
    main.app->settings.CommDelayTime = 5000;  // ms; far beyond the moment of giving up
    main.Choose("linkConnect");
    auto* dialog = main.Dialog("frmConnect");
    dialog->findChild<QRadioButton*>("optTcp")->click();
    dialog->findChild<QLineEdit*>("txtHost")->setText("127.0.0.1");
    dialog->findChild<QLineEdit*>("txtPort")->setText(QString::number(indicator.Port()));
    QTimer::singleShot(0, dialog, [dialog] { dialog->reject(); });
    main.Press("frmConnect", "cmdConnect");
    QVERIFY(!main.window->Desk().Link().Connected());
    QVERIFY(dialog->isVisible());
    QVERIFY(dialog->findChild<QLineEdit*>("txtHost")->hasFocus());
}

void LinkTest::WhatWasNotSentIsTold() {
    MainWindow main;
    QVERIFY(main.Open("truck-scale.mrn"));
    ConnectSimulated(main);
    main.window->Desk().Simulator()->AddFault("refuse:UID*");
    main.Choose("linkCompare");
    main.Press("frmCompareIndicator", "cmdClose");
    QTRY_VERIFY(main.Dialog("frmCompareIndicator") == nullptr);
    const auto mark = [&](const char* key) {
        return main.Find<QWidget>((std::string(key) + ".mark").c_str())->toolTip();
    };
    QVERIFY(mark("UID").contains("Differs"));
    main.dialogs.Answer("Not now");
    SendEverything(main);
    main.Press("frmDownload", "cmdClose");
    QTRY_VERIFY(main.Dialog("frmDownload") == nullptr);
    QVERIFY2(main.Status("statusDevice").endsWith("not sent: 1"), qPrintable(main.Status("statusDevice")));
    QVERIFY(mark("UID").contains("Differs"));  // the one that was refused still does
    main.window->Desk().Simulator()->ClearFaults();
    SendEverything(main);
    main.Press("frmDownload", "cmdClose");
    QVERIFY(!main.Status("statusDevice").contains("not sent"));
    QVERIFY(!mark("UID").contains("Differs"));
    main.window->Session().SetParameter("UID", "OTHER", false);
    QTRY_VERIFY(main.Status("statusDevice").endsWith("changes since: 1"));
    main.Choose("linkSimulated");  // another connection, and who knows what that one holds
    QVERIFY(!main.Status("statusDevice").contains("sent"));
    VERIFY_DIALOGS(main);
}

void LinkTest::OldFirmwareSetsTheTarget() {
    sim::SimulatorOptions options;
    options.version = "V2.08.01 CB2 MERRIN";
    sim::TcpSimulator indicator(options);
    MainWindow main;
    main.window->Desk().Open("127.0.0.1", indicator.Port());
    QCOMPARE(main.Status("statusTarget"), "Target 2.08 with CB2");
    QVERIFY(main.Find<ui::ctlLines>("ctlLines")
                ->findChild<QComboBox*>("linesTarget")
                ->findText("as sent to 2.08 (connected)") > 0);
    QCOMPARE(main.app->settings.TCPPort, static_cast<std::int16_t>(indicator.Port()));
    indicator.Stop();
    QTRY_VERIFY(!main.window->Desk().Link().Connected());
    main.dialogs.Answer("Cancel");
    main.Choose("linkSend");  // notices the loss and offers to connect
    QVERIFY(main.Status("statusDevice").startsWith("Not connected"));
    VERIFY_DIALOGS(main);
}

void LinkTest::OtherCardsAreToldAndCanBeTakenOver() {
    MainWindow main;
    QVERIFY(main.Open("truck-scale.mrn"));
    ConnectSimulated(main);  // it has the cards of the configuration
    main.Choose("linkDisconnect");
    main.window->Session().Do("card", [](CIndicator& d) { return d.ChangeCard(6, card::kMemory); });
    main.dialogs.Answer("Show the slots");
    ConnectSimulated(main);
    QVERIFY(main.dialogs.asked.back().text.contains("Slot 6"));
    auto* slot = main.Find<QToolButton>("slot6");
    QVERIFY(slot->hasFocus());
    const auto words = [&] { return slot->findChild<QLabel*>("brings")->text(); };
    QCOMPARE(words(), "Indicator has no card here");
    QTest::mouseClick(slot, Qt::LeftButton);
    auto* menu = slot->findChildren<QMenu*>("menuCards").back();
    menu->actions().front()->trigger();  // as in the indicator
    menu->close();
    QCOMPARE(words(), "");
    main.Choose("editUndo");
    QCOMPARE(words(), "Indicator has no card here");
    main.Choose("linkDisconnect");
    QVERIFY(words() != "Indicator has no card here");
    VERIFY_DIALOGS(main);
}

void LinkTest::UnknownFirmwareIsTold() {
    MainWindow main;
    sim::SimulatorOptions options;
    options.version = "V3.12.01 MERRIN";
    sim::TcpSimulator indicator(options);
    main.Choose("linkConnect");
    auto* dialog = main.Dialog("frmConnect");
    dialog->findChild<QRadioButton*>("optTcp")->click();
    dialog->findChild<QLineEdit*>("txtHost")->setText("127.0.0.1");
    dialog->findChild<QLineEdit*>("txtPort")->setText(QString::number(indicator.Port()));
    main.Press("frmConnect", "cmdConnect");
    QTRY_COMPARE(main.dialogs.asked.size(), 1);
    QCOMPARE(main.dialogs.asked.front().title, "Unknown firmware");
}

void LinkTest::DownloadOptionsAreKept() {
    MainWindow main;
    QVERIFY(main.Open("batching-plant.mrn"));
    ConnectSimulated(main);
    main.app->settings.DownloadOptions = 1 + 8;  // base and widgets; this configuration has no widgets
    main.Choose("linkSend");
    auto* dialog = main.Dialog("frmDownload");
    QVERIFY(dialog->findChild<QCheckBox*>("chkBase")->isChecked());
    QVERIFY(!dialog->findChild<QCheckBox*>("chkWidgets")->isEnabled());
    dialog->findChild<QCheckBox*>("chkSetpoints")->setChecked(true);
    main.Press("frmDownload", "cmdClose");
    QCOMPARE(main.app->settings.DownloadOptions, 1 + 4 + 8);
}

void LinkTest::ReadingCanBeCancelled() {
    MainWindow main;
    ConnectSimulated(main);
    main.window->Session().SetParameter("UID", "MINE", false);
    main.dialogs.Answer("Discard changes");
    main.dialogs.AnswerFile(main.Path("read.mrn"));
    main.app->settings.CommDelayTime = 500;  // so that the dump is waited for until Cancel is pressed
    main.window->Desk().Link().InitComm();
    main.window->Desk().Simulator()->AddFault("silent");
    QTimer::singleShot(300, [&] { main.Press("frmUpload", "cmdCancel"); });
    main.Choose("linkRead");
    QVERIFY(!QFile::exists(main.Path("read.mrn")));
    QCOMPARE(main.Value("UID"), "MINE");
    QVERIFY(!main.window->Desk().Busy());
    VERIFY_DIALOGS(main);
}

void LinkTest::NotInSetupModeSendsNothing() {
    MainWindow main;
    ConnectSimulated(main);
    main.window->Desk().Simulator()->AddFault("notsetup");
    SendEverything(main);
    QVERIFY(main.dialogs.asked.back().text.startsWith("The indicator is not in setup mode"));
    QCOMPARE(main.dialogs.asked.size(), 1);
    const auto received = main.window->Desk().Simulator()->Snapshot().received;
    QCOMPARE(std::count_if(received.begin(), received.end(),
                           [](const std::string& line) { return line.find('=') != std::string::npos; }),
             0);
}

QTEST_MAIN(LinkTest)
#include "link_test.moc"
