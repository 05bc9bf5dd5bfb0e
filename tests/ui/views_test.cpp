#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QProcess>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTreeView>

#include "tests/ui/main_window.h"
#include "ui/form/form_page.h"
#include "ui/mod_main.h"
#include "ui/panes/lines_model.h"

using namespace calyx;
using namespace calyx::test;

// The lines pane, the find box, the window as a whole.
class ViewsTest : public QObject {
    Q_OBJECT

  private slots:
    void LinesShowWhatAFirmwareGets();
    void LinesAndFieldsLeadToEachOther();
    void LinesFollowEveryEdit();
    void FindJumpsToFieldsAndKeptLines();
    void FindSaysWhenNothingFits();
    void TextsAreThereAndMnemonicsUnique();
    void ListsHaveNames();
    void LayoutIsKept();
    void WindowsFitTheScreen();
    void NarrowWindowsGiveTheirRoomToThePage();
    void EmptyPanesFold();
    void FiltersNarrowTheFind();
    void PagesAreWalkedByKeys();
    void PartsAreWalkedByKeys();
    void ThePictureNeverWaits();
    void HelpAndVersionNeedNoScreen();
    void LooksAreSwitchedAndKept();
    void ParameterReferenceFilters();
    void CommandLine_data();
    void CommandLine();
};

namespace {

QModelIndex LineOf(QListView* list, const QString& key) {
    const auto* model = qobject_cast<ui::LinesModel*>(list->model());
    return model->index(model->Find(key));
}

// Letters that two captions below a widget share. Menus have their own.
QString SharedLetters(const QWidget& parent) {
    QStringList captions, letters;
    for (const auto* label : parent.findChildren<QLabel*>()) {
        if (label->buddy() != nullptr) captions += label->text();
    }
    for (const auto* button : parent.findChildren<QAbstractButton*>()) captions += button->text();
    QString shared;
    for (const QString& caption : captions) {
        const auto match = QRegularExpression("(?<!&)&([^&])").match(caption);
        if (!match.hasMatch()) continue;
        if (letters.contains(match.captured(1).toUpper())) shared += match.captured(1);
        letters += match.captured(1).toUpper();
    }
    return shared;
}

void CollectTexts(const QWidget& parent, QStringList& texts) {
    for (const auto* label : parent.findChildren<QLabel*>()) texts += label->text();
    for (const auto* button : parent.findChildren<QAbstractButton*>()) texts += button->text();
    for (const auto* action : parent.findChildren<QAction*>()) texts += action->text();
    for (const auto* view : parent.findChildren<QAbstractItemView*>()) texts += view->accessibleName();
    texts += parent.windowTitle();
}

}  // namespace

void ViewsTest::LinesShowWhatAFirmwareGets() {
    MainWindow main;
    auto* list = main.Find<QListView>("linesList");
    auto* lines = main.Find<ui::ctlLines>("ctlLines");
    QVERIFY(LineOf(list, "IMAGE").data(ui::LinesModel::kReasonRole).toString().isEmpty());
    lines->SetVersion("3.07.");
    QVERIFY(LineOf(list, "IMAGE").data(ui::LinesModel::kReasonRole).toString().contains("3.05 to 3.06"));
    QVERIFY(!lines->SentText().contains("IMAGE="));
    QVERIFY(!lines->SentText().contains("VERSION="));
    QVERIFY(lines->SentText().contains("ALIBI="));
    lines->SetCb2(true);
    QVERIFY(lines->SentText().contains("IMAGE="));
    QCOMPARE(main.Find<QComboBox>("linesTarget")->count(), 1 + static_cast<int>(kVersions.size()));
    QCOMPARE(main.app->model.target.prefix, "3.10.");  // a matter of the view alone
}

void ViewsTest::LinesAndFieldsLeadToEachOther() {
    MainWindow main;
    auto* list = main.Find<QListView>("linesList");
    emit list->clicked(LineOf(list, "DSPRATE"));
    QTRY_VERIFY(main.Find<QLineEdit>("DSPRATE")->hasFocus());
    QTest::keyClick(main.Find<QLineEdit>("DSPRATE"), Qt::Key_Tab);
    QTRY_VERIFY(!main.Find<QLineEdit>("DSPRATE")->hasFocus());
    QTRY_VERIFY(list->currentIndex() != LineOf(list, "DSPRATE"));
    QCOMPARE(list->currentIndex().data(ui::LinesModel::kKeyRole).toString(),
             QApplication::focusWidget()->objectName());
}

void ViewsTest::LinesFollowEveryEdit() {
    MainWindow main;
    auto* list = main.Find<QListView>("linesList");
    main.window->Session().SetParameter("UID", "NORTH", false);
    QTRY_COMPARE(LineOf(list, "UID").data().toString(), "UID=NORTH");
    QVERIFY(LineOf(list, "UID").data(ui::LinesModel::kChangedRole).toBool());
    QVERIFY(!LineOf(list, "LAT.LOC").isValid());
    main.window->Session().SetParameter("GRAVADJ", "ON", false);
    QTRY_VERIFY(LineOf(list, "LAT.LOC").isValid());
}

void ViewsTest::FindJumpsToFieldsAndKeptLines() {
    MainWindow main;
    QVERIFY(main.Open("batching-plant.mrn"));
    main.window->ShowParameter("UID");
    auto* field = main.Find<QLineEdit>("UID");
    QTRY_VERIFY(field->hasFocus());
    auto* find = main.Find<ui::ctlFind>("ctlFind");
    QTest::keyClick(field, Qt::Key_K, Qt::ControlModifier);
    QTRY_VERIFY(find->hasFocus());
    QTest::keyClicks(find, "agghop");  // the value of an item that is not open
    QVERIFY(find->HitCount() >= 1);
    QTest::keyClick(find, Qt::Key_Return);
    QCOMPARE(main.Status("pageHeading"), "Scales");
    QTRY_VERIFY(main.Find<QLineEdit>("SC.ALIAS#1")->hasFocus());
    QCOMPARE(main.Find<QLabel>("itemTitle")->text(), "Scale 1");

    QTest::keyClick(main.window.get(), Qt::Key_K, Qt::ControlModifier);
    QTest::keyClicks(find, "display rate");
    QTest::keyClick(find, Qt::Key_Return);
    QTRY_VERIFY(main.Find<QLineEdit>("DSPRATE")->hasFocus());
}

void ViewsTest::FindSaysWhenNothingFits() {
    MainWindow main;
    auto* find = main.Find<ui::ctlFind>("ctlFind");
    main.Choose("editFind");
    QTest::keyClicks(find, "zzzz");
    QCOMPARE(find->HitCount(), 0);
    QVERIFY(main.Find<QWidget>("findPopup")->isVisible());
    QTest::keyClick(find, Qt::Key_Escape);
    QVERIFY(!main.Find<QWidget>("findPopup")->isVisible());
    QTRY_VERIFY(!find->hasFocus());
}

void ViewsTest::TextsAreThereAndMnemonicsUnique() {
    MainWindow main;
    main.Choose("helpParameters");
    main.Choose("helpKeyboard");
    main.Choose("linkSimulated");
    main.Choose("linkSend");
    main.dialogs.Answer("Disconnect");
    main.Choose("linkConnect");
    QStringList texts;
    CollectTexts(*main.window, texts);
    const auto dialogs = main.window->findChildren<QDialog*>();
    QCOMPARE(dialogs.size(), 4);
    for (const QDialog* dialog : dialogs) {
        CollectTexts(*dialog, texts);
        QVERIFY2(SharedLetters(*dialog).isEmpty(), qPrintable(dialog->windowTitle()));
    }
    QCOMPARE(SharedLetters(*main.window->centralWidget()), "");
    for (const QString& text : texts)
        QVERIFY2(!text.contains(QRegularExpression("#\\d{3,}$")), qPrintable(text));

    emit main.Find<QMenu>("menuLinesShown")->aboutToShow();
    for (const QMenu* menu : main.window->findChildren<QMenu*>()) {
        QStringList letters;
        for (const QAction* action : menu->actions()) {
            const auto match = QRegularExpression("(?<!&)&([^&])").match(action->text());
            if (match.hasMatch()) letters += match.captured(1).toUpper();
        }
        QVERIFY2(letters.removeDuplicates() == 0, qPrintable(menu->title()));
    }
}

void ViewsTest::ListsHaveNames() {
    MainWindow main;
    main.Choose("viewNext");
    for (const QAbstractItemView* view : main.window->findChildren<QAbstractItemView*>()) {
        const bool inside = qobject_cast<const QComboBox*>(view->parent()->parent()) != nullptr ||
                            view->inherits("QHeaderView");  // these speak for their owner
        QVERIFY2(inside || !view->accessibleName().isEmpty(), view->metaObject()->className());
    }
}

void ViewsTest::LayoutIsKept() {
    MainWindow main;
    main.window->resize(700, 600);
    main.Find<QAction>("viewLines")->setChecked(false);
    auto* navigation = main.Find<ui::ctlNavigation>("ctlNavigation");
    navigation->topLevelItem(2)->setExpanded(false);
    main.window->close();
    main.Restart();
    QCOMPARE(main.window->size(), QSize(700, 600));
    QVERIFY(!main.Find<ui::ctlLines>("ctlLines")->isVisible());
    navigation = main.Find<ui::ctlNavigation>("ctlNavigation");
    QVERIFY(!navigation->topLevelItem(2)->isExpanded());
    QVERIFY(navigation->topLevelItem(1)->isExpanded());
    QCOMPARE(main.app->settings.BarGroup[2], std::int16_t{1});
}

void ViewsTest::WindowsFitTheScreen() {
    MainWindow main;
    main.window->resize(5000, 4000);
    main.window->close();
    main.Restart();
    const QRect screen = main.window->screen()->availableGeometry();
    QVERIFY(screen.contains(QRect(screen.topLeft(), main.window->size())));
    main.Choose("helpParameters");
    main.Choose("helpKeyboard");
    for (const QDialog* dialog : main.window->findChildren<QDialog*>()) {
        QVERIFY(dialog->width() < screen.width() && dialog->height() < screen.height());
    }
}

void ViewsTest::NarrowWindowsGiveTheirRoomToThePage() {
    MainWindow main;
    auto* lines = main.Find<ui::ctlLines>("ctlLines");
    QVERIFY(lines->isVisible());
    main.window->resize(960, 540);
    QVERIFY(!lines->isVisible());
    auto* page = main.window->findChild<ui::FormPage*>();
    QTRY_COMPARE(page->horizontalScrollBar()->maximum(), 0);
    main.window->resize(1366, 768);
    QVERIFY(lines->isVisible());  // the choice itself was kept
}

void ViewsTest::EmptyPanesFold() {
    MainWindow main;
    auto& panes = main.window->Panes();
    auto* page = main.Find<ui::ctlPages>("ctlPages");
    const auto reachesThePanes = [&] {
        return page->mapToGlobal(QPoint(0, page->height())).y() + 8 >= panes.mapToGlobal(QPoint()).y();
    };
    QTRY_VERIFY(panes.height() < 40 && reachesThePanes());
    main.Choose("toolsCheck");  // asked for, it opens though there is nothing in it
    QTRY_VERIFY(panes.height() > 100 && reachesThePanes());
    main.window->Session().New();
    QTRY_VERIFY(panes.height() < 40);
    main.window->Session().SetParameter("CONTACT.EMAIL", "nobody", false);
    QTRY_VERIFY(panes.height() > 100 && panes.Problems().isVisible());
}

void ViewsTest::FiltersNarrowTheFind() {
    MainWindow main;
    auto& session = main.window->Session();
    session.SetParameter("UID", "NORTH", false);
    main.dialogs.AnswerFile(main.Path("a.mrn"));
    main.Choose("fileSaveAs");
    session.SetParameter("CONTACT.EMAIL", "nobody", false);
    auto* find = main.Find<ui::ctlFind>("ctlFind");
    main.Choose("editFind");
    const auto toggle = [&](const char* filter) {
        auto* button = main.Find<QAbstractButton>(filter);
        button->click();
        return find->HitCount();
    };
    QCOMPARE(find->HitCount(), 0);
    QCOMPARE(toggle("findFilter0"), 1);                          // changed since the save: the address
    QCOMPARE(toggle("findFilter0") + toggle("findFilter1"), 2);  // not default: both
    QCOMPARE(toggle("findFilter2"), 1);                          // and with a problem
    QTest::keyClicks(find, "unit");
    QCOMPARE(find->HitCount(), 0);
    toggle("findFilter2");
    QTest::keyClick(find, Qt::Key_Return);
    QTRY_VERIFY(main.Find<QLineEdit>("UID")->hasFocus());
}

// The program itself; its standard error output, and how it ended.
namespace {
struct Ran {
    int exitCode;
    QString out, err;
};
Ran Run(const QStringList& words, const char* platform) {
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", platform);
    program.setProcessEnvironment(environment);
    program.start(CALYX_PROGRAM, words);
    constexpr int kEnough = 60000;  // ms, for one that hangs
    if (!program.waitForFinished(kEnough)) program.kill();
    const bool ended = program.exitStatus() == QProcess::NormalExit;
    return {ended ? program.exitCode() : -1, program.readAllStandardOutput(), program.readAllStandardError()};
}
}  // namespace

void ViewsTest::PartsAreWalkedByKeys() {
    MainWindow main;
    main.window->ShowParameter("UID");
    auto* field = main.Find<QLineEdit>("UID");
    QVERIFY(field->hasFocus());
    const auto walk = [&](Qt::KeyboardModifiers modifiers) {
        QWidgetList seen;
        do {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6, modifiers);
            seen += QApplication::focusWidget();
        } while (seen.back() != field && seen.size() < 10);
        return seen;
    };
    QWidgetList forward = walk({}), back = walk(Qt::ShiftModifier);
    QCOMPARE(forward.back(), field);  // back to where the page was left
    QVERIFY(main.Find<QWidget>("ctlLines")->isAncestorOf(forward.front()));
    const auto isNavigation = [](const QWidget* part) {
        return qobject_cast<const QTreeView*>(part) != nullptr;
    };
    QVERIFY(std::any_of(forward.begin(), forward.end(), isNavigation));
    forward.removeLast();
    back.removeLast();
    std::reverse(back.begin(), back.end());
    QCOMPARE(back, forward);
}

void ViewsTest::ThePictureNeverWaits() {
    QTemporaryDir folder;
    const QString picture = folder.filePath("a.png");
    const QStringList base{"--screenshot", picture, "--user-dir", folder.filePath("user")};
    const Ran noData = Run(base + QStringList{"--data-dir", folder.path()}, "offscreen");
    QCOMPARE(noData.exitCode, 3);
    QVERIFY(noData.err.contains("20100"));
    const Ran noFile = Run(base + QStringList{"--data-dir", CALYX_DATA_DIR, "missing.mrn"}, "offscreen");
    QCOMPARE(noFile.exitCode, 3);
    QVERIFY(noFile.err.contains("missing.mrn"));
    QVERIFY(!QFile::exists(picture));
}

void ViewsTest::HelpAndVersionNeedNoScreen() {
    QVERIFY(Run({"--version"}, "none").out.startsWith("Calyx 3."));
    QVERIFY(Run({"--help"}, "none").out.contains("--language"));
    QCOMPARE(Run({"--nonsense"}, "none").exitCode, 2);
}

void ViewsTest::PagesAreWalkedByKeys() {
    MainWindow main;
    QStringList headings{main.Status("pageHeading")};
    for (std::size_t i = 1; i < ui::AllPlaces().size(); ++i) {
        QTest::keyClick(main.window.get(), Qt::Key_PageDown, Qt::ControlModifier);
        headings += main.Status("pageHeading");
    }
    QCOMPARE(headings.removeDuplicates(), 0);
    QTest::keyClick(main.window.get(), Qt::Key_PageDown, Qt::ControlModifier);  // stops at the end
    QCOMPARE(main.Status("pageHeading"), headings.back());
    QTest::keyClick(main.window.get(), Qt::Key_PageUp, Qt::ControlModifier);
    QCOMPARE(main.Status("pageHeading"), headings[headings.size() - 2]);
}

void ViewsTest::LooksAreSwitchedAndKept() {
    MainWindow main;
    const auto window = [] { return QApplication::palette().color(QPalette::Window); };
    for (QAction* look : main.Find<QMenu>("menuLook")->actions()) {
        look->trigger();
        QCOMPARE(main.app->settings.Theme, look->data().toString().toStdString());
        const bool dark = look->data().toString() == "dark";
        if (!look->data().toString().isEmpty()) QCOMPARE(window().lightness() < 128, dark);
        QVERIFY(!main.window->grab().isNull());
    }
}

void ViewsTest::ParameterReferenceFilters() {
    MainWindow main;
    main.Choose("helpParameters");
    auto* list = main.Dialog("frmParameters")->findChild<ui::PaneList*>();
    const int all = list->Count();
    main.Dialog("frmParameters")->findChild<QLineEdit*>("filter")->setText("image");
    QVERIFY(list->Count() >= 1 && list->Count() < all);
    QVERIFY(list->AsText().contains("IMAGE\t"));
    QVERIFY(list->AsText().contains("3.05 to 3.06"));
}

void ViewsTest::CommandLine_data() {
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<bool>("runs");
    QTest::newRow("nothing") << QStringList{} << 0 << true;
    QTest::newRow("file and folders")
        << QStringList{"a.mrn", "--user-dir", "u", "--data-dir", "d"} << 0 << true;
    QTest::newRow("picture") << QStringList{"--theme", "dark", "--screenshot", "a.png", "--size", "800x600"}
                             << 0 << true;
    QTest::newRow("language") << QStringList{"--language", "de"} << 0 << true;
    QTest::newRow("help") << QStringList{"--help"} << 0 << false;
    QTest::newRow("two files") << QStringList{"a.mrn", "b.mrn"} << 2 << false;
    QTest::newRow("unknown option") << QStringList{"--nonsense"} << 2 << false;
    QTest::newRow("unknown theme") << QStringList{"--theme", "pink"} << 2 << false;
    QTest::newRow("no size") << QStringList{"--size", "big"} << 2 << false;
}

void ViewsTest::CommandLine() {
    QFETCH(QStringList, words);
    QFETCH(int, exitCode);
    QFETCH(bool, runs);
    const auto line = ui::modMain::Parse(QStringList{"calyx"} + words);
    QCOMPARE(line.exitCode, exitCode);
    QCOMPARE(line.answer.isEmpty(), runs);
}

QTEST_MAIN(ViewsTest)
#include "views_test.moc"
