#include <QLabel>

#include "tests/ui/main_window.h"
#include "ui/panes/pane_list.h"

using namespace calyx;
using namespace calyx::test;

namespace {

// A window with a saved configuration whose unit ID is 1, and what another program may make of its file.
class Shared : public MainWindow {
  public:
    Shared() {
        window->Session().SetParameter("UID", "1", false);
        dialogs.AnswerFile(file);
        Choose("fileSaveAs");
    }

    void Edit(const char* id) { window->Session().SetParameter("UID", id, false); }
    // As another program would: the same configuration with another unit ID.
    void ChangeOutside(const char* id) {
        CIndicator document(app->model);
        document.Load(file.toStdString(), false);
        document.Import({{"UID", id}});
        document.Save(file.toStdString(), false);
    }
    void ComeToFront() {
        QEvent activated(QEvent::WindowActivate);
        QApplication::sendEvent(window.get(), &activated);
    }
    QWidget* Note() { return Find("ctlFileNote"); }
    QString Said() { return Note()->isVisible() ? Status("ctlFileNoteWords") : QString(); }
    QString IdIn(const QString& path) {
        CIndicator document(app->model);
        document.Load(path.toStdString(), false);
        return ui::ShownValue(document.Value("UID").value_or("(none)"));
    }

    const QString file = Path("shared.mrn");
};

}  // namespace

// A file that other programs change or have open as well.
class FilesSharedTest : public QObject {
    Q_OBJECT

  private slots:
    void SavingOverAChangeOfAnotherProgramAsks();
    void SavingAFileThatHasGoneAsks();
    void LeavingDoesNotSaveOverAChangeUnasked();
    void AChangeIsNotedAndReloaded();
    void ReloadingAsksWhereItLosesChanges();
    void TheNoteComesByItselfAndGoesWithTheChange();
    void AFileThatIsOpenElsewhereIsOpenedOnlyWhenAskedFor();
    void ACopyOfAFileThatIsOpenElsewhereIsANewDocument();
    void AFileThatIsOpenElsewhereIsNotReplacedUnasked();
    void UndoStaysOnThePageThatShowsTheChange();
};

void FilesSharedTest::SavingOverAChangeOfAnotherProgramAsks() {
    Shared main;
    main.Edit("2");
    main.ChangeOutside("9");
    main.dialogs.Answer("Cancel");
    main.Choose("fileSave");
    const ui::Question asked = main.dialogs.asked.back();
    QVERIFY(asked.text.contains("shared.mrn"));
    QCOMPARE(asked.buttons.value(asked.standard), "Cancel");
    QCOMPARE(main.IdIn(main.file), "9");

    main.dialogs.Answer("Show differences");
    main.Choose("fileSave");
    const auto rows = main.Dialog("frmCompare")->findChild<ui::PaneList*>("differences")->Rows();
    QCOMPARE(rows.size(), 1u);
    QCOMPARE(rows.front().cells.mid(3), (QStringList{"2", "9"}));
    delete main.Dialog("frmCompare");
    QCOMPARE(main.IdIn(main.file), "9");
    QVERIFY(main.window->isWindowModified());

    // Onto the same name, by way of Save as.
    main.dialogs.AnswerFile(main.Path("./shared.mrn"));
    main.dialogs.Answer("Replace file");
    main.dialogs.Answer("Cancel");
    main.Choose("fileSaveAs");
    QCOMPARE(main.IdIn(main.file), "9");

    main.dialogs.Answer("Save anyway");
    main.Choose("fileSave");
    QCOMPARE(main.IdIn(main.file), "2");
    main.Edit("3");
    main.Choose("fileSave");  // known again
    QCOMPARE(main.IdIn(main.file), "3");

    main.ChangeOutside("9");
    main.Edit("4");
    main.dialogs.Answer("Save as...");
    main.dialogs.AnswerFile(main.Path("other.mrn"));
    main.Choose("fileSave");
    QCOMPARE(main.IdIn(main.file), "9");
    QCOMPARE(main.IdIn(main.Path("other.mrn")), "4");
    QVERIFY(main.window->windowTitle().startsWith("other.mrn"));
    VERIFY_DIALOGS(main);
}

void FilesSharedTest::SavingAFileThatHasGoneAsks() {
    Shared main;
    main.Edit("2");
    QVERIFY(QFile::rename(main.file, main.Path("moved.mrn")));
    main.dialogs.Answer("Cancel");
    main.Choose("fileSave");
    QVERIFY(main.dialogs.asked.back().text.contains("moved"));
    QVERIFY(!main.dialogs.asked.back().buttons.contains("Show differences"));
    QVERIFY(!QFile::exists(main.file));
    main.ComeToFront();
    QVERIFY(main.Said().contains("deleted, moved or renamed"));
    main.dialogs.Answer("Save anyway");
    main.Choose("fileSave");
    QCOMPARE(main.IdIn(main.file), "2");
    QCOMPARE(main.IdIn(main.Path("moved.mrn")), "1");
    QCOMPARE(main.Said(), QString());

    // Named again in Save as, it is meant to be there again.
    QVERIFY(QFile::remove(main.file));
    main.dialogs.AnswerFile(main.file);
    main.Choose("fileSaveAs");
    QCOMPARE(main.IdIn(main.file), "2");

    // What stands there now can be neither compared nor replaced.
    QVERIFY(QFile::remove(main.file) && QDir().mkpath(main.file));
    main.dialogs.Answer("Close");
    main.Choose("fileSave");
    QVERIFY2(main.dialogs.asked.back().details.contains("20003"), qPrintable(main.dialogs.asked.back().text));
    VERIFY_DIALOGS(main);
}

void FilesSharedTest::LeavingDoesNotSaveOverAChangeUnasked() {
    Shared main;
    main.Edit("2");
    main.ChangeOutside("9");
    for (const char* answer : {"Cancel", "Show differences"}) {
        main.dialogs.Answer("Save");
        main.dialogs.Answer(answer);
        QVERIFY(!main.window->close());
        QCOMPARE(main.Value("UID"), "2");
        QCOMPARE(main.IdIn(main.file), "9");
    }
    VERIFY_DIALOGS(main);
}

void FilesSharedTest::AChangeIsNotedAndReloaded() {
    Shared main;
    main.window->ShowParameter("SC.GRADS#1");
    const QString page = main.Status("pageHeading");
    main.ComeToFront();
    QCOMPARE(main.Said(), QString());
    main.ChangeOutside("9");
    main.ComeToFront();
    QVERIFY(main.Said().contains("shared.mrn"));
    QCOMPARE(main.Value("UID"), "1");

    // Put away, it comes again only with another change.
    main.Find<QAbstractButton>("ctlFileNoteClose")->click();
    main.ComeToFront();
    QCOMPARE(main.Said(), QString());
    main.ChangeOutside("8");
    main.ComeToFront();
    main.Find<QAbstractButton>("cmdFileDifferences")->click();
    QVERIFY(main.Dialog("frmCompare") != nullptr);
    delete main.Dialog("frmCompare");

    main.Find<QAbstractButton>("cmdReload")->click();
    QCOMPARE(main.Value("UID"), "8");
    QCOMPARE(main.Said(), QString());
    QCOMPARE(main.Status("pageHeading"), page);
    main.Edit("2");
    main.Choose("fileSave");
    QCOMPARE(main.IdIn(main.file), "2");
    VERIFY_DIALOGS(main);
}

void FilesSharedTest::ReloadingAsksWhereItLosesChanges() {
    Shared main;
    main.Edit("2");
    main.ChangeOutside("9");
    main.ComeToFront();
    auto* reload = main.Find<QAbstractButton>("cmdReload");
    main.dialogs.Answer("Cancel");
    reload->click();
    QCOMPARE(main.Value("UID"), "2");
    QVERIFY(main.window->isWindowModified() && main.window->Session().UndoName());
    QVERIFY(!main.Said().isEmpty());
    main.dialogs.Answer("Reload and discard changes");
    reload->click();
    QCOMPARE(main.Value("UID"), "9");
    QVERIFY(!main.window->isWindowModified());

    // Edited as text it has a wrong checksum, and the window keeps what it has until told otherwise.
    QFile file(main.file);
    const QByteArray edited = Bytes(main.file).replace("UID=9", "UID=5");
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(edited) == edited.size());
    file.close();
    main.ComeToFront();
    main.dialogs.Answer("Cancel");
    reload->click();
    QCOMPARE(main.Value("UID"), "9");
    QVERIFY(!main.Said().isEmpty());
    VERIFY_DIALOGS(main);
}

void FilesSharedTest::TheNoteComesByItselfAndGoesWithTheChange() {
    Shared main;
    const QByteArray before = Bytes(main.file);
    QTest::qWait(400);  // so that the file is watched
    main.ChangeOutside("9");
    QTRY_VERIFY(!main.Said().isEmpty());
    QFile file(main.file);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(before) == before.size());
    file.close();
    QTRY_COMPARE(main.Said(), QString());
    main.Edit("2");
    main.Choose("fileSave");
    QTest::qWait(400);  // own writing is nobody else's
    QCOMPARE(main.Said(), QString());
    VERIFY_DIALOGS(main);
}

void FilesSharedTest::AFileThatIsOpenElsewhereIsOpenedOnlyWhenAskedFor() {
    Shared first;
    MainWindow second(&first);
    QVERIFY(first.window->Files().OpenPath(first.file));  // again, in the same window
    second.dialogs.Answer("Cancel");
    QVERIFY(!second.window->Files().OpenPath(first.file));
    QVERIFY(second.dialogs.asked.back().text.contains(QString::number(ProcessNumber())));
    QVERIFY(second.window->Session().Document().IsNew());

    second.dialogs.Answer("Open anyway");
    QVERIFY(second.window->Files().OpenPath(first.file));
    QVERIFY(second.window->windowTitle().contains("also open elsewhere"));
    second.window->Session().SetParameter("UID", "2", false);
    second.Choose("fileSave");
    first.ComeToFront();
    QVERIFY(!first.Said().isEmpty());
    first.Edit("3");
    first.dialogs.Answer("Cancel");
    first.Choose("fileSave");
    QCOMPARE(first.IdIn(first.file), "2");

    // Without questions for runs that nobody watches.
    MainWindow third(&first);
    QVERIFY(third.window->Files().OpenPath(first.file, true));

    first.dialogs.Answer("Discard changes");
    first.Choose("fileNew");
    QEvent activated(QEvent::WindowActivate);
    QApplication::sendEvent(second.window.get(), &activated);
    QVERIFY(!second.window->windowTitle().contains("elsewhere"));
    first.dialogs.Answer("Cancel");
    QVERIFY(!first.window->Files().OpenPath(first.file));  // the second has it now
    VERIFY_DIALOGS(first);
    VERIFY_DIALOGS(second);
}

void FilesSharedTest::ACopyOfAFileThatIsOpenElsewhereIsANewDocument() {
    Shared first;
    MainWindow second(&first);
    second.dialogs.Answer("Open a copy");
    QVERIFY(second.window->Files().OpenPath(first.file));
    QVERIFY(second.window->windowTitle().startsWith("Copy of shared.mrn"));
    QCOMPARE(second.Value("UID"), "1");
    const QByteArray before = Bytes(first.file);
    second.window->Session().SetParameter("UID", "2", false);
    second.dialogs.AnswerFile(first.Path("copy.mrn"));
    second.Choose("fileSave");
    QCOMPARE(Bytes(first.file), before);
    QCOMPARE(first.IdIn(first.Path("copy.mrn")), "2");
    QVERIFY(second.window->windowTitle().startsWith("copy.mrn"));
    VERIFY_DIALOGS(second);
}

void FilesSharedTest::AFileThatIsOpenElsewhereIsNotReplacedUnasked() {
    Shared first;
    MainWindow second(&first);
    const QByteArray before = Bytes(first.file);
    for (const char* command : {"fileSaveAs", "fileSaveCopy"}) {
        second.dialogs.AnswerFile(first.file);
        second.dialogs.Answer("Replace file");
        second.dialogs.Answer("Cancel");
        second.Choose(command);
        QCOMPARE(Bytes(first.file), before);
    }
    second.window->Session().SetParameter("UID", "2", false);
    second.dialogs.AnswerFile(first.file);
    second.dialogs.Answer("Replace file");
    second.dialogs.Answer("Replace anyway");
    second.Choose("fileSaveAs");
    QCOMPARE(first.IdIn(first.file), "2");
    QVERIFY(second.window->windowTitle().contains("also open elsewhere"));
    VERIFY_DIALOGS(second);
}

void FilesSharedTest::UndoStaysOnThePageThatShowsTheChange() {
    MainWindow main;
    main.window->Session().SetParameter("UID", "7", false);
    main.window->ShowParameter("HARDWARE");
    const QString hardware = main.Status("pageHeading");
    main.window->Session().Do("Put in a card",
                              [](CIndicator& document) { return document.ChangeCard(3, 9); });
    main.Choose("editUndo");
    QCOMPARE(main.Status("pageHeading"), hardware);
    main.Choose("editUndo");  // of another page
    QVERIFY(main.Status("pageHeading") != hardware);
}

QTEST_MAIN(FilesSharedTest)
#include "files_shared_test.moc"
