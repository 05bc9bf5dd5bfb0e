// The page of database tables.

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "tests/ui/main_window.h"
#include "ui/database/ctl_database.h"

using namespace calyx;
using namespace calyx::test;

class DatabaseTest : public QObject {
    Q_OBJECT

  private slots:
    void TablesGoToAnotherCardAsTheyAre();
    void FieldsAreAddedMovedAndPasted();
    void WithoutACardTheWayToTheBoardIsShown();
};

namespace {

struct Page {
    explicit Page(const std::vector<int>& slots_) {
        main.window->Session().Do("cards", [&](CIndicator& document) {
            CIndicator::Taken all;
            for (const int slot : slots_) {
                const auto taken = document.ChangeCard(slot, card::kMemory);
                all.changes = all.changes.Then(taken.changes);
            }
            return all;
        });
        main.window->ShowParameter("DB.NAME.1#3");
    }
    void Press(const char* button) { main.Find<QAbstractButton>(button)->click(); }
    std::string Lines(int slot) {
        return main.window->Session().Document().Hardware().MemoryCard(slot).StoreState();
    }
    QStringList Fields() {
        QStringList names;
        for (const auto& field :
             main.window->Session().Document().Hardware().MemoryCard(3).Schema(1).AllFields())
            names += QString::fromStdString(field.name + ":" + field.type + (field.keyed ? "!" : ""));
        return names;
    }

    MainWindow main;
};

}  // namespace

void DatabaseTest::TablesGoToAnotherCardAsTheyAre() {
    Page page({3, 5});
    page.Press("cmdSample");
    page.Press("cmdSample");
    QCOMPARE(page.main.Value("DB.NAME.2#3"), "Truck2");
    auto* tables = page.main.Find<ui::ctlTables>("tableGrid");
    tables->GoTo(0, 0);
    QTest::keyClick(tables, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keySequence(tables, QKeySequence::Copy);
    const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
    QCOMPARE(copied->data("CalyxSchema").toStdString(), page.Lines(3));
    QVERIFY(copied->text().startsWith("DB.NAME.1#3=Truck"));
    // As text only, as from a letter, onto the card in slot 5, where they get lines of their own.
    QGuiApplication::clipboard()->setText(copied->text());
    tables->SetSlot(5);
    page.Press("cmdPasteTables");
    QCOMPARE(page.main.Value("DB.NAME.1#5"), "Truck");
    QCOMPARE(page.main.Value("DB.TYPE.5.2#5"), "DATETIME");
    page.main.Choose("editUndo");
    QCOMPARE(page.Lines(5), "");
    page.main.Choose("editRedo");
    QCOMPARE(page.main.Value("DB.NAME.2#5"), "Truck2");
    // What is no table is told and changes nothing.
    const std::string before = page.Lines(5);
    QGuiApplication::clipboard()->setText("SC.GRADS#1=1000");
    page.Press("cmdPasteTables");
    QCOMPARE(page.Lines(5), before);
}

void DatabaseTest::FieldsAreAddedMovedAndPasted() {
    Page page({3});
    page.Press("cmdAddTable");
    auto* fields = page.main.Find<ui::ctlFields>("fieldGrid");
    QGuiApplication::clipboard()->setText("Plate\tText\tON\nWeight\treal\nWhen\tDATETIME\n");
    page.main.window->ShowParameter("DB.NAME.1#3");
    fields->setFocus();
    fields->PasteRowsWanted();
    QCOMPARE(page.Fields(), QStringList({"Plate:STRING!", "Weight:REAL", "When:DATETIME"}));
    fields->GoTo(0, 1);
    QTest::keyClick(fields, Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(page.Fields().front(), "Weight:REAL");
    page.Press("cmdAddField");
    QCOMPARE(page.Fields()[2], "Field4:STRING");
    fields->GoTo(1, 1);
    page.Press("cmdRemoveFields");
    QCOMPARE(page.Fields(), QStringList({"Weight:REAL", "Field4:STRING", "When:DATETIME"}));
    // A name that stands twice is told of at its cell.
    page.main.window->Session().SetParameter("DB.FIELD.2.1#3", "weight", false);
    QVERIFY(!fields->Model().Problem(fields->Model().Find("DB.FIELD.2.1#3")).isEmpty());
    for (int step = 0; step < 5; ++step) page.main.Choose("editUndo");
    QCOMPARE(page.Fields(), QStringList());
}

void DatabaseTest::WithoutACardTheWayToTheBoardIsShown() {
    Page page({3});
    page.main.Choose("editUndo");
    auto* database = page.main.Find<ui::ctlDatabase>("ctlDatabase");
    QVERIFY(!page.main.Find<QWidget>("tableGrid")->isVisibleTo(database));
    database->findChild<QAbstractButton*>("cmdHardware")->click();
    QVERIFY(page.main.Find<QWidget>("slot3")->isVisible());
}

QTEST_MAIN(DatabaseTest)
#include "database_test.moc"
