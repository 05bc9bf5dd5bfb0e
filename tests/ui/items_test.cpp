#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QToolButton>
#include <map>

#include "tests/ui/main_window.h"
#include "ui/form/references.h"
#include "ui/scales/ctl_scale_table.h"
#include "ui/setpoints/ctl_trip_drawing.h"
#include "ui/setpoints/setpoint_texts.h"
#include "ui/setpoints/trip_picture.h"

using namespace calyx;
using namespace calyx::test;

// Lists of items, the pages of scales and setpoints.
class ItemsTest : public QObject {
    Q_OBJECT

  private slots:
    void AListOpensItsItems();
    void AKindAsksBeforeItClears();
    void AKindWithNothingToLoseAsksNothing();
    void ChannelsComeAndGo();
    void SourcesAreWhatExists();
    void KeysOfTheHeaderLeadThere();
    void ReferencesNameWhatExists_data();
    void ReferencesNameWhatExists();
    void AReferenceIsChosenOrTyped();
    void TheSentenceFollowsTheFields();
    void PicturesOfTrips_data();
    void PicturesOfTrips();
    void ACopyIsOneStep();
    void AMoveTakesTheReferencesAlong();
    void AFullNumberAsks();
};

namespace {

// What a choice holds.
QStringList Words(const QComboBox& box) {
    QStringList words;
    for (int i = 0; i < box.count(); ++i) words += box.itemText(i);
    return words;
}

// As a person chooses: by the list of the box.
void Choose(QComboBox* box, const QString& words) {
    const int place = box->findText(words);
    QVERIFY2(place >= 0, qPrintable(words));
    box->setCurrentIndex(place);
    emit box->activated(place);
}

QAction* Offered(QMenu* menu, const QString& words) {
    for (QAction* action : menu->actions()) {
        if (action->text() == words) return action;
    }
    return nullptr;
}

void SetLines(MainWindow& main, const std::vector<KeyValue>& lines) {
    const auto refused = main.window->Session().Edit(lines, "test");
    QVERIFY2(refused.empty(), refused.empty() ? "" : refused.front().reason.c_str());
}

}  // namespace

void ItemsTest::AListOpensItsItems() {
    MainWindow main;
    QVERIFY(main.Open("truck-scale.mrn"));
    main.window->ShowParameter("SC.GRADS#1");
    QTRY_VERIFY(main.Find<QLineEdit>("SC.GRADS#1")->hasFocus());
    auto* back = main.Find<QToolButton>("cmdBack");
    QTest::mouseClick(back, Qt::LeftButton);
    auto* table = main.window->findChild<ui::ctlScaleTable*>();
    QTRY_VERIFY(table->Grid().hasFocus());
    QCOMPARE(table->Grid().model()->rowCount(), kScaleCount);
    table->GoTo(3);
    QTest::keyClick(&table->Grid(), Qt::Key_Return);
    QTRY_VERIFY(main.Find<QComboBox>("SC.KIND#3")->hasFocus());
    QCOMPARE(main.Find<QComboBox>("SC.KIND#3")->currentText(), "Total Scale");
    // The total shows the fields that it has, and no others.
    QVERIFY(main.Find<QWidget>("SC.GRADS#3")->isVisible());
    QVERIFY(!main.Find<QWidget>("SC.DFSENS#3")->isVisible());
    QCOMPARE(main.window->findChildren<QWidget*>("SC.KIND#3").size(), 1);
}

void ItemsTest::AKindAsksBeforeItClears() {
    MainWindow main;
    QVERIFY(main.Open("truck-scale.mrn"));
    const QString source = main.Value("SC.SRC#1");
    main.window->ShowParameter("SC.KIND#1");
    auto* kind = main.Find<QComboBox>("SC.KIND#1");
    main.dialogs.Answer("Keep the kind");
    Choose(kind, "Total Scale");
    QCOMPARE(main.Value("SC.SRC#1"), source);
    QCOMPARE(kind->currentText(), "Analog Scale");
    QVERIFY(main.dialogs.asked.back().text.contains("the source 1"));
    QVERIFY(main.dialogs.asked.back().text.contains("Test weight"));
    main.dialogs.Answer("Keep the kind");
    Choose(kind, "Programmable Scale");
    QVERIFY2(main.dialogs.asked.back().text.contains("Zero tracking band (1 division, its line goes)"),
             qPrintable(main.dialogs.asked.back().text));

    main.dialogs.Answer("Change the kind");
    Choose(kind, "Total Scale");
    QCOMPARE(main.Value("SC.SRC#1"), "T,");
    QCOMPARE(main.Value("SC.WVAL#1"), "0");
    main.Choose("editUndo");
    QCOMPARE(main.Value("SC.SRC#1"), source);
    QVERIFY(main.Value("SC.WVAL#1") != "0");
    QCOMPARE(kind->currentText(), "Analog Scale");

    main.dialogs.Answer("Change the kind");
    Choose(kind, "Not configured");
    QVERIFY(main.dialogs.asked.back().text.contains("Alias"));
    QCOMPARE(main.Value("SC.SRC#1"), "NONE");
    VERIFY_DIALOGS(main);
}

void ItemsTest::AKindWithNothingToLoseAsksNothing() {
    MainWindow main;
    main.window->ShowParameter("SC.KIND#5");
    Choose(main.Find<QComboBox>("SC.KIND#5"), "Analog Input Scale");
    Choose(main.Find<QComboBox>("SC.KIND#5"), "Programmable Scale");
    QCOMPARE(main.Value("SC.SRC#5"), "P,5");
    VERIFY_DIALOGS(main);
}

void ItemsTest::ChannelsComeAndGo() {
    MainWindow main;
    QVERIFY(main.Open("truck-scale.mrn"));
    main.window->ShowParameter("SC.SRC#1");
    QTRY_VERIFY(main.Find<QToolButton>("source1")->hasFocus());
    main.Find<QToolButton>("cmdAddSource")->setFocus();
    QTest::keyClick(main.Find<QToolButton>("cmdAddSource"), Qt::Key_Return);
    auto* menu = main.Find<QMenu>("menuSources");
    QVERIFY(Offered(menu, "Channel 1") == nullptr);  // has it
    QVERIFY(Offered(menu, "Channel 2, also in scale 2") != nullptr);
    QTest::keyClick(menu, Qt::Key_Up);  // to the last one
    QTest::keyClick(menu, Qt::Key_Return);
    QCOMPARE(main.Value("SC.SRC#1"), "A,1,32");
    main.window->activateWindow();  // without a screen no window is active once a menu has closed
    QVERIFY(QTest::qWaitForWindowActive(main.window.get()));
    QTRY_VERIFY(main.Find<QToolButton>("cmdAddSource")->hasFocus());
    // Tab goes through them as they stand, those that came later too.
    main.Find<QComboBox>("SC.KIND#1")->setFocus();
    for (const char* next : {"source1", "source32", "cmdAddSource", "SC.ALIAS#1"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QVERIFY2(main.Find<QWidget>(next)->hasFocus(), next);
    }
    auto* chip = main.Find<QToolButton>("source1");
    chip->setFocus();
    QTest::keyClick(chip, Qt::Key_Delete);
    QCOMPARE(main.Value("SC.SRC#1"), "A,32");
    QTRY_VERIFY(main.Find<QToolButton>("source32")->hasFocus());
    main.Choose("editUndo");
    main.Choose("editUndo");
    QCOMPARE(main.Value("SC.SRC#1"), "A,1");
}

void ItemsTest::SourcesAreWhatExists() {
    MainWindow main;
    QVERIFY(main.Open("checkweigher-line.mrn"));
    main.window->ShowParameter("SC.SRC#1");
    auto* port = main.Find<QComboBox>("chooseSource");
    QCOMPARE(port->count(), 2);
    QVERIFY(port->itemText(1).startsWith("Port 6"));
    Choose(port, port->itemText(1));
    QCOMPARE(main.Value("SC.SRC#1"), "S,6");
    QCOMPARE(main.Value("SC.KIND#1"), "8");

    SetLines(main, {{"EDP.INPUT#6", "VEXAL"}});  // the port no longer fits
    QTRY_VERIFY(main.Find<QComboBox>("chooseSource")->currentText().contains("has the input type VEXAL"));
    QVERIFY(main.Find<QLabel>("SC.SRC#1.message")->isVisible());
    SetLines(main, {{"SC.KIND#4", "5"}});
    main.window->ShowParameter("SC.SRC#4");
    QTRY_VERIFY(main.Find<QComboBox>("chooseSource")->hasFocus());
    QStringList boxes = Words(*main.Find<QComboBox>("chooseSource"));
    QCOMPARE(boxes.size(), 4);
    QVERIFY(boxes.back().startsWith("Port 6, box 4"));
    Choose(main.Find<QComboBox>("chooseSource"), boxes.back());
    QCOMPARE(main.Value("SC.SRC#4"), "S,6.4");

    SetLines(main, {{"SC.KIND#5", "3"}});  // no port has this one's input type
    main.window->ShowParameter("SC.SRC#5");
    QTest::mouseClick(main.Find<QPushButton>("cmdShowPort"), Qt::LeftButton);
    QTRY_COMPARE(main.Status("pageHeading"), "Ports");
    QTRY_VERIFY(QApplication::focusWidget()->objectName().startsWith("EDP.INPUT#"));
}

void ItemsTest::KeysOfTheHeaderLeadThere() {
    MainWindow main;
    QVERIFY(main.Open("silo.mrn"));
    main.window->ShowParameter("sc.src#1");
    QTRY_VERIFY(main.Find<QComboBox>("chooseSource")->hasFocus());
    main.window->ShowParameter("SC.KIND#1");
    QTRY_VERIFY(main.Find<QComboBox>("SC.KIND#1")->hasFocus());
    main.window->ShowParameter("SC.ALIAS#1");
    QTRY_VERIFY(main.Find<QLineEdit>("SC.ALIAS#1")->hasFocus());
}

namespace {

void MakeReferences(MainWindow& main) {
    SetLines(main, {{"HARDWARE", "4,5,0,0,0,0,0,0,0,0,0,0,0,0"},
                    {"SC.SRC#1", "A,1"},
                    {"SC.ALIAS#1", "Deck"},
                    {"SC.SRC#3", "A,2"},
                    {"DIO.1#2", "OUTPUT"},
                    {"DIO.ALIAS.1#2", "Fill"},
                    {"DIO.3#2", "INPUT"},
                    {"SP.KIND#1", "GROSS"},
                    {"SP.ALIAS#1", "Coarse"},
                    {"SP.BATCH#1", "ON"},
                    {"SP.KIND#2", "+REL"},
                    {"SP.KIND#5", "PLSCNT"},
                    {"SP.KIND#6", "DELAY"}});
    SetLines(main, {{"SP.DSLOT#1", "SLOT2"}, {"SP.DSLOT#2", "SLOT1"}});
}

}  // namespace

void ItemsTest::ReferencesNameWhatExists_data() {
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("offered");  // the first four
    QTest::newRow("scales") << "SP.SOURCE#1"
                            << "SCALE1 SCALE3";
    QTest::newRow("a delay may do without") << "SP.SOURCE#6"
                                            << "SCALE0 SCALE1 SCALE3";
    QTest::newRow("pulse inputs are not known") << "SP.SOURCE#5"
                                                << "";
    QTest::newRow("not itself") << "SP.RELNUM#2"
                                << "1 5 6";
    QTest::newRow("steps of the batch") << "sp.branch#2"
                                        << "0 1 6";
    QTest::newRow("cards with outputs") << "SP.DSLOT#1"
                                        << "NONE SLOT2";
    QTest::newRow("the main board has inputs") << "SP.DISLOT#1"
                                               << "SLOT0 SLOT2";
    QTest::newRow("no inputs") << "SP.DIGOUT#1"
                               << "BIT1 BIT2 BIT4 BIT5";
    QTest::newRow("no card") << "SP.DIGOUT#2"
                             << "";
    QTest::newRow("without an output") << "SP.DOVER#1"
                                       << "NONE BIT1 BIT2 BIT4";
    QTest::newRow("analog output") << "ALG.SOURCE#1"
                                   << "PROG SCALE1 SCALE3";
    QTest::newRow("stream") << "EDP.SOURCE#1"
                            << "SCALE0 SCALE1 SCALE3";
    QTest::newRow("no reference") << "SP.VALUE#1"
                                  << "";
}
void ItemsTest::ReferencesNameWhatExists() {
    QFETCH(QString, key);
    QFETCH(QString, offered);
    constexpr int kShown = 4;
    MainWindow main;
    MakeReferences(main);
    QStringList texts;
    for (const auto& reference : ui::form::References(main.window->Session().Document(), key.toStdString())) {
        texts += QString::fromStdString(reference.text);
        // Each is what the parameter has once it is taken.
        SetLines(main, {{key.toStdString(), reference.text}});
        QCOMPARE(main.Value(qPrintable(key)), texts.back());
    }
    QCOMPARE(texts.mid(0, kShown).join(' '), offered);
}

void ItemsTest::AReferenceIsChosenOrTyped() {
    MainWindow main;
    MakeReferences(main);
    main.window->ShowParameter("SP.SOURCE#1");
    auto* source = main.Find<QLineEdit>("SP.SOURCE#1");
    QTest::keyClick(source, Qt::Key_Down);
    auto* menu = source->findChild<QMenu*>("menuReferences");
    QVERIFY(menu != nullptr && menu->isVisible());
    QAction* third = Offered(menu, "3: Analog Scale");
    QVERIFY(third != nullptr && Offered(menu, "1: Deck, Analog Scale") != nullptr);
    third->trigger();
    menu->close();
    QCOMPARE(main.Value("SP.SOURCE#1"), "SCALE3");
    QCOMPARE(source->text(), "3");
    main.Choose("editUndo");
    QCOMPARE(main.Value("SP.SOURCE#1"), "SCALE0");
    source->selectAll();
    QTest::keyClicks(source, "1");
    QCOMPARE(main.Value("SP.SOURCE#1"), "SCALE1");
    // The name stands beside the number, and follows.
    const auto names = [&] {
        QStringList found;
        for (const auto* label : source->parentWidget()->findChildren<QLabel*>())
            if (label->isVisible()) found += label->text();
        return found;
    };
    QVERIFY(names().contains("Deck"));
    SetLines(main, {{"SC.ALIAS#1", "North"}});
    QVERIFY(names().contains("North") && !names().contains("Deck"));

    main.window->ShowParameter("SP.DSLOT#1");
    auto* slot = main.Find<QLineEdit>("SP.DSLOT#1");
    QCOMPARE(slot->text(), "2");
    slot->selectAll();
    QTest::keyClicks(slot, "none");
    QCOMPARE(main.Value("SP.DSLOT#1"), "NONE");
}

void ItemsTest::TheSentenceFollowsTheFields() {
    MainWindow main;
    QVERIFY(main.Open("silo.mrn"));
    main.window->ShowParameter("SP.VALUE#1");
    auto* value = main.Find<QLineEdit>("SP.VALUE#1");
    auto* drawing = main.Find<ui::ctlTripDrawing>("tripDrawing");
    value->selectAll();
    QTest::keyClicks(value, "4321");
    QVERIFY(main.Status("setpointSentence").contains("4321"));
    QVERIFY(drawing->accessibleDescription().contains("4321"));
    QVERIFY(drawing->isVisible());
    SetLines(main, {{"SP.KIND#1", "DELAY"}});
    QVERIFY(!drawing->isVisible());
    SetLines(main, {{"SP.KIND#1", "OFF"}});
    main.Choose("editUndo");
    main.Choose("editUndo");
    QVERIFY(drawing->isVisible());
    QVERIFY(main.Status("setpointSentence").contains("4321"));
}

void ItemsTest::PicturesOfTrips_data() {
    using Lines = std::vector<KeyValue>;
    QTest::addColumn<Lines>("lines");
    QTest::addColumn<QString>("marks");
    const Lines gross{{"SP.KIND#1", "GROSS"},
                      {"SP.VALUE#1", "100"},
                      {"SP.HYSTER#1", "5"},
                      {"SP.PREVAL#1", "20"},
                      {"SP.BANDVAL#1", "10"}};
    const auto with = [&](const Lines& more) {
        Lines all = gross;
        all.insert(all.end(), more.begin(), more.end());
        return all;
    };
    // A mark's text and place.
    QTest::newRow("rising") << with({{"SP.TRIP#1", "HIGHER"}, {"SP.PREACT#1", "ON"}})
                            << "preact 80, ready 95, trip 100";
    QTest::newRow("falling") << with({{"SP.TRIP#1", "LOWER"}, {"SP.PREACT#1", "LEARN"}})
                             << "trip 100, ready 105, preact 120";
    QTest::newRow("preact off") << with({{"SP.TRIP#1", "HIGHER"}}) << "ready 95, trip 100";
    QTest::newRow("band") << with({{"SP.TRIP#1", "INBAND"}}) << "from 90, to 110";
    QTest::newRow("below another") << with({{"SP.TRIP#1", "HIGHER"},
                                            {"SP.KIND#2", "-REL"},
                                            {"SP.VALUE#2", "30"},
                                            {"SP.RELNUM#2", "1"},
                                            {"SP.KIND#3", "%REL"},
                                            {"SP.VALUE#3", "50"},
                                            {"SP.RELNUM#3", "2"},
                                            {"SP.TRIP#3", "HIGHER"},
                                            {"SP.PREACT#3", "OFF"},
                                            {"SP.HYSTER#3", "0"}})
                                   << "3: trip 35";
    QTest::newRow("in a circle") << Lines{{"SP.KIND#1", "+REL"},
                                          {"SP.RELNUM#1", "2"},
                                          {"SP.KIND#2", "+REL"},
                                          {"SP.RELNUM#2", "1"}}
                                 << "none";
    QTest::newRow("checkweigher") << Lines{{"SP.KIND#1", "CHKWEI"},
                                           {"SP.VUNDER#1", "98"},
                                           {"SP.VOVER#1", "103"}}
                                  << "under 98, over 103";
    QTest::newRow("no trip") << Lines{{"SP.KIND#1", "DELAY"}, {"SP.VALUE#1", "3"}} << "none";
}

void ItemsTest::PicturesOfTrips() {
    QFETCH(std::vector<KeyValue>, lines);
    QFETCH(QString, marks);
    QTemporaryDir folder;
    modStartup::Options options;
    options.folders.dataDir = CALYX_DATA_DIR;
    options.folders.userDir = folder.path().toStdString();
    const auto app = modStartup::Main(options);
    CIndicator document(app->model);
    document.Initialize();
    QVERIFY(document.Import(lines).refused.empty());
    const int number = marks.startsWith("3: ") ? 3 : 1;
    const auto picture = ui::PictureOf(document.Setpoints(), number);
    QStringList seen;
    const std::map<int, QString> names{{ui::say::kMarkTrip, "trip"},   {ui::say::kMarkPreact, "preact"},
                                       {ui::say::kMarkReady, "ready"}, {ui::say::kMarkBandFrom, "from"},
                                       {ui::say::kMarkBandTo, "to"},   {ui::say::kMarkUnder, "under"},
                                       {ui::say::kMarkOver, "over"}};
    for (const auto& mark : picture ? picture->marks : std::vector<ui::TripPicture::Mark>())
        seen += names.at(mark.text) + ' ' + QString::number(mark.at);
    QCOMPARE(picture ? seen.join(", ") : "none", number == 3 ? marks.mid(3) : marks);
}

void ItemsTest::ACopyIsOneStep() {
    MainWindow main;
    QVERIFY(main.Open("silo.mrn"));
    main.window->ShowParameter("SP.VALUE#1");
    QCOMPARE(main.Find<QSpinBox>("targetNumber")->value(), 3);  // the first that is free
    QTest::mouseClick(main.Find<QPushButton>("cmdDuplicate"), Qt::LeftButton);
    QCOMPARE(main.Value("SP.KIND#3"), "GROSS");
    QCOMPARE(main.Value("SP.VALUE#3"), main.Value("SP.VALUE#1"));
    QCOMPARE(main.Value("SP.ALIAS#3"), "");
    QTRY_COMPARE(main.Status("itemTitle"), "Setpoint 3");
    main.Choose("editUndo");
    QCOMPARE(main.Value("SP.KIND#3"), "OFF");
    QVERIFY(!main.window->Session().UndoName());
    VERIFY_DIALOGS(main);
}

void ItemsTest::AMoveTakesTheReferencesAlong() {
    MainWindow main;
    QVERIFY(main.Open("batching-plant.mrn"));
    SetLines(main, {{"SP.RELNUM#4", "3"}});
    main.window->ShowParameter("SP.VALUE#3");
    main.Find<QSpinBox>("targetNumber")->setValue(50);
    QTest::mouseClick(main.Find<QPushButton>("cmdMove"), Qt::LeftButton);
    QCOMPARE(main.Value("SP.KIND#3"), "OFF");
    QCOMPARE(main.Value("SP.KIND#50"), "GROSS");
    QCOMPARE(main.Value("SP.RELNUM#4"), "50");
    QTRY_COMPARE(main.Status("itemTitle"), "Setpoint 50");
    VERIFY_DIALOGS(main);
}

void ItemsTest::AFullNumberAsks() {
    MainWindow main;
    QVERIFY(main.Open("batching-plant.mrn"));
    const std::string before = main.window->Session().Document().Body();
    const QString first = main.Value("SP.KIND#1"), last = main.Value("SP.KIND#5");
    main.window->ShowParameter("SP.KIND#1");
    main.Find<QSpinBox>("targetNumber")->setValue(5);
    main.dialogs.Answer("Keep setpoint 5");
    QTest::mouseClick(main.Find<QPushButton>("cmdDuplicate"), Qt::LeftButton);
    main.dialogs.Answer("Keep the numbers");
    QTest::mouseClick(main.Find<QPushButton>("cmdMove"), Qt::LeftButton);
    QCOMPARE(main.window->Session().Document().Body(), before);

    main.dialogs.Answer("Swap the two");
    QTest::mouseClick(main.Find<QPushButton>("cmdMove"), Qt::LeftButton);
    QCOMPARE(main.Value("SP.KIND#1"), last);
    QCOMPARE(main.Value("SP.KIND#5"), first);
    main.Choose("editUndo");
    QCOMPARE(main.window->Session().Document().Body(), before);

    main.window->ShowParameter("SP.KIND#1");
    QTest::mouseClick(main.Find<QPushButton>("cmdClear"), Qt::LeftButton);
    QCOMPARE(main.Value("SP.KIND#1"), "OFF");
    main.Choose("editUndo");
    QCOMPARE(main.window->Session().Document().Body(), before);
    VERIFY_DIALOGS(main);
}

QTEST_MAIN(ItemsTest)
#include "items_test.moc"
