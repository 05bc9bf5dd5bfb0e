#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QSpinBox>
#include <QToolButton>

#include "tests/ui/golden_picture.h"
#include "tests/ui/main_window.h"
#include "ui/widgets/ctl_gauge.h"
#include "ui/widgets/ctl_palette.h"
#include "ui/widgets/ctl_screen.h"
#include "ui/widgets/ctl_screens.h"
#include "ui/widgets/ctl_widget_list.h"
#include "ui/widgets/frm_import_screen.h"

using namespace calyx;
using namespace calyx::test;
using namespace calyx::ui;

// The screen editor: what it draws, what gestures and commands make of the widgets.
class WidgetsTest : public QObject {
    Q_OBJECT

  private slots:
    void ScreensLookAsTheyDid_data();
    void ScreensLookAsTheyDid();
    void AlignmentKeepsToTheScreen();
    void EdgesArePulledToTheGrid();
    void ADragIsOneStepOnTheGrid();
    void AHandleResizesInOneStep();
    void WhatCannotMoveStays();
    void KeysMoveAndCycle();
    void TheBandChooses();
    void ThePalettePlaces();
    void PasteKeepsCountAndClosesNumbers();
    void OrderStaysOnTheScreen();
    void UndoChoosesWhatItChanged();
    void ThePageKeepsTheKeyboardAndItsOrder();
    void PropertiesOfSeveral();
    void WrongPropertiesAreTold();
    void AScreenOfAnotherFile();
    void TheGaugeTellsWhatIsBeyond();
};

namespace {

// The screen editor over a sample with widgets: two screens, of 10 and 4.
class Editor : public MainWindow {
  public:
    explicit Editor(const char* key = "WDGT#3") {
        Open("checkweigher-line.mrn");
        window->ShowParameter(QLatin1String(key));
        page = Find<ctlScreens>("ctlScreens");
        canvas = page->Canvas();
    }

    const CWidgets& Widgets() { return window->Session().Document().Widgets(); }
    QPoint At(QPoint display) { return canvas->ToWindow(QRect(display, QSize(1, 1))).center().toPoint(); }
    QPoint CentreOf(int number) { return At(ShownRect(Widgets(), number).center()); }
    void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers keys = {}) {
        QTest::mousePress(canvas, Qt::LeftButton, keys, from);
        // By steps, as a hand does.
        for (int i = 1; i <= 4; ++i) {
            QMouseEvent move(QEvent::MouseMove, QPointF(from + (to - from) * i / 4),
                             canvas->mapToGlobal(QPointF(to)), Qt::NoButton, Qt::LeftButton, keys);
            QApplication::sendEvent(canvas, &move);
        }
        QTest::mouseRelease(canvas, Qt::LeftButton, keys, to);
    }
    void Key(int key, Qt::KeyboardModifiers keys = {}) {
        canvas->setFocus();
        QTest::keyClick(canvas, static_cast<Qt::Key>(key), keys);
    }
    void ZoomTo(double zoom) {
        while (canvas->Zoom() < zoom) Find<QToolButton>("cmdZoomIn")->click();
        while (canvas->Zoom() > zoom) Find<QToolButton>("cmdZoomOut")->click();
        QCoreApplication::processEvents();
    }
    void Choose(const char* command) { Find<QAction>(command)->trigger(); }
    QLineEdit* Property(const char* stem) {
        return Find<QLineEdit>((QByteArray("property.") + stem).constData());
    }
    // How many undos lead back to the file.
    int Steps() {
        int steps = 0;
        while (window->Session().UndoName()) {
            window->Session().Undo();
            ++steps;
        }
        return steps;
    }

    ctlScreens* page;
    ctlScreen* canvas;
};

}  // namespace

void WidgetsTest::ScreensLookAsTheyDid_data() {
    QTest::addColumn<int>("screen");
    QTest::newRow("belts") << 1;
    QTest::newRow("bench") << 2;
}

void WidgetsTest::ScreensLookAsTheyDid() {
    QFETCH(int, screen);
    Editor main;
    QImage picture(2 * kScreenWidth, 2 * kScreenHeight, QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.scale(2, 2);
    const ScaleDisplays scales = DisplaysOf(std::as_const(main.window->Session()).Document().Scales());
    ScreenPainter(main.Widgets(), scales).Paint(painter, screen);
    painter.end();
    CompareWithGolden(picture, QStringLiteral("screen-%1.png").arg(QLatin1String(QTest::currentDataTag())));
}

void WidgetsTest::AlignmentKeepsToTheScreen() {
    const Areas areas{{1, {10, 10, 20, 10}}, {2, {50, 40, 40, 20}}, {3, {200, 100, 30, 30}}};
    QCOMPARE(Aligned(areas, areas.at(3), Edge::Right).at(1), QRect(210, 10, 20, 10));
    QCOMPARE(Aligned(areas, kScreenRect, Edge::Bottom).at(2), QRect(50, 230, 40, 20));
    QCOMPARE(Aligned(areas, kScreenRect, Edge::Centre).at(3), QRect(145, 100, 30, 30));
    // Gaps of 20+40+30 in 220: 65 each; the outer ones stay.
    const Areas spread = Spread(areas, Qt::Horizontal);
    QCOMPARE(spread.at(1), areas.at(1));
    QCOMPARE(spread.at(2), QRect(95, 40, 40, 20));
    QCOMPARE(spread.at(3), areas.at(3));
    QCOMPARE(Sized(areas, {300, 10}, true, false).at(3), QRect(20, 100, 300, 30));
    // Together they go as far as the first one at an edge.
    QCOMPARE(StepWithin(areas, {-50, 0}), QPoint(-10, 0));
    QCOMPARE(StepWithin(areas, {500, 500}), QPoint(90, 120));
    // A widget that reaches over the edge already can only come back.
    QCOMPARE(StepWithin({{1, {300, 0, 100, 10}}}, {10, 0}), QPoint(0, 0));
    QCOMPARE(StepWithin({{1, {319, 249, 0, 0}}}, {5, 5}), QPoint(0, 0));
}

void WidgetsTest::EdgesArePulledToTheGrid() {
    const QRect rect(10, 10, 30, 20);
    QCOMPARE(Pulled(rect, {1, 1}, {3, 3}, {8, 8}), QRect(10, 10, 30, 22));
    QCOMPARE(Pulled(rect, {-1, 0}, {3, 50}, {8, 8}), QRect(16, 10, 24, 20));
    QCOMPARE(Pulled(rect, {-1, -1}, {100, 100}, {0, 0}), QRect(36, 26, 4, 4));
    QCOMPARE(Pulled(rect, {1, 0}, {1000, 0}, {8, 8}), QRect(10, 10, 310, 20));
    QCOMPARE(Pulled({300, 0, 500, 10}, {-1, 0}, {400, 0}, {0, 0}).left(), 319);
}

void WidgetsTest::ADragIsOneStepOnTheGrid() {
    Editor main;
    main.app->settings.GridWidth = main.app->settings.GridHeight = 10;
    main.ZoomTo(2);
    // The bar at 8, 126 goes by 23 and 11, and so to the lines of the grid.
    const QPoint from = main.CentreOf(5);
    main.Drag(from, from + QPoint(46, 22));
    QCOMPARE(main.Value("WDGT#5"), QStringLiteral("3,30,154,140,18,1,0,1,0,barA,1,1,1,1,1"));
    // With Alt it leaves the grid, and two that are chosen go together.
    main.page->State().Choose({5, 6});
    const QPoint again = main.CentreOf(5);
    main.Drag(again, again + QPoint(6, 4), Qt::AltModifier);
    QCOMPARE(main.Value("WDGT#5"), QStringLiteral("3,33,156,140,18,1,0,1,0,barA,1,1,1,1,1"));
    QCOMPARE(main.Value("WDGT#6"), QStringLiteral("3,171,142,140,18,1,0,1,0,barB,1,1,2,1,1"));
    QCOMPARE(main.page->State().Chosen(), (std::vector{5, 6}));
    // There and back is no step.
    const QPoint last = main.CentreOf(5);
    main.Drag(last, last);
    QCOMPARE(main.Steps(), 2);
    QVERIFY(!main.window->Session().Document().IsDirty());
}

void WidgetsTest::AHandleResizesInOneStep() {
    Editor main("WDGT#10");
    main.app->settings.SnapToGrid = false;
    main.ZoomTo(2);
    // The picture's lower right corner: 184, 231.
    const QRectF rect = main.canvas->ToWindow(ShownRect(main.Widgets(), 10));
    main.Drag(rect.bottomRight().toPoint(), rect.bottomRight().toPoint() + QPoint(20, -10));
    QCOMPARE(main.Value("WDGT#10"), QStringLiteral("2,120,205,74,35,1,0,logo,1,1"));
    // A label has no height of its own: its right handle stretches it, its lower edge moves it.
    main.window->ShowParameter(QStringLiteral("WDGT#3"));
    const QRectF label = main.canvas->ToWindow(ShownRect(main.Widgets(), 3));
    const QPoint right(static_cast<int>(label.right()), static_cast<int>(label.center().y()));
    main.Drag(right, right - QPoint(40, 0));
    QCOMPARE(main.Value("WDGT#3"), QStringLiteral("4,8,16,130,LINE 4 BELT A,0,1,3,lblA,1,0,0,1,1"));
    QCOMPARE(main.Steps(), 2);
}

void WidgetsTest::WhatCannotMoveStays() {
    Editor main("WDGT#1");
    const QPoint scale = main.CentreOf(1);
    main.Drag(scale, scale + QPoint(30, 30));  // its style decides
    main.app->settings.LockWidgets = true;
    const QPoint bar = main.CentreOf(5);
    main.Drag(bar, bar + QPoint(30, 30));
    main.Key(Qt::Key_Right);
    QCOMPARE(main.page->State().Chosen(), std::vector{5});
    QCOMPARE(main.Steps(), 0);
}

void WidgetsTest::KeysMoveAndCycle() {
    Editor main("WDGT#7");
    main.app->settings.GridWidth = 8;
    main.Key(Qt::Key_Right);
    main.Key(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(main.Value("WDGT#7"), QStringLiteral("6,29,180,5,lampA,1,2,1,1,1"));
    main.page->State().Choose({9});
    main.Key(Qt::Key_Left, Qt::ControlModifier);
    QCOMPARE(main.Value("WDGT#9"), QStringLiteral("5,8,210,89,1,2,4,cntA,2,1,4,1,1"));
    // A key that is held is one step.
    main.canvas->setFocus();
    for (int i = 0; i < 5; ++i) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Up, Qt::NoModifier, QString(), i > 0);
        QApplication::sendEvent(main.canvas, &press);
    }
    QCOMPARE(main.Value("WDGT#9"), QStringLiteral("5,8,205,89,1,2,4,cntA,2,1,4,1,1"));
    main.Key(Qt::Key_Tab);
    QCOMPARE(main.page->State().Chosen(), std::vector{10});
    main.Key(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(main.page->State().Chosen(), std::vector{9});
    main.page->State().Choose({10});
    main.Key(Qt::Key_Tab);  // the last one: on to the next control
    QVERIFY(!main.canvas->hasFocus());
    main.Key(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(main.page->State().Chosen().size(), std::size_t{10});
    main.Key(Qt::Key_Escape);
    QVERIFY(main.page->State().Chosen().empty());
    QCOMPARE(main.Steps(), 4);
}

void WidgetsTest::TheBandChooses() {
    Editor main;
    main.ZoomTo(2);
    main.Drag(main.At({2, 170}), main.At({60, 240}));
    QCOMPARE(main.page->State().Chosen(), (std::vector{7, 9}));
    QTest::mouseClick(main.canvas, Qt::LeftButton, Qt::ShiftModifier, main.CentreOf(10));
    QTest::mouseClick(main.canvas, Qt::LeftButton, Qt::ControlModifier, main.CentreOf(9));
    QCOMPARE(main.page->State().Chosen(), (std::vector{7, 10}));
    QCOMPARE(main.Find<ctlWidgetList>("widgetList")->selectedItems().size(), 2);
    // A click on one of several that were not dragged chooses it alone.
    QTest::mouseClick(main.canvas, Qt::LeftButton, {}, main.CentreOf(7));
    QCOMPARE(main.page->State().Chosen(), std::vector{7});
}

void WidgetsTest::ThePalettePlaces() {
    Editor main;
    main.page->State().ShowScreen(5);
    QVERIFY(main.Find<QLabel>("screenEmpty")->isVisible());
    main.Find<QToolButton>("cmdKind4")->click();
    QTest::mouseClick(main.canvas, Qt::LeftButton, {}, main.At({41, 61}));
    QCOMPARE(main.Value("WDGT#15"), QStringLiteral("4,40,74,100,,0,0,3,,1,0,0,1,5"));
    QCOMPARE(main.page->State().Chosen(), std::vector{15});
    QVERIFY(!main.Find<QToolButton>("cmdKind4")->isChecked());
    QVERIFY(!main.Find<QLabel>("screenEmpty")->isVisible());
    // By keyboard where nothing stands yet, and never over the edge.
    QTest::keyClick(main.Find<QToolButton>("cmdKind4"), Qt::Key_Return);
    QVERIFY(!ShownRect(main.Widgets(), 16).intersects(ShownRect(main.Widgets(), 15)));
    main.canvas->SetPlacing(WidgetKind::Bitmap);
    QTest::mouseClick(main.canvas, Qt::LeftButton, {}, main.At({318, 248}));
    QVERIFY(kScreenRect.contains(ShownRect(main.Widgets(), 17)));
    QCOMPARE(main.Steps(), 3);
}

void WidgetsTest::PasteKeepsCountAndClosesNumbers() {
    Editor main;
    main.page->State().Choose({3, 7});
    main.Choose("widgetCopy");
    const QMimeData* copied = QApplication::clipboard()->mimeData();
    QCOMPARE(copied->data(QStringLiteral("CalyxWidget")),
             QByteArray("WDGT#1=4,8,16,150,LINE 4 BELT A,0,1,3,lblA,1,0,0,1,1\r\n"
                        "WDGT#2=6,20,180,5,lampA,1,2,1,1,1\r\n"));
    QVERIFY(copied->text().startsWith(QLatin1String("WDGT#1=")));
    main.page->State().ShowScreen(2);
    main.Choose("widgetPaste");
    QCOMPARE(main.Widgets().WidgetCount(), 16);
    QCOMPARE(main.page->State().Chosen(), (std::vector{15, 16}));
    QCOMPARE(main.Value("WDGT#16"), QStringLiteral("6,20,180,5,lampA2,1,2,1,1,2"));
    // On its own screen a copy stands beside what it was copied from.
    main.Choose("widgetDuplicate");
    QCOMPARE(main.Value("WDGT#18"), QStringLiteral("6,28,188,5,lampA3,1,2,1,1,2"));
    // What is cut out closes the numbers behind it.
    main.page->State().Choose({3, 7});
    main.Choose("widgetCut");
    QCOMPARE(main.Widgets().WidgetCount(), 16);
    QCOMPARE(main.Value("WDGT#3"), QStringLiteral("4,168,16,150,LINE 4 BELT B,0,1,3,lblB,1,0,0,1,1"));
    QCOMPARE(main.Value("WDGT#16"), QStringLiteral("6,28,188,5,lampA3,1,2,1,1,2"));
    QVERIFY(main.page->State().Chosen().empty());
    QCOMPARE(main.Steps(), 3);
    QVERIFY(!main.window->Session().Document().IsDirty());
    // Another program's text, with lines that are no widgets.
    QApplication::clipboard()->setText(QStringLiteral("hello\nWDGT#9=1,4,3,7\n"));
    main.Choose("widgetPaste");
    QCOMPARE(main.Widgets().WidgetCount(), 15);
    QApplication::clipboard()->setText(QStringLiteral("hello"));
    main.Choose("widgetPaste");
    QCOMPARE(main.Steps(), 1);
}

void WidgetsTest::OrderStaysOnTheScreen() {
    Editor main("WDGT#12");
    main.Choose("widgetForward");
    QCOMPARE(main.page->State().Chosen(), std::vector{13});
    main.Choose("widgetToFront");
    QCOMPARE(main.page->State().Chosen(), std::vector{14});
    main.Choose("widgetToBack");
    QCOMPARE(main.page->State().Chosen(), std::vector{11});
    QVERIFY(main.Value("WDGT#11").contains(QLatin1String("lblBench")));
    QVERIFY(main.Value("WDGT#10").contains(QLatin1String("logo")));  // the other screen's last one
    QCOMPARE(main.Steps(), 3);
}

void WidgetsTest::UndoChoosesWhatItChanged() {
    Editor main;
    main.page->State().Choose({7, 8});
    main.page->Edits().Align(Edge::Left);
    main.page->State().Choose({7, 8});
    main.Choose("widgetDelete");
    main.page->State().ShowScreen(2);
    main.Choose("editUndo");
    QCOMPARE(main.page->State().Screen(), 1);
    QCOMPARE(main.page->State().Chosen(), (std::vector{7, 8}));
}

void WidgetsTest::ThePageKeepsTheKeyboardAndItsOrder() {
    Editor editor;
    QTest::qWait(20);  // a window of its own, however short, would take the keyboard
    QVERIFY(editor.canvas->hasFocus());
    for (const bool alphabetic : {false, true}) {
        auto* box = editor.Find<QCheckBox>("chkAlphabetic");
        box->setChecked(alphabetic);
        editor.Find<QWidget>("widgetList")->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        int fields = 0, below = -1;
        for (; QApplication::focusWidget() != box; ++fields) {
            QWidget* field = QApplication::focusWidget();
            QVERIFY2(field->objectName().startsWith("property."), qPrintable(field->objectName()));
            QVERIFY2(field->y() > below, qPrintable(field->objectName()));
            below = field->y();
            QTest::keyClick(field, Qt::Key_Tab);
        }
        QCOMPARE(fields, static_cast<int>(editor.Widgets().widget(3).Properties().RowCount()));
    }
}

void WidgetsTest::PropertiesOfSeveral() {
    Editor main("WDGT#5");
    main.page->State().Choose({3, 5});
    QCOMPARE(main.Property("Width")->text(), QString());
    QVERIFY(!main.Property("Width")->placeholderText().isEmpty());
    QCOMPARE(main.Property("Left")->text(), QStringLiteral("8"));
    QCOMPARE(main.window->findChild<QWidget*>(QStringLiteral("property.Caption")), nullptr);
    main.Property("Left")->setFocus();
    main.Property("Left")->selectAll();
    QTest::keyClicks(main.Property("Left"), QStringLiteral("24"));
    QCOMPARE(main.Value("WDGT#3"), QStringLiteral("4,24,16,150,LINE 4 BELT A,0,1,3,lblA,1,0,0,1,1"));
    QCOMPARE(main.Value("WDGT#5"), QStringLiteral("3,24,140,140,18,1,0,1,0,barA,1,1,1,1,1"));
    // The choice follows a widget to another screen.
    main.Property("ScreenNumber")->setFocus();
    main.Property("ScreenNumber")->selectAll();
    QTest::keyClicks(main.Property("ScreenNumber"), QStringLiteral("12"));
    QCOMPARE(main.page->State().Screen(), 12);
    QCOMPARE(main.page->State().Chosen(), (std::vector{3, 5}));
    main.canvas->setFocus();
    QCOMPARE(main.Steps(), 2);
}

void WidgetsTest::WrongPropertiesAreTold() {
    const struct {
        const char *stem, *typed;
    } rows[] = {
        {"Left", "320"}, {"Left", "1x"}, {"Name", "a,b"}, {"Name", "ninechars"}, {"ScreenNumber", "21"}};
    Editor main;
    for (const auto& row : rows) {
        QLineEdit* field = main.Property(row.stem);
        auto* message = main.Find<QLabel>((QByteArray("property.") + row.stem + ".message").constData());
        const QString before = field->text();
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, QLatin1String(row.typed));
        QVERIFY2(message->isVisible(), row.typed);
        QVERIFY(!message->text().isEmpty());
        QVERIFY(!main.window->Session().FinishInput().isEmpty());
        QVERIFY(!main.window->Session().Document().IsDirty());
        main.canvas->setFocus();  // left as it was
        QCOMPARE(field->text(), before);
    }
    QCOMPARE(main.Steps(), 0);
}

void WidgetsTest::AScreenOfAnotherFile() {
    Editor main("WDGT#11");
    const auto import = [&](const QString& file) {
        main.dialogs.AnswerFile(file);
        main.Choose("widgetImport");
    };
    import(main.Sample("silo.mrn"));  // without widgets
    QCOMPARE(main.dialogs.asked.size(), 1);
    import(main.Path("not-there.mrn"));
    QCOMPARE(main.dialogs.asked.size(), 2);
    import(main.Sample("checkweigher-line.mrn"));
    auto* dialog = main.Dialog("frmImportScreen");
    auto* from = dialog->findChild<QComboBox*>(QStringLiteral("importFrom"));
    QCOMPARE(from->count(), 2);
    from->setCurrentIndex(1);
    dialog->findChild<QComboBox*>(QStringLiteral("importTo"))->setCurrentIndex(8);
    main.Press("frmImportScreen", "cmdImport");
    QCOMPARE(main.page->State().Screen(), 9);
    QCOMPARE(main.page->State().Chosen(), (std::vector{15, 16, 17, 18}));
    QVERIFY(main.Value("WDGT#16").contains(QLatin1String("lblBenc2")));
    QCOMPARE(main.Steps(), 1);
    VERIFY_DIALOGS(main);
}

void WidgetsTest::TheGaugeTellsWhatIsBeyond() {
    Editor main;
    auto* gauge = main.Find<ctlGauge>("widgetGauge");
    QCOMPARE(gauge->Words(), QStringLiteral("Widgets 14 of 128"));
    std::string lines;
    for (int i = 1; i <= 116; ++i) lines += "WDGT#" + std::to_string(i) + "=6,1,14,0,,1,0,0,1,3\r\n";
    QApplication::clipboard()->setText(QString::fromStdString(lines));
    main.Choose("widgetPaste");
    QCOMPARE(main.Widgets().WidgetCount(), 130);
    QCOMPARE(gauge->Beyond(), 2);
    QVERIFY(gauge->Words().contains(QStringLiteral("2 beyond")));
    QVERIFY(gauge->toolTip().contains(QStringLiteral("129")));
    main.window->Session().Undo();
    QCOMPARE(gauge->Beyond(), 0);
}

QTEST_MAIN(WidgetsTest)
#include "widgets_test.moc"
