#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>

#include "tests/ui/main_window.h"
#include "ui/scales/ctl_scale_table.h"
#include "ui/setpoints/ctl_setpoint_table.h"
#include "ui/window/ctl_navigation.h"
#include "ui/window/places.h"

using namespace calyx;
using namespace calyx::test;

// The tables of setpoints and scales.
class TablesTest : public QObject {
    Q_OBJECT

  private slots:
    void TheFilter_data();
    void TheFilter();
    void AFilterThatFitsNothingOffersAll();
    void CellsAreEditedByKeyboard();
    void AReferenceIsChosenInItsCell();
    void UndoStaysInTheTable();
    void SetpointsAreCopiedAndPasted();
    void SetpointsGoToOtherDocuments();
    void PastingThatCannotBeSaysWhy();
    void MovesTakeTheReferencesAlong();
    void TheBarIsForTheCurrentRow();
    void ScalesAreCopiedAndPasted();
    void ARowLeadsToItsPage();
    void TheSourceHasAMenuAsAllFieldsHave();
};

namespace {

const ui::Place& PlaceNamed(std::string_view section) {
    for (const ui::Place* place : ui::AllPlaces()) {
        if (place->section == section) return *place;
    }
    qFatal("no such place");
}

template <class Table>
Table& Show(MainWindow& main, std::string_view section) {
    main.window->findChild<ui::ctlNavigation*>()->Show(PlaceNamed(section));
    auto* table = main.window->findChild<Table*>();
    table->Grid().setFocus();
    return *table;
}
ui::ctlSetpointTable& ShowSetpoints(MainWindow& main) {
    return Show<ui::ctlSetpointTable>(main, "setpoints");
}

QString Numbers(const ui::ctlItemTable& table) {
    QStringList numbers;
    for (int row = 0; row < table.Grid().Model().rowCount(); ++row)
        numbers += table.Grid().Model().RowAt(row).title;
    return numbers.join(' ');
}

void SetLines(MainWindow& main, const std::vector<KeyValue>& lines) {
    const auto refused = main.window->Session().Edit(lines, "test");
    QVERIFY2(refused.empty(), refused.empty() ? "" : refused.front().reason.c_str());
}

// A batch of a few setpoints, and some beside it.
void MakeSetpoints(MainWindow& main) {
    SetLines(main, {{"SP.KIND#2", "GROSS"},
                    {"SP.ALIAS#2", "SandFF"},
                    {"SP.VALUE#2", "850"},
                    {"SP.BATCH#2", "ON"},
                    {"SP.KIND#4", "TIMER"},
                    {"SP.START#4", "9"},
                    {"SP.END#4", "9"},
                    {"SP.KIND#7", "NET"},
                    {"SP.VALUE#7", "4321"},
                    {"SP.KIND#9", "COUNTER"},
                    {"SP.BRANCH#9", "2"}});
}

void Choose(ui::ctlItemTable& table, int first, int last) {
    table.GoTo(first);
    for (int row = first; row < last; ++row) QTest::keyClick(&table.Grid(), Qt::Key_Down, Qt::ShiftModifier);
}

void Press(ui::ctlItemTable& table, QKeySequence::StandardKey keys) {
    QTest::keySequence(&table.Grid(), QKeySequence(keys));
}

}  // namespace

void TablesTest::TheFilter_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QStringList>("checks");
    QTest::addColumn<QString>("rows");
    const QStringList none;
    QTest::newRow("used") << "" << 0 << QStringList{"filterUsed"} << "2 4 7 9";
    QTest::newRow("kind") << "" << 3 << none << "7";
    QTest::newRow("batch") << "" << 0 << QStringList{"filterBatch"} << "2 4 9";
    QTest::newRow("batch order") << "" << 0 << QStringList{"filterOrder"} << "2 9 4";
    QTest::newRow("alias") << "sandff" << 0 << none << "2";
    QTest::newRow("value") << "4321" << 0 << none << "7";
    QTest::newRow("sentence") << "counts up" << 0 << none << "9";
    QTest::newRow("all of them") << "setpoint 9" << 0 << QStringList{"filterUsed", "filterBatch"} << "4";
}

void TablesTest::TheFilter() {
    QFETCH(QString, text);
    QFETCH(int, kind);
    QFETCH(QStringList, checks);
    MainWindow main;
    MakeSetpoints(main);
    ui::ctlSetpointTable& table = ShowSetpoints(main);
    QCOMPARE(table.Grid().Model().rowCount(), kSetpoints);
    main.Find<QLineEdit>("filterText")->setText(text);
    auto* kinds = main.Find<QComboBox>("filterKind");
    kinds->setCurrentIndex(kinds->findData(kind));
    for (const QString& check : checks) main.Find<QCheckBox>(check.toLatin1())->click();
    QTEST(Numbers(table), "rows");
    QCOMPARE(main.Status("filterCount"), QStringLiteral("%1 of 100").arg(table.Grid().Model().rowCount()));
}

void TablesTest::AFilterThatFitsNothingOffersAll() {
    MainWindow main;
    ui::ctlSetpointTable& table = ShowSetpoints(main);
    main.Find<QLineEdit>("filterText")->setText("no such words");
    QVERIFY(!table.Grid().isVisible());
    QTest::mouseClick(main.Find<QPushButton>("cmdShowAll"), Qt::LeftButton);
    QVERIFY(table.Grid().isVisible());
    QCOMPARE(table.Grid().Model().rowCount(), kSetpoints);
    QCOMPARE(main.Find<QLineEdit>("filterText")->text(), "");
    // A parameter that the filter hides is shown nevertheless.
    main.Find<QCheckBox>("filterUsed")->click();
    table.GoTo(50);
    QCOMPARE(table.Grid().CurrentNumber(), 50);
}

void TablesTest::CellsAreEditedByKeyboard() {
    MainWindow main;
    MakeSetpoints(main);
    ui::ctlSetpointTable& table = ShowSetpoints(main);
    const QModelIndex value = table.Grid().Model().Find("SP.VALUE#2");
    QVERIFY(value.data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
    QCOMPARE(value.model()->headerData(value.column(), Qt::Horizontal, Qt::TextAlignmentRole),
             value.data(Qt::TextAlignmentRole));
    main.Find<QCheckBox>("filterUsed")->click();
    QVERIFY(table.Grid().FocusKey("SP.VALUE#2"));
    QTest::keyClick(&table.Grid(), Qt::Key_F2);
    auto* editor = table.Grid().viewport()->findChild<QLineEdit*>();
    QVERIFY(editor != nullptr);
    editor->selectAll();
    QTest::keyClicks(editor, "12x");
    QTest::keyClick(editor, Qt::Key_Tab);
    const QModelIndex cell = table.Grid().Model().Find("SP.VALUE#2");
    QVERIFY(!table.Grid().Model().Problem(cell).isEmpty());  // told at the cell and not stored
    QCOMPARE(main.Value("SP.VALUE#2"), "850");
    QVERIFY(table.Grid().FocusKey("SP.VALUE#2"));
    QCOMPARE(main.Status("tableProblem"), table.Grid().Model().Problem(cell));
    QTest::keyClick(&table.Grid(), Qt::Key_Escape);
    QVERIFY(main.Status("tableProblem").contains("no scale is chosen"));  // what is wrong with the setpoint

    QTest::keyClick(&table.Grid(), Qt::Key_7);  // typing opens the cell
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_7);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(main.Value("SP.VALUE#2"), "77");
    QVERIFY(main.Status("tableSentence").contains("77"));
    QCOMPARE(table.Grid().Model().KeyAt(table.Grid().currentIndex()), std::string("SP.TRIP#2"));
    // The row stays in sight as long as it is worked in, though it is off now.
    SetLines(main, {{"SP.KIND#2", "OFF"}});
    QCOMPARE(Numbers(table), "2 4 7 9");
}

void TablesTest::AReferenceIsChosenInItsCell() {
    MainWindow main;
    QVERIFY(main.Open("truck-scale.mrn"));
    ui::ctlGrid& grid = ShowSetpoints(main).Grid();
    QVERIFY(grid.FocusKey("SP.SOURCE#2"));
    QCOMPARE(grid.currentIndex().data().toString(), "3");  // of "SCALE3"
    QTest::keyClick(&grid, Qt::Key_F2);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F4);
    auto* menu = grid.findChild<QMenu*>("menuReferences");
    QVERIFY(menu != nullptr && menu->actions().size() == 3);
    menu->actions().front()->trigger();
    menu->close();
    QCOMPARE(main.Value("SP.SOURCE#2"), "SCALE1");
    QCOMPARE(grid.currentIndex().data().toString(), "1");
    main.Choose("editUndo");
    QCOMPARE(main.Value("SP.SOURCE#2"), "SCALE3");
}

void TablesTest::UndoStaysInTheTable() {
    MainWindow main;
    MakeSetpoints(main);
    ui::ctlSetpointTable& table = ShowSetpoints(main);
    SetLines(main, {{"SP.VALUE#7", "5"}});
    table.GoTo(1);
    main.Choose("editUndo");
    QVERIFY(table.isVisible());
    QCOMPARE(table.Grid().Model().KeyAt(table.Grid().currentIndex()), std::string("SP.VALUE#7"));
    // A field that has no cell: its row.
    SetLines(main, {{"SP.BRANCH#9", "7"}});
    main.Choose("editUndo");
    QVERIFY(table.isVisible());
    QCOMPARE(table.Grid().CurrentNumber(), 9);
}

void TablesTest::SetpointsAreCopiedAndPasted() {
    MainWindow main;
    MakeSetpoints(main);
    ui::ctlSetpointTable& table = ShowSetpoints(main);
    const std::string before = main.window->Session().Document().Body();
    Choose(table, 2, 9);
    Press(table, QKeySequence::Copy);
    QVERIFY(QGuiApplication::clipboard()->text().startsWith("SP.KIND#2=GROSS\r\nSP.ALIAS#2=SandFF\r\n") ||
            QGuiApplication::clipboard()->text().startsWith("SP.KIND#2=GROSS\nSP.ALIAS#2=SandFF\n"));
    QVERIFY(table.Grid().FocusKey("SP.ALIAS#20"));  // Shift goes on from there
    for (int step = 0; step < 2; ++step) QTest::keyClick(&table.Grid(), Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(table.Grid().ChosenNumbers(), (std::vector<int>{20, 21, 22}));
    QVERIFY(table.Grid().FocusKey("SP.ALIAS#32"));  // from any cell of the row
    Press(table, QKeySequence::Paste);
    QCOMPARE(main.Value("SP.VALUE#32") + " " + main.Value("SP.VALUE#37"), "850 4321");
    QCOMPARE(main.Value("SP.BRANCH#39"), "32");
    QCOMPARE(main.Value("SP.ALIAS#32"), "");
    main.Choose("editUndo");
    QCOMPARE(main.window->Session().Document().Body(), before);
    Choose(table, 2, 4);
    QTest::keyClick(&table.Grid(), Qt::Key_Delete);
    QCOMPARE(main.Value("SP.KIND#2") + main.Value("SP.KIND#4") + main.Value("SP.KIND#7"), "OFFOFFNET");
    main.Choose("editUndo");
    QCOMPARE(main.window->Session().Document().Body(), before);
}

void TablesTest::SetpointsGoToOtherDocuments() {
    MainWindow from, to;
    MakeSetpoints(from);
    ui::ctlSetpointTable& table = ShowSetpoints(from);
    table.GoTo(2);
    Press(table, QKeySequence::Copy);
    const QString text = QGuiApplication::clipboard()->text();
    ui::ctlSetpointTable& other = ShowSetpoints(to);
    other.GoTo(5);
    Press(other, QKeySequence::Paste);
    QCOMPARE(to.Value("SP.ALIAS#5") + " " + to.Value("SP.VALUE#5"), "SandFF 850");
    // As text alone, as it comes out of a letter.
    QGuiApplication::clipboard()->setText("Take this:\n" + text);
    other.GoTo(6);
    Press(other, QKeySequence::Paste);
    QCOMPARE(to.Value("SP.VALUE#6"), "850");
}

void TablesTest::PastingThatCannotBeSaysWhy() {
    MainWindow main;
    MakeSetpoints(main);
    ui::ctlSetpointTable& table = ShowSetpoints(main);
    QString told;
    connect(&main.window->Session(), &ui::DocumentSession::Told, this,
            [&](const QString& words) { told = words; });
    const std::string before = main.window->Session().Document().Body();
    QGuiApplication::clipboard()->setText("hello");
    table.GoTo(3);
    Press(table, QKeySequence::Paste);
    QVERIFY2(told.contains("no setpoint"), qPrintable(told));
    QGuiApplication::clipboard()->setText("SP.KIND#1=NET\r\nSP.KIND#2=NET\r\n");
    table.GoTo(100);
    Press(table, QKeySequence::Paste);
    QVERIFY2(told.contains("no room for 2"), qPrintable(told));
    QCOMPARE(main.window->Session().Document().Body(), before);
    table.GoTo(3);
    QTest::keyClick(&table.Grid(), Qt::Key_Delete);
    QVERIFY2(told.contains("as new already"), qPrintable(told));
}

void TablesTest::MovesTakeTheReferencesAlong() {
    MainWindow main;
    MakeSetpoints(main);
    ui::ctlSetpointTable& table = ShowSetpoints(main);
    table.GoTo(2);
    QTest::keyClick(&table.Grid(), Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_COMPARE(main.Value("SP.KIND#3"), "GROSS");
    QCOMPARE(main.Value("SP.BRANCH#9"), "3");
    QCOMPARE(table.Grid().CurrentNumber(), 3);
    main.Choose("editUndo");
    QCOMPARE(main.Value("SP.BRANCH#9"), "2");
}

void TablesTest::TheBarIsForTheCurrentRow() {
    MainWindow main;
    MakeSetpoints(main);
    ui::ctlSetpointTable& table = ShowSetpoints(main);
    table.GoTo(7);
    QCOMPARE(main.Find<QSpinBox>("table.targetNumber")->value(), 8);
    QTest::mouseClick(main.Find<QPushButton>("table.cmdDuplicate"), Qt::LeftButton);
    QCOMPARE(main.Value("SP.VALUE#8"), "4321");
    QCOMPARE(table.Grid().CurrentNumber(), 8);
    VERIFY_DIALOGS(main);
}

void TablesTest::ScalesAreCopiedAndPasted() {
    MainWindow main;
    QVERIFY(main.Open("truck-scale.mrn"));
    auto& table = Show<ui::ctlScaleTable>(main, "scales");
    const std::string before = main.window->Session().Document().Body();
    Choose(table, 1, 3);
    Press(table, QKeySequence::Copy);
    table.GoTo(11);
    Press(table, QKeySequence::Paste);
    QCOMPARE(main.Value("SC.SRC#13"), "T,11,12");
    QCOMPARE(main.Value("SC.GRADS#11"), main.Value("SC.GRADS#1"));
    main.Choose("editUndo");
    QCOMPARE(main.window->Session().Document().Body(), before);
}

void TablesTest::ARowLeadsToItsPage() {
    MainWindow main;
    QVERIFY(main.Open("truck-scale.mrn"));
    auto& table = Show<ui::ctlScaleTable>(main, "scales");
    table.GoTo(2);
    QTest::keyClick(&table.Grid(), Qt::Key_Return);
    QTRY_COMPARE(main.Status("itemTitle"), "Scale 2");
    QTest::mouseClick(main.Find<QWidget>("cmdBack"), Qt::LeftButton);
    QTRY_VERIFY(table.Grid().hasFocus());
    // The cell of the source leads to the source.
    table.Grid().setCurrentIndex(table.Grid().Model().index(2, 3));
    QTest::keyClick(&table.Grid(), Qt::Key_Return);
    QTRY_COMPARE(main.Status("itemTitle"), "Scale 3");
    QTRY_VERIFY(main.Find<QWidget>("SC.SRC#3")->isAncestorOf(QApplication::focusWidget()));
}

void TablesTest::TheSourceHasAMenuAsAllFieldsHave() {
    MainWindow main;
    QVERIFY(main.Open("truck-scale.mrn"));
    main.window->ShowParameter("SC.SRC#1");
    auto* source = main.Find<QWidget>("SC.SRC#1");
    QTRY_VERIFY(source->isAncestorOf(QApplication::focusWidget()));
    QVERIFY(QApplication::focusWidget()->accessibleDescription().startsWith("SC.SRC#1."));
    QContextMenuEvent wanted(QContextMenuEvent::Mouse, QPoint(2, 2), QPoint(2, 2));
    QApplication::sendEvent(QApplication::focusWidget(), &wanted);
    auto* menu = source->findChild<QMenu*>();
    QVERIFY(menu != nullptr);
    // Back to the default is a scale that is not configured: that asks.
    main.dialogs.Answer("Keep the kind");
    menu->actions().front()->trigger();
    QCOMPARE(main.Value("SC.SRC#1"), "A,1");
    VERIFY_DIALOGS(main);
}

QTEST_MAIN(TablesTest)
#include "tables_test.moc"
