#include <QLabel>
#include <QLineEdit>

#include "tests/ui/main_window.h"

using namespace calyx;
using namespace calyx::test;

// Editing, undo and the panes that follow, through the real window.
class EditingTest : public QObject {
    Q_OBJECT

  private slots:
    void TypingIsOneStepAndUndoGoesBackToClean();
    void UndoMovesTheViewToWhatChanged();
    void ChangesAreTakenBackOneByOne();
    void ProblemsLeadToTheirField();
    void LinesThatFollowAreNotTakenBackAlone();
    void WrongInputIsNeitherSavedNorLost();
    void UndoWithNothingSaysWhy();
    void ValuesThatLoseTheirLineAreTold();
    void TypingIsCheckedWhenItRests();
};

void EditingTest::TypingIsOneStepAndUndoGoesBackToClean() {
    MainWindow main;
    QVERIFY(!main.window->isWindowModified());
    auto* field = main.Find<QLineEdit>("UID");
    main.window->ShowParameter("UID");
    QTRY_VERIFY(field->hasFocus());
    field->selectAll();
    QTest::keyClicks(field, "GATE");
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(main.Value("UID"), "GATE");
    QVERIFY(main.window->isWindowModified());
    QVERIFY(main.Find<QAction>("editUndo")->text().endsWith("Unit ID: 1 to GATE"));

    QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier);  // the document's undo, not the field's
    QCOMPARE(main.Value("UID"), "1");
    QCOMPARE(field->text(), "1");
    QVERIFY(!main.window->isWindowModified());
    QTest::keyClick(field, Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(main.Value("UID"), "GATE");
    main.dialogs.Answer("Discard changes");
    QVERIFY(main.window->close());
    VERIFY_DIALOGS(main);
}

void EditingTest::UndoMovesTheViewToWhatChanged() {
    MainWindow main;
    main.window->Session().SetParameter("DSPRATE", "500", false);
    main.Choose("viewNext");
    QCOMPARE(main.Status("pageHeading"), "Hardware");
    main.Choose("editUndo");
    QCOMPARE(main.Status("pageHeading"), "General");
    QTRY_VERIFY(main.Find<QLineEdit>("DSPRATE")->hasFocus());
    QCOMPARE(main.Value("DSPRATE"), "200");
    QVERIFY(main.Status("statusMessage").contains("Display rate"));
}

void EditingTest::ChangesAreTakenBackOneByOne() {
    MainWindow main;
    main.window->Session().SetParameter("UID", "A", false);
    main.window->Session().SetParameter("DSPRATE", "400", false);
    auto& changes = main.window->Panes().Changes();
    QTRY_COMPARE(changes.Count(), 2);
    QTRY_VERIFY(main.Status("statusFile").contains("2 changes"));
    main.window->Panes().setCurrentWidget(&changes);
    changes.View()->setFocus();
    changes.View()->setCurrentIndex(changes.View()->model()->index(0, 0));
    const QString first = changes.Rows().front().key;
    QTest::keyClick(changes.View(), Qt::Key_Space);
    QCOMPARE(changes.Count(), 1);
    QVERIFY(changes.Rows().front().key != first);
    main.Choose("editUndo");  // taking back is a step of its own
    QTRY_COMPARE(changes.Count(), 2);
}

void EditingTest::ProblemsLeadToTheirField() {
    MainWindow main;
    main.window->Session().SetParameter("CONTACT.EMAIL", "nobody", false);
    auto& problems = main.window->Panes().Problems();
    QTRY_COMPARE(problems.Count(), 1);
    main.Choose("viewNext");
    QVERIFY(!main.Find<QLineEdit>("CONTACT.EMAIL")->isVisible());
    emit problems.View()->activated(problems.View()->model()->index(0, 0));
    QTRY_VERIFY(main.Find<QLineEdit>("CONTACT.EMAIL")->hasFocus());
    main.window->Session().SetParameter("CONTACT.EMAIL", "a@plant.example", false);
    QTRY_COMPARE(problems.Count(), 0);
}

void EditingTest::LinesThatFollowAreNotTakenBackAlone() {
    MainWindow main;
    auto& session = main.window->Session();
    auto& changes = main.window->Panes().Changes();
    const auto action = [&](const char* key) {
        for (const ui::PaneList::Row& row : changes.Rows()) {
            if (row.key == key) return row.action;
        }
        return QStringLiteral("(no row)");
    };
    session.SetParameter("GRAVADJ", "ON", false);
    session.SetParameter("ELEV.LOC", "300", false);
    session.SetParameter("KLOCK.KZERO", "True", false);  // brings the lines of all keys
    main.window->Panes().Refresh();
    QCOMPARE(action("LAT.LOC"), "");
    QCOMPARE(action("KLOCK.KTARE"), "");
    for (const char* own : {"GRAVADJ", "ELEV.LOC", "KLOCK.KZERO"}) QCOMPARE(action(own), "Undo");

    emit changes.Acted("LAT.LOC");
    QVERIFY(main.Status("statusMessage").startsWith("LAT.LOC follows"));
    // Every action does something, until nothing is left.
    while (changes.Count() > 0) {
        const auto before = session.Document().Lines();
        const auto rows = changes.Rows();
        const auto acts = std::find_if(rows.begin(), rows.end(),
                                       [](const ui::PaneList::Row& row) { return !row.action.isEmpty(); });
        QVERIFY(acts != rows.end());
        emit changes.Acted(acts->key);
        QVERIFY(session.Document().Lines() != before);
    }
}

void EditingTest::WrongInputIsNeitherSavedNorLost() {
    MainWindow main;
    main.dialogs.AnswerFile(main.Path("a.mrn"));
    main.Choose("fileSaveAs");
    const QByteArray saved = Bytes(main.Path("a.mrn"));
    auto* field = main.Find<QLineEdit>("DSPRATE");
    main.window->ShowParameter("DSPRATE");
    QTRY_VERIFY(field->hasFocus());
    field->selectAll();
    QTest::keyClicks(field, "50000");
    for (const char* command : {"fileSave", "fileSaveCopy", "linkSend"}) {
        main.dialogs.Answer("Correct it");
        main.Choose(command);
        QVERIFY(main.dialogs.asked.back().details.startsWith("Display rate"));
        QCOMPARE(field->text(), "50000");
    }
    main.dialogs.Answer("Correct it");
    QVERIFY(!main.window->close());
    QVERIFY(Bytes(main.Path("a.mrn")) == saved);

    main.dialogs.Answer("Keep old value");
    main.Choose("fileSave");
    QCOMPARE(field->text(), "200");
    QVERIFY(Bytes(main.Path("a.mrn")) == saved);
    VERIFY_DIALOGS(main);
}

void EditingTest::UndoWithNothingSaysWhy() {
    MainWindow main;
    QVERIFY(main.Find<QAction>("editUndo")->isEnabled());
    main.Choose("editUndo");
    QVERIFY(main.Status("statusMessage").startsWith("Nothing to undo"));
}

void EditingTest::ValuesThatLoseTheirLineAreTold() {
    MainWindow main;
    QVERIFY(main.Open("truck-scale.mrn"));
    auto& session = main.window->Session();
    auto* note = main.Find<QWidget>("ctlNote");
    QVERIFY(!note->isVisible());
    session.SetParameter("EDP.BAUD#4", "19200", false);
    QVERIFY(!note->isVisible());
    session.SetParameter("EDP.INPUT#4", "KEYBD", false);
    QVERIFY(note->isVisible());
    QVERIFY2(main.Status("ctlNoteWords").contains("Port 4: "), qPrintable(main.Status("ctlNoteWords")));
    QVERIFY2(main.Status("ctlNoteWords").contains("Baud rate"), qPrintable(main.Status("ctlNoteWords")));

    main.Find<QAbstractButton>("cmdNoteUndo")->click();
    QVERIFY(!note->isVisible());
    QCOMPARE(main.Value("EDP.BAUD#4"), "19200");
    session.Redo();
    QVERIFY(note->isVisible());
    session.SetParameter("UID", "A", false);  // told once; the next edit has its own
    QVERIFY(!note->isVisible());
    // What only the indicator knows has no line and is nothing that saving loses.
    session.Do("read", [](CIndicator& document) { return document.UpdateFromIndicator("SC.NUMWEIGH#1=12"); });
    QVERIFY2(!note->isVisible(), qPrintable(main.Status("ctlNoteWords")));
}

void EditingTest::TypingIsCheckedWhenItRests() {
    MainWindow main;
    auto& session = main.window->Session();
    auto* field = main.Find<QLineEdit>("CONTACT.EMAIL");
    main.window->ShowParameter("CONTACT.EMAIL");
    QTRY_VERIFY(field->hasFocus());
    QTest::keyClicks(field, "nobody");
    QCOMPARE(main.Value("CONTACT.EMAIL"), "nobody");
    QCOMPARE(session.Problems().size(), 0u);  // not at every key
    QTest::keyClick(field, Qt::Key_Tab);
    QCOMPARE(session.Problems().size(), 1u);
    QVERIFY(main.Find<QLabel>("CONTACT.EMAIL.message")->isVisible());
    main.window->ShowParameter("CONTACT.EMAIL");
    field->selectAll();
    QTest::keyClicks(field, "a@plant.example");
    QTRY_COMPARE(session.Problems().size(), 0u);  // nor only when the field is left
    QVERIFY(!main.Find<QLabel>("CONTACT.EMAIL.message")->isVisible());
}

QTEST_MAIN(EditingTest)
#include "editing_test.moc"
