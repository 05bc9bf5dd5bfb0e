// The pages of junction boxes.

#include "tests/ui/main_window.h"
#include "ui/boxes/ctl_box.h"
#include "ui/boxes/ctl_box_picture.h"

using namespace calyx;
using namespace calyx::test;

class BoxesTest : public QObject {
    Q_OBJECT

  private slots:
    void ACellThatMovesLeavesTheOtherPlatform();
    void KeysAssignWhatIsChosen();
    void APlatformGoesIntoTheSystemAndOut();
    void EveryPartHasItsPlace();
    void WithoutABoxTheWayToAPortIsShown();
};

namespace {

using Kind = ui::BoxPlan::Kind;

// The silo's box: eight cells, none of them assigned.
struct Picture {
    Picture() {
        main.Open("silo.mrn");
        main.window->Session().Edit({{"SJ.PLAT.CELLS.1#3", ""}, {"SJ.SYS.PLATS.1#3", ""}}, "start");
        main.window->ShowParameter("SJ.PLAT.CELLS.1#3");
        picture = main.Find<ui::ctlBoxPicture>("boxPicture");
        picture->resize(760, 480);
    }
    QPoint At(Kind kind, int number) const {
        const auto part = static_cast<std::size_t>(picture->Plan().Find(kind, number));
        return picture->Plan().parts[part].rect.center().toPoint();
    }
    void Drag(const QPoint& from, const QPoint& to) const {
        QTest::mousePress(picture, Qt::LeftButton, {}, from);
        QTest::mouseMove(picture, (from + to) / 2);
        QTest::mouseMove(picture, to);
        QTest::mouseRelease(picture, Qt::LeftButton, {}, to);
    }
    void Press(Qt::Key key) const { QTest::keyClick(picture, key); }
    QString Cells(int platform) {
        return main.Value(qPrintable(QStringLiteral("SJ.PLAT.CELLS.%1#3").arg(platform)));
    }

    MainWindow main;
    ui::ctlBoxPicture* picture = nullptr;
};

}  // namespace

void BoxesTest::ACellThatMovesLeavesTheOtherPlatform() {
    Picture box;
    for (const int cell : {3, 1, 2}) box.Drag(box.At(Kind::Cell, cell), box.At(Kind::Platform, 1));
    QCOMPARE(box.Cells(1), "1,2,3");
    box.Drag(box.At(Kind::Cell, 2), box.At(Kind::Platform, 4));
    QCOMPARE(box.Cells(1) + "/" + box.Cells(4), "1,3/2");
    box.main.Choose("editUndo");
    QCOMPARE(box.Cells(1) + "/" + box.Cells(4), "1,2,3/");
    // To the cells of no platform.
    box.Drag(box.At(Kind::Cell, 1), box.At(Kind::Cell, 8));
    QCOMPARE(box.Cells(1), "2,3");
    QCOMPARE(box.picture->Plan().unassigned, 6);
}

void BoxesTest::KeysAssignWhatIsChosen() {
    Picture box;
    box.picture->GoTo(Kind::Cell, 1);
    QTest::keyClick(box.picture, Qt::Key_Right, Qt::ShiftModifier);
    box.Press(Qt::Key_2);
    QCOMPARE(box.Cells(2), "1,2");
    QTest::keySequence(box.picture, QKeySequence::SelectAll);
    box.Press(Qt::Key_3);
    QCOMPARE(box.Cells(2) + "/" + box.Cells(3), "/1,2,3,4,5,6,7,8");
    box.Press(Qt::Key_Delete);
    QCOMPARE(box.Cells(3), "");
    for (const char* left : {"/1,2,3,4,5,6,7,8", "1,2/", "/"}) {
        box.main.Choose("editUndo");
        QCOMPARE(box.Cells(2) + "/" + box.Cells(3), left);
    }
}

void BoxesTest::APlatformGoesIntoTheSystemAndOut() {
    Picture box;
    box.Drag(box.At(Kind::Platform, 2), box.At(Kind::System, 1));
    box.picture->GoTo(Kind::Platform, 1);
    box.Press(Qt::Key_Space);
    QCOMPARE(box.main.Value("SJ.SYS.PLATS.1#3"), "1,2");
    box.Press(Qt::Key_Delete);
    QCOMPARE(box.main.Value("SJ.SYS.PLATS.1#3"), "2");
    // A platform without cells in the system is told of there.
    const auto part = static_cast<std::size_t>(box.picture->Plan().Find(Kind::Platform, 2));
    QVERIFY(box.picture->Plan().parts[part].broken);
}

void BoxesTest::EveryPartHasItsPlace() {
    Picture box;
    box.main.window->Session().Edit(
        {{"SJ.CONFIG#3", "4/4/4/4"}, {"SJ.PLAT.CELLS.1#3", "1,2,3,4,5,6,7"}, {"SJ.PLAT.CELLS.2#3", "7,9"}},
        "cells");
    for (const int width : {500, 760, 1400}) {
        box.picture->resize(width, box.picture->heightForWidth(width));
        const ui::BoxPlan& plan = box.picture->Plan();
        const QRectF all(0, 0, std::max<double>(width, ui::BoxPlan::LeastWidth()), plan.height);
        QCOMPARE(plan.unassigned, 8);
        for (std::size_t i = 0; i < plan.parts.size(); ++i) {
            QVERIFY(all.contains(plan.parts[i].rect));
            for (std::size_t other = 0; other < i; ++other)
                QVERIFY(!plan.parts[i].rect.intersects(plan.parts[other].rect));
        }
    }
    // The cell at two platforms is marked at the second one.
    int broken = 0;
    for (const ui::BoxPlan::Part& part : box.picture->Plan().parts)
        broken += part.kind == Kind::Cell && part.broken ? 1 : 0;
    QCOMPARE(broken, 1);
}

void BoxesTest::WithoutABoxTheWayToAPortIsShown() {
    Picture box;
    box.main.window->Session().SetParameter("EDP.INPUT#3", "CMD", false);
    box.main.Find<QAbstractButton>("cmdPort")->click();
    QVERIFY(box.main.Find<QWidget>("EDP.INPUT#2")->isVisible());
    box.main.Choose("editUndo");
    box.main.window->ShowParameter("SJ.LC.ID.2#3");
    // The page of the box that went is deleted later.
    QVERIFY(box.main.window->findChildren<QWidget*>("cellGrid").back()->isVisible());
}

QTEST_MAIN(BoxesTest)
#include "boxes_test.moc"
