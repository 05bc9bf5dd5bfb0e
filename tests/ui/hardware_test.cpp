// The board, the pages of what the cards bring, and the ports' streams.

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>
#include <QTreeView>

#include "tests/ui/main_window.h"

using namespace calyx;
using namespace calyx::test;

class HardwareTest : public QObject {
    Q_OBJECT

  private slots:
    void ACardComesAndGoesAsOneStep();
    void SettingsAreNotDroppedWithoutAQuestion();
    void PortsAreListedOpenedAndWalked();
    void APortThatGoesTakesItsPageAlong();
    void StreamFormatsAreSavedLoadedAndDeleted();
    void SampleFollowsTheStream();
    void OnLowScreensTheStreamScrollsAlong();
    void AFieldbusCardWithoutLinesGetsThemWhenChosenAgain();
};

namespace {

// Chooses a card from the menu of a slot.
void Put(MainWindow& main, int slot, int code) {
    auto* button = main.Find<QToolButton>(qPrintable(QStringLiteral("slot%1").arg(slot)));
    QTest::mouseClick(button, Qt::LeftButton);
    // Closed ones are deleted later.
    auto* menu = button->findChildren<QMenu*>("menuCards").back();
    for (QAction* action : menu->actions()) {
        if (action->data().isValid() && action->data().toInt() == code) action->trigger();
    }
    menu->close();
}

QString SlotName(MainWindow& main, int slot) {
    return main.Find<QToolButton>(qPrintable(QStringLiteral("slot%1").arg(slot)))
        ->findChild<QLabel*>("name")
        ->text();
}

}  // namespace

void HardwareTest::ACardComesAndGoesAsOneStep() {
    MainWindow main;
    main.window->ShowParameter("HARDWARE");
    Put(main, 3, 8);
    QCOMPARE(SlotName(main, 3), "Profibus DP");
    QCOMPARE(main.Value("FB.SIZE#3"), "8");
    main.Choose("editUndo");
    QCOMPARE(SlotName(main, 3), "Empty");
    QCOMPARE(main.Value("FB.SIZE#3"), "(none)");
    QVERIFY(!main.window->isWindowModified());
    main.Choose("editRedo");
    QCOMPARE(main.Value("FB.SIZE#3"), "8");
    auto* slot = main.Find<QToolButton>("slot3");
    slot->setFocus();
    QTest::keyClick(slot, Qt::Key_Delete);
    QCOMPARE(SlotName(main, 3), "Empty");
    QCOMPARE(main.Value("FB.SIZE#3"), "(none)");
    main.Choose("editUndo");
    QCOMPARE(main.Value("FB.SIZE#3"), "8");
    main.window->ShowParameter("HARDWARE");
    main.Find<QToolButton>("slot5")->setFocus();
    Put(main, 5, card::kPulseInput);
    main.Choose("editUndo");
    QVERIFY(main.Find<QToolButton>("slot5")->hasFocus());  // undo stays where the card is
    VERIFY_DIALOGS(main);
}

void HardwareTest::SettingsAreNotDroppedWithoutAQuestion() {
    MainWindow main;
    main.window->ShowParameter("HARDWARE");
    Put(main, 1, card::kDualSerial);
    Put(main, 1, card::kEmptySlot);  // nothing was set: no question
    Put(main, 1, card::kDualSerial);
    main.window->Session().SetParameter("EDP.ALIAS#5", "Gate", false);
    main.dialogs.Answer("Keep the card");
    Put(main, 1, card::kEmptySlot);
    QCOMPARE(main.Value("EDP.ALIAS#5"), "Gate");
    main.dialogs.Answer("Drop its settings");
    Put(main, 1, card::kAnalogOutput);
    QCOMPARE(main.Value("EDP.ALIAS#5"), "(none)");
    main.Choose("editUndo");
    QCOMPARE(main.Value("EDP.ALIAS#5"), "Gate");
    VERIFY_DIALOGS(main);
}

void HardwareTest::PortsAreListedOpenedAndWalked() {
    MainWindow main;
    QVERIFY(main.Open("truck-scale.mrn"));
    main.window->ShowParameter("EDP.ALIAS#9");
    QCOMPARE(main.Status("itemTitle"), "Port 9");
    QTRY_VERIFY(main.Find<QLineEdit>("EDP.ALIAS#9")->hasFocus());
    QTest::keyClick(main.Find<QLineEdit>("EDP.ALIAS#9"), Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(main.Status("itemTitle"), "Port 10");
    QTest::keyClick(main.Find<QWidget>("EDP.ALIAS#10"), Qt::Key_Left, Qt::AltModifier);
    auto* list = main.Find<QTreeView>("itemList");
    QVERIFY(list->isVisible());
    QCOMPARE(list->model()->rowCount(), 6);
    QCOMPARE(list->currentIndex().data().toString(), "Port 10");
}

void HardwareTest::APortThatGoesTakesItsPageAlong() {
    MainWindow main;
    main.window->ShowParameter("HARDWARE");
    Put(main, 1, card::kDualSerial);
    main.window->ShowParameter("EDP.ALIAS#5");
    QCOMPARE(main.Status("itemTitle"), "Port 5");
    main.window->Session().Undo();
    main.window->ShowParameter("EDP.ALIAS#1");
    main.Choose("editRedo");
    main.window->ShowParameter("EDP.INPUT#6");
    QCOMPARE(main.Status("itemTitle"), "Port 6");
}

void HardwareTest::StreamFormatsAreSavedLoadedAndDeleted() {
    MainWindow main;
    main.window->Session().SetParameter("STR.GROSS#1", "BR", false);
    main.window->ShowParameter("EDP.ALIAS#1");
    main.Find<QComboBox>("savedFormats")->setCurrentText("Score board");
    main.Find<QAbstractButton>("cmdSaveFormat")->click();
    main.dialogs.Answer("Keep it");
    main.Find<QAbstractButton>("cmdSaveFormat")->click();  // there is one of that name
    QVERIFY(Bytes(main.Path("streams.ini")).contains("[Score board]\r\nName=Score board\r\n"));

    // The list of names is read anew when a page comes to sight.
    QFile file(main.Path("streams.ini"));
    QVERIFY(file.open(QIODevice::Append) && file.write("[Lobby]\r\n") > 0);
    file.close();
    main.window->ShowParameter("HARDWARE");
    main.window->ShowParameter("EDP.ALIAS#1");
    QVERIFY(main.Find<QComboBox>("savedFormats")->findText("Lobby") >= 0);

    main.window->ShowParameter("EDP.ALIAS#2");
    auto* names = main.window->findChildren<QComboBox*>("savedFormats").back();
    names->setCurrentText("Score board");
    main.window->findChildren<QAbstractButton*>("cmdLoadFormat").back()->click();
    QCOMPARE(main.Value("STR.GROSS#2"), "BR");
    main.Choose("editUndo");
    QCOMPARE(main.Value("STR.GROSS#2"), "G");
    main.dialogs.Answer("Delete it");
    main.window->findChildren<QAbstractButton*>("cmdDeleteFormat").back()->click();
    QVERIFY(!Bytes(main.Path("streams.ini")).contains("Score board"));
    VERIFY_DIALOGS(main);
}

void HardwareTest::SampleFollowsTheStream() {
    MainWindow main;
    QVERIFY(main.Open("silo.mrn"));
    main.window->ShowParameter("EDP.ALIAS#1");
    const QChar blank(0x2423);
    QCOMPARE(main.Status("streamSample"), QStringLiteral("[STX]+") + blank + "1234.5TG" + blank + "[CR][LF]");
    main.window->Session().SetParameter("EDP.SFMT#1", "<W6><U>", false);
    QCOMPARE(main.Status("streamSample"), blank + QStringLiteral("12345T"));
    main.Find<QLineEdit>("sampleWeight")->setText("7");
    QCOMPARE(main.Status("streamSample"), QString(5, blank) + "7T");
    QVERIFY(!main.Find<QLabel>("notSent")->isVisible());
    main.window->Session().SetParameter("EDP.STREAM#1", "OFF", false);
    QVERIFY(main.Find<QLabel>("notSent")->isVisible());
}

void HardwareTest::OnLowScreensTheStreamScrollsAlong() {
    MainWindow main;
    main.window->ShowParameter("EDP.ALIAS#1");
    auto* formats = main.Find<QComboBox>("savedFormats");
    QWidget* form = main.Find<QLineEdit>("EDP.ALIAS#1");
    while (!form->inherits("QScrollArea")) form = form->parentWidget();
    QVERIFY(!form->isAncestorOf(formats));
    formats->setFocus();
    main.window->resize(960, 440);
    QTRY_VERIFY(form->isAncestorOf(formats));
    QVERIFY(formats->hasFocus() && formats->isVisible());
    main.window->resize(1366, 900);
    QTRY_VERIFY(!form->isAncestorOf(formats));
    QVERIFY(formats->hasFocus());
}

void HardwareTest::AFieldbusCardWithoutLinesGetsThemWhenChosenAgain() {
    MainWindow main;
    main.window->Session().Do("card", [](CIndicator& document) {
        CIndicator::Taken taken = document.ChangeCard(2, 9);
        ChangeSet gone;
        for (const char* key : {"FB.SIZE#2", "FB.BYTESWAP#2"}) gone.Add({key, document.Value(key), {}});
        document.Apply(gone);
        return taken;
    });
    QCOMPARE(main.Value("FB.SIZE#2"), "(none)");
    main.window->ShowParameter("HARDWARE");
    Put(main, 2, 9);
    QCOMPARE(main.Value("FB.SIZE#2"), "8");
    main.Choose("editUndo");
    QCOMPARE(main.Value("FB.SIZE#2"), "(none)");
}

QTEST_MAIN(HardwareTest)
#include "hardware_test.moc"
