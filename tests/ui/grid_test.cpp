// Grids that are edited in place, by the digital points; the restoring of defaults.

#include <QAbstractItemView>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>

#include "tests/ui/main_window.h"
#include "ui/items/ctl_grid.h"

using namespace calyx;
using namespace calyx::test;

class GridTest : public QObject {
    Q_OBJECT

  private slots:
    void KeysWalkAndEdit();
    void WrongInputStaysInItsCell();
    void AChoiceIsOneStep();
    void AColumnIsPastedAsOneStep();
    void WhatDoesNotFitIsTold();
    void RowsComeAndGoWithTheCard();
    void PointsTellWhichSetpointsUseThem();
    void DefaultsAreRestoredAsOneStep();
    void PortsHaveDefaultsOfTheirOwn();
};

namespace {

ui::ctlGrid& Grid(MainWindow& main) {
    return *main.Find<ui::ctlGrid>("digitalGrid");
}

ui::ctlGrid& ShowPoint(MainWindow& main, const char* key) {
    main.window->ShowParameter(key);
    return Grid(main);
}

QString CurrentKey(ui::ctlGrid& grid) {
    return QString::fromStdString(grid.Model().KeyAt(grid.currentIndex()));
}

QLineEdit* Editor(ui::ctlGrid& grid) {
    return qobject_cast<QLineEdit*>(grid.indexWidget(grid.currentIndex()));  // closed ones go later
}

void Type(ui::ctlGrid& grid, const QString& text, Qt::Key end) {
    QTest::keyClicks(&grid, text.left(1));
    QTest::keyClicks(Editor(grid), text.mid(1));
    QTest::keyClick(Editor(grid), end);
}

QStringList Aliases(MainWindow& main, int number, int points) {
    QStringList aliases;
    for (int point = 1; point <= points; ++point)
        aliases += main.Value(qPrintable(QStringLiteral("DIO.ALIAS.%1#%2").arg(point).arg(number)));
    return aliases;
}

}  // namespace

void GridTest::KeysWalkAndEdit() {
    MainWindow main;
    ui::ctlGrid& grid = ShowPoint(main, "DIO.ALIAS.1#0");
    Type(grid, "Gate", Qt::Key_Return);
    QCOMPARE(main.Value("DIO.ALIAS.1#0"), "Gate");
    QCOMPARE(CurrentKey(grid), "DIO.ALIAS.2#0");
    Type(grid, "Lamp", Qt::Key_Tab);
    QCOMPARE(main.Value("DIO.ALIAS.2#0"), "Lamp");
    QCOMPARE(CurrentKey(grid), "DIO.3#0");
    QVERIFY(grid.FocusKey("DIO.ALIAS.2#0"));
    QTest::keyClick(&grid, Qt::Key_F2);
    QTest::keyClick(Editor(grid), Qt::Key_End);
    QTest::keyClicks(Editor(grid), "2");
    QTest::keyClick(Editor(grid), Qt::Key_Return);
    QCOMPARE(main.Value("DIO.ALIAS.2#0"), "Lamp2");
    QTest::keyClick(&grid, Qt::Key_F2);
    QTest::keyClicks(Editor(grid), "dropped");
    QTest::keyClick(Editor(grid), Qt::Key_Escape);
    QCOMPARE(main.Value("DIO.ALIAS.3#0"), "");
    for (const char* left : {"Lamp", "", ""}) {
        main.Choose("editUndo");
        QCOMPARE(main.Value("DIO.ALIAS.2#0"), left);
    }
    QCOMPARE(main.Value("DIO.ALIAS.1#0"), "");
    QVERIFY(!main.window->isWindowModified());
    // From any cell that is not edited Tab goes on to the next control.
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
        QVERIFY(grid.FocusKey("DIO.ALIAS.2#0") && grid.hasFocus());
        QTest::keyClick(&grid, key);
        QVERIFY(!grid.hasFocus());
        QCOMPARE(CurrentKey(grid), "DIO.ALIAS.2#0");
    }
}

void GridTest::WrongInputStaysInItsCell() {
    MainWindow main;
    ui::ctlGrid& grid = ShowPoint(main, "DIO.ALIAS.1#0");
    Type(grid, "much too long", Qt::Key_Return);
    QVERIFY(Editor(grid) != nullptr);  // Enter goes no further
    QVERIFY(grid.viewport()->findChild<QLabel*>("cellMessage")->text().contains("8"));
    QTest::keyClick(Editor(grid), Qt::Key_Tab);
    QCOMPARE(main.Value("DIO.ALIAS.1#0"), "");
    const QModelIndex cell = grid.Model().Find("DIO.ALIAS.1#0");
    QCOMPARE(cell.data().toString(), "much too long");
    QVERIFY(!grid.Model().Problem(cell).isEmpty());
    // Before the document is saved, it is told and stays.
    main.dialogs.Answer("Correct it");
    main.Choose("fileSave");
    QCOMPARE(cell.data().toString(), "much too long");
    QVERIFY2(main.dialogs.asked.back().details.contains("Point 1"),
             qPrintable(main.dialogs.asked.back().details));
    // It is there again to be mended; undo and Esc give it up.
    grid.FocusKey("DIO.ALIAS.1#0");
    QTest::keyClick(&grid, Qt::Key_F2);
    QCOMPARE(Editor(grid)->text(), "much too long");
    QTest::keyClick(Editor(grid), Qt::Key_Escape);
    QTest::keyClick(&grid, Qt::Key_Escape);
    QCOMPARE(cell.data().toString(), "");
    // A name that Scrivo cannot have is stored and told, as on every page.
    Type(grid, "1x", Qt::Key_Return);
    QCOMPARE(main.Value("DIO.ALIAS.1#0"), "1x");
    QVERIFY(!grid.Model().Problem(cell).isEmpty());
    VERIFY_DIALOGS(main);
}

void GridTest::AChoiceIsOneStep() {
    MainWindow main;
    ui::ctlGrid& grid = ShowPoint(main, "DIO.2#0");
    QTest::keyClick(&grid, Qt::Key_F2);
    auto* box = grid.viewport()->findChild<QComboBox*>();
    QVERIFY(box != nullptr);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}) QTest::keyClick(box->view(), key);
    QCOMPARE(main.Value("DIO.2#0"), "OUTPUT");
    main.Choose("editUndo");
    QCOMPARE(main.Value("DIO.2#0"), "OFF");
    QVERIFY(!main.window->isWindowModified());
}

void GridTest::AColumnIsPastedAsOneStep() {
    MainWindow main;
    ui::ctlGrid& grid = ShowPoint(main, "DIO.ALIAS.2#0");
    QGuiApplication::clipboard()->setText("Gate\r\nmuch too long\r\nLamp\r\n");
    QTest::keySequence(&grid, QKeySequence::Paste);
    QCOMPARE(Aliases(main, 0, 5), QStringList({"", "Gate", "", "Lamp", ""}));
    QCOMPARE(grid.Model().Find("DIO.ALIAS.3#0").data().toString(), "much too long");
    main.Choose("editUndo");
    QVERIFY(!main.window->isWindowModified());

    // Choices by their words or their keys; one text fills all chosen cells; rows come back as they went.
    grid.FocusKey("DIO.1#0");
    QGuiApplication::clipboard()->setText("output\tA\nINPUT\tB\nnonsense\tC");
    QTest::keySequence(&grid, QKeySequence::Paste);
    QCOMPARE(main.Value("DIO.1#0") + main.Value("DIO.2#0") + main.Value("DIO.3#0"), "OUTPUTINPUTOFF");
    QCOMPARE(Aliases(main, 0, 3), QStringList({"A", "B", "C"}));
    QVERIFY(grid.Model().Problem(grid.Model().Find("DIO.3#0")).contains("nonsense"));
    grid.selectRow(grid.Model().Find("DIO.1#0").row());
    QTest::keySequence(&grid, QKeySequence::Copy);
    QTest::keySequence(&grid, QKeySequence::Paste);
    QCOMPARE(main.Value("DIO.1#0"), "OUTPUT");
    grid.clearSelection();
    QItemSelection two(grid.Model().Find("DIO.4#0"), grid.Model().Find("DIO.6#0"));
    grid.selectionModel()->select(two, QItemSelectionModel::ClearAndSelect);
    QGuiApplication::clipboard()->setText("INPUT");
    QTest::keySequence(&grid, QKeySequence::Paste);
    QCOMPARE(main.Value("DIO.4#0") + main.Value("DIO.6#0"), "INPUTINPUT");
    QTest::keyClick(&grid, Qt::Key_Delete);
    QCOMPARE(main.Value("DIO.4#0") + main.Value("DIO.6#0"), "OFFOFF");
}

void GridTest::WhatDoesNotFitIsTold() {
    MainWindow main;
    QVERIFY(main.Open("truck-scale.mrn"));
    ui::ctlGrid& grid = ShowPoint(main, "DIO.ALIAS.8#0");
    QString told;
    connect(&main.window->Session(), &ui::DocumentSession::Told, [&](const QString& text) { told = text; });
    const QStringList card = Aliases(main, 4, 24);
    QGuiApplication::clipboard()->setText("One\nTwo\nThree");
    QTest::keySequence(&grid, QKeySequence::Paste);
    QCOMPARE(main.Value("DIO.ALIAS.8#0"), "One");
    QCOMPARE(Aliases(main, 4, 24), card);  // not on to the next card
    QVERIFY2(told.contains("No cells for: 2"), qPrintable(told));
}

void GridTest::RowsComeAndGoWithTheCard() {
    MainWindow main;
    ui::ctlGrid& grid = ShowPoint(main, "DIO.1#0");
    QCOMPARE(grid.model()->rowCount(), 9);
    main.window->Session().Do("card", [](CIndicator& d) { return d.ChangeCard(3, card::kDigitalIO); });
    QCOMPARE(grid.model()->rowCount(), 34);
    main.window->ShowParameter("DIO.ALIAS.24#3");
    QCOMPARE(CurrentKey(grid), "DIO.ALIAS.24#3");
    main.window->Session().Undo();
    main.window->ShowParameter("DIO.1#0");
    QCOMPARE(grid.model()->rowCount(), 9);
    QCOMPARE(CurrentKey(grid), "DIO.1#0");
}

void GridTest::PointsTellWhichSetpointsUseThem() {
    MainWindow main;
    QVERIFY(main.Open("truck-scale.mrn"));
    ui::ctlGrid& grid = ShowPoint(main, "DIO.1#4");
    const QModelIndex use = grid.currentIndex().siblingAtColumn(3);
    QCOMPARE(use.data().toString(), "Setpoint 1");
    grid.setCurrentIndex(use);
    QTest::keyClick(&grid, Qt::Key_Return);
    QCOMPARE(main.Status("pageHeading"), "Setpoints");
}

void GridTest::DefaultsAreRestoredAsOneStep() {
    MainWindow main;
    QVERIFY(main.Open("truck-scale.mrn"));
    ShowPoint(main, "DIO.1#4");
    const QStringList before = Aliases(main, 4, 24), board = Aliases(main, 0, 8);
    QVERIFY(before.front() == "LightGrn");
    main.dialogs.Answer("Keep settings");
    main.Choose("editDefaults");
    QCOMPARE(Aliases(main, 4, 24), before);
    main.dialogs.Answer("Restore defaults");
    main.Choose("editDefaults");
    QCOMPARE(main.Value("DIO.ALIAS.1#4") + main.Value("DIO.1#4"), "OFF");
    QCOMPARE(Aliases(main, 0, 8), board);
    main.Choose("editDefaults");  // nothing left to lose, nothing to ask
    main.Choose("editUndo");
    QCOMPARE(Aliases(main, 4, 24), before);
    VERIFY_DIALOGS(main);
}

void GridTest::PortsHaveDefaultsOfTheirOwn() {
    MainWindow main;
    main.window->ShowParameter("EDP.BAUD#2");
    QCOMPARE(main.Value("EDP.BAUD#2"), "115200");
    main.window->Session().SetParameter("STR.GROSS#2", "BR", false);
    main.dialogs.Answer("Restore defaults");
    main.Choose("editDefaults");
    QCOMPARE(main.Value("EDP.BAUD#2") + main.Value("STR.GROSS#2"), "9600G");
    main.Choose("editUndo");
    QCOMPARE(main.Value("EDP.BAUD#2") + main.Value("STR.GROSS#2"), "115200BR");
    VERIFY_DIALOGS(main);
}

QTEST_MAIN(GridTest)
#include "grid_test.moc"
