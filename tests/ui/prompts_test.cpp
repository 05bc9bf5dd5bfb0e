// The pages of soft keys and custom parameters.

#include <QClipboard>
#include <QGuiApplication>

#include "tests/ui/main_window.h"
#include "ui/prompts/ctl_row_grid.h"

using namespace calyx;
using namespace calyx::test;

class PromptsTest : public QObject {
    Q_OBJECT

  private slots:
    void ANameThatIsTakenIsRefusedAtItsCell();
    void PairsArePastedMovedAndRemoved();
    void SoftKeysMoveAsOneStep();
    void PagesOfASectionShareItsFields();
};

namespace {

ui::ctlRowGrid& Grid(MainWindow& main, const char* key, const char* name) {
    main.window->ShowParameter(key);
    return *main.Find<ui::ctlRowGrid>(name);
}

void Paste(ui::ctlGrid& grid, const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    QTest::keySequence(&grid, QKeySequence::Paste);
}

QString Pairs(MainWindow& main) {
    QStringList pairs;
    for (const KeyValue& pair : main.window->Session().Document().CustomParms().Pairs())
        pairs += QString::fromStdString(pair.key + "=" + pair.value);
    return pairs.join(' ');
}

}  // namespace

void PromptsTest::ANameThatIsTakenIsRefusedAtItsCell() {
    MainWindow main;
    ui::ctlRowGrid& grid = Grid(main, "CUSTOM#1", "customGrid");
    // A free name, one of the general features, the first again, and one that is no name.
    Paste(grid, "BEEPTONE\t3\nUID\t4\nBEEPTONE2\t5\nlower\t6");
    QCOMPARE(Pairs(main), "BEEPTONE=3 BEEPTONE2=5");
    for (const char* wrong : {"CUSTOM#2", "CUSTOM#4"})
        QVERIFY2(!grid.Model().Problem(grid.Model().Find(wrong)).isEmpty(), wrong);
    QCOMPARE(grid.Model().Find("CUSTOM#2").data().toString(), "UID");
    QCOMPARE(main.Value("UID"), "1");
    main.Choose("editUndo");
    QCOMPARE(Pairs(main), "");
    QVERIFY(!main.window->isWindowModified());
}

void PromptsTest::PairsArePastedMovedAndRemoved() {
    MainWindow main;
    ui::ctlRowGrid& grid = Grid(main, "CUSTOM#1", "customGrid");
    Paste(grid, "A=1\r\nB=x=y\r\nC=\r\n");
    QCOMPARE(Pairs(main), "A=1 B=x=y C=");
    QTest::keyClick(&grid, Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(Pairs(main), "B=x=y A=1 C=");
    QCOMPARE(grid.currentIndex().row(), 1);
    grid.GoTo(0, 0);
    QTest::keyClick(&grid, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&grid, Qt::Key_Delete);
    QCOMPARE(Pairs(main), "C=");
    for (const char* left : {"B=x=y A=1 C=", "A=1 B=x=y C=", ""}) {
        main.Choose("editUndo");
        QCOMPARE(Pairs(main), left);
    }
}

void PromptsTest::SoftKeysMoveAsOneStep() {
    MainWindow main;
    ui::ctlRowGrid& grid = Grid(main, "SOFTKEY#1", "softKeyGrid");
    const auto order = [&] {
        QStringList keys;
        for (int place = 1; place <= 4; ++place)
            keys += main.Value(qPrintable(QStringLiteral("SOFTKEY.ORDER#%1").arg(place)));
        return keys.join(' ');
    };
    QTest::keyClick(&grid, Qt::Key_Up, Qt::AltModifier);  // it is the first
    QVERIFY(!main.window->isWindowModified());
    // Dragged by the first column to below the third row.
    const auto at = [&](int row) { return grid.visualRect(grid.Model().index(row, 0)).center(); };
    QTest::mousePress(grid.viewport(), Qt::LeftButton, {}, at(0));
    QTest::mouseMove(grid.viewport(), at(1));
    QTest::mouseMove(grid.viewport(), at(2) + QPoint(0, 6));
    QTest::mouseRelease(grid.viewport(), Qt::LeftButton, {}, at(2) + QPoint(0, 6));
    QCOMPARE(order(), "2 3 1 4");
    QCOMPARE(grid.currentIndex().row(), 2);
    main.Choose("editUndo");
    QCOMPARE(order(), "1 2 3 4");
    QVERIFY(!main.window->isWindowModified());
}

// Fields of the general features, industrial mode and soft keys each stand on one page alone.
void PromptsTest::PagesOfASectionShareItsFields() {
    MainWindow main;
    main.window->ShowParameter("UID");
    main.window->ShowParameter("INDMODE.SCREEN");
    QCOMPARE(main.window->findChildren<QWidget*>("INDMODE.SCREEN").size(), 1);
    QCOMPARE(main.window->findChildren<QWidget*>("UID").size(), 1);
    QCOMPARE(main.window->findChildren<QWidget*>("SOFTKEY#1").size(), 0);
    QVERIFY(main.Find<QWidget>("INDMODE.SCREEN")->isVisible());
}

QTEST_MAIN(PromptsTest)
#include "prompts_test.moc"
