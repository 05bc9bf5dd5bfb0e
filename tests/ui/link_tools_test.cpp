#include <QAbstractItemView>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>

#include "tests/ui/main_window.h"
#include "ui/link/link_desk.h"

using namespace calyx;
using namespace calyx::test;

// The terminal, training and the stream simulator.
class LinkToolsTest : public QObject {
    Q_OBJECT

  private slots:
    void TypedLinesAreAnsweredAndRemembered();
    void EnterSendsBesideCompletions();
    void MacroKeysAreKept();
    void SendingAFileCanBeCancelled();
    void FaultsHoldFromNowOn();
    void StreamsGoOutAsThePortDefinesThem();
};

namespace {

struct Terminal {
    MainWindow main;
    Terminal() {
        main.Choose("linkSimulated");
        main.Choose("linkTerminal");
    }
    template <class T>
    T* Find(const char* name) {
        return main.Dialog("frmTerminal")->findChild<T*>(QLatin1String(name));
    }
    QString Log() { return Find<QPlainTextEdit>("terminalLog")->toPlainText(); }
    void Type(const char* line) {
        Find<QLineEdit>("txtLine")->setText(QLatin1String(line));
        main.Press("frmTerminal", "cmdSend");
    }
};

}  // namespace

void LinkToolsTest::TypedLinesAreAnsweredAndRemembered() {
    Terminal test;
    test.Type("UID=GATE");
    test.Type("NOSUCH");
    QVERIFY2(test.Log().contains("> UID=GATE\n"), qPrintable(test.Log()));
    QVERIFY(test.Log().contains("< OK"));
    QVERIFY(test.Log().contains("< ??"));
    auto* line = test.Find<QLineEdit>("txtLine");
    line->setFocus();
    QTest::keyClick(line, Qt::Key_Up);
    QTest::keyClick(line, Qt::Key_Up);
    QCOMPARE(line->text(), "UID=GATE");
    test.Find<QCheckBox>("chkHex")->setChecked(true);
    QVERIFY(test.Log().contains("55 49 44 3D 47 41 54 45"));
    test.Find<QCheckBox>("chkHex")->setChecked(false);
    test.Find<QLineEdit>("txtFilter")->setText("??");
    QVERIFY(!test.Log().contains("GATE"));
}

// The list of completions gets the keys while it is open.
void LinkToolsTest::EnterSendsBesideCompletions() {
    Terminal test;
    auto* line = test.Find<QLineEdit>("txtLine");
    QAbstractItemView* list = line->completer()->popup();
    line->setFocus();
    QTest::keyClicks(line, "VERSIO");
    QTRY_VERIFY(list->isVisible());
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Return);
    QCOMPARE(line->text(), "VERSION");
    QCOMPARE(test.Log().count("VERSION\n"), 0);
    line->clear();
    QTest::keyClicks(line, "UID");
    QTRY_VERIFY(list->isVisible());
    QTest::keyClick(list, Qt::Key_Return);
    QVERIFY2(test.Log().contains("> UID\n"), qPrintable(test.Log()));
    QVERIFY(!list->isVisible());
}

void LinkToolsTest::MacroKeysAreKept() {
    Terminal test;
    auto* key = test.Find<QPushButton>("macro3");
    key->click();  // a free key asks what it shall send
    auto* dialog = test.Find<QDialog>("frmMacro");
    dialog->findChild<QLineEdit*>("txtCaption")->setText("Two");
    dialog->findChild<QPlainTextEdit*>("txtMacro")->setPlainText("UID=A\nUID=B");
    dialog->findChild<QPushButton*>("cmdKeep")->click();
    QCOMPARE(key->text(), "F3 Two");
    delete test.main.Dialog("frmTerminal");
    test.main.Choose("linkTerminal");
    test.Find<QPushButton>("macro3")->click();
    QVERIFY(test.Log().contains("UID=B"));
    QCOMPARE(test.Find<QLabel>("lblNote")->text(), "Sent 2 of 2 lines, not accepted: 0.");
}

void LinkToolsTest::SendingAFileCanBeCancelled() {
    Terminal test;
    QFile file(test.main.Path("lines.txt"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("UID=A\r\nUID=B\r\nUID=C\r\n");
    file.close();
    test.main.window->Desk().Simulator()->AddFault("silent@2+");
    test.main.dialogs.AnswerFile(file.fileName());
    QTimer::singleShot(100, [&] { test.main.Press("frmTerminal", "cmdCancel"); });
    test.main.Press("frmTerminal", "cmdSendFile");
    QVERIFY2(test.Find<QLabel>("lblNote")->text().endsWith("Sending was cancelled."),
             qPrintable(test.Find<QLabel>("lblNote")->text()));
    QVERIFY(test.main.window->Desk().Simulator()->Snapshot().dump.find("UID=A\r\n") != std::string::npos);
    QVERIFY(!test.main.window->Desk().Busy());
}

void LinkToolsTest::FaultsHoldFromNowOn() {
    MainWindow main;
    main.Choose("linkSimulated");
    const auto open = [&] {
        main.Choose("linkTraining");
        return main.Dialog("frmTraining")->findChild<QTreeWidget*>("faults");
    };
    const auto fault = [](QTreeWidget* list, const char* name) {
        return list->findItems(QLatin1String(name), Qt::MatchStartsWith).front();
    };
    QTreeWidget* list = open();
    fault(list, "refuse")->setCheckState(0, Qt::Checked);
    main.Press("frmTraining", "cmdApply");  // what it refuses is missing
    QVERIFY(main.Dialog("frmTraining")->isVisible());
    QVERIFY(main.window->Desk().Faults().empty());
    fault(list, "refuse")->setText(1, "UID*@2+");
    main.Press("frmTraining", "cmdApply");
    QTRY_VERIFY(main.Dialog("frmTraining") == nullptr);
    QCOMPARE(main.window->Desk().Faults(), std::vector<std::string>{"refuse:UID*@2+"});
    CIndicatorComm& comm = main.window->Desk().Link();
    constexpr int kWait = 1000;  // ms
    QVERIFY(comm.SendData("UID=A", kWait));
    QVERIFY(!comm.SendData("UID=B", kWait));
    list = open();
    QCOMPARE(fault(list, "refuse")->text(1), "UID*@2+");
    main.Press("frmTraining", "cmdHealthy");
    QVERIFY(comm.SendData("UID=B", kWait));
}

void LinkToolsTest::StreamsGoOutAsThePortDefinesThem() {
    if (!QFile::exists("/dev/ptmx")) QSKIP("no pseudo-terminals here");
    MainWindow main;
    main.Choose("toolsStream");
    auto* dialog = main.Dialog("frmStreamSimulator");
    dialog->findChild<QComboBox*>("cboPort")->setEditText("/dev/ptmx");
    dialog->findChild<QLineEdit*>("txtWeights")->setText("x");
    main.Press("frmStreamSimulator", "cmdStart");
    auto* note = dialog->findChild<QLabel*>("lblNote");
    QVERIFY(note->text().startsWith("Give at least one weight"));
    dialog->findChild<QLineEdit*>("txtWeights")->setText("12.5 -3.0");
    main.Press("frmStreamSimulator", "cmdStart");
    auto* last = dialog->findChild<QLabel*>("lblLast");
    QVERIFY2(last->text().contains("12.5"), qPrintable(last->text() + note->text()));
    QTRY_VERIFY(last->text().contains("3.0"));
    main.Press("frmStreamSimulator", "cmdStart");
    QCOMPARE(note->text(), "Nothing is being sent.");
    QCOMPARE(main.app->settings.StreamSimPort, "/dev/ptmx");
}

QTEST_MAIN(LinkToolsTest)
#include "link_tools_test.moc"
