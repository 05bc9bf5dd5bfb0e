#include <QDropEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>

#include "tests/ui/main_window.h"

using namespace calyx;
using namespace calyx::test;

// Opening, saving and leaving, with the user's answers scripted.
class FilesTest : public QObject {
    Q_OBJECT

  private slots:
    void SamplesOpenAnywayAndSaveByteForByte_data();
    void SamplesOpenAnywayAndSaveByteForByte();
    void FilesThatCannotBeOpenedSayWhy_data();
    void FilesThatCannotBeOpenedSayWhy();
    void SavingOverCommentsAsksFirst();
    void RecordsThatAreNotUnderstoodCountAsLost();
    void LeavingChangesAsks_data();
    void LeavingChangesAsks();
    void SavingAsOrCopyingOverCommentsAsksToo();
    void ExistingFilesAreReplacedOnlyWhenAskedFor();
    void OnlyMissingFilesLeaveTheRecentOnes();
    void RecentFilesAreKept();
    void ListingAndImportFileAreWritten();
    void TwoFilesAreCompared();
    void DroppedFilesOpenOrAreCompared();
    void FailedSaveLeavesEverything();
};

void FilesTest::SamplesOpenAnywayAndSaveByteForByte_data() {
    QTest::addColumn<QString>("sample");
    for (const char* name : {"truck-scale.mrn", "batching-plant.mrn", "silo.mrn", "checkweigher-line.mrn"}) {
        QTest::newRow(name) << MainWindow::Sample(name);
    }
}

void FilesTest::SamplesOpenAnywayAndSaveByteForByte() {
    QFETCH(QString, sample);
    MainWindow main;
    main.dialogs.AnswerFile(sample);
    main.dialogs.Answer("Open anyway");
    main.Choose("fileOpen");
    QVERIFY(main.dialogs.asked.front().details.contains("10012"));
    QVERIFY(main.window->Panes().Report().Count() > 0);
    QVERIFY(!main.window->isWindowModified());

    const auto lines = main.window->Session().Document().Lines();
    main.dialogs.AnswerFile(main.Path("first.mrn"));
    main.Choose("fileSaveAs");
    QVERIFY(main.window->Files().OpenPath(main.Path("first.mrn")));  // with all checks
    QCOMPARE(main.window->Panes().Report().Count(), 0);
    QVERIFY(main.window->Session().Document().Lines() == lines);
    main.dialogs.AnswerFile(main.Path("second.mrn"));
    main.Choose("fileSaveAs");
    QCOMPARE(Bytes(main.Path("second.mrn")), Bytes(main.Path("first.mrn")));
    QVERIFY(main.window->windowTitle().startsWith("second.mrn"));
    VERIFY_DIALOGS(main);
}

void FilesTest::FilesThatCannotBeOpenedSayWhy_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("number");
    QTest::addColumn<bool>("anyway");
    QTest::newRow("body changed") << QByteArray("@CRC=1\r\n\r\n[BEGIN]\r\nUID=2\r\n[END]") << "10005" << true;
    QTest::newRow("no checksum") << QByteArray("UID=2\r\n") << "10012" << true;
    QTest::newRow("other firmware") << QByteArray("VERSION=1.00.00\r\n") << "15001" << true;
    QTest::newRow("other program version")
        << QByteArray("@REVISION=2.00.0\r\n@CRC=0\r\n\r\n[BEGIN]\r\n[END]") << "15000" << true;
    QTest::newRow("missing") << QByteArray() << "10004" << false;
}

void FilesTest::FilesThatCannotBeOpenedSayWhy() {
    QFETCH(QByteArray, content);
    QFETCH(QString, number);
    QFETCH(bool, anyway);
    MainWindow main;
    const QString path = main.Path("file.mrn");
    if (!content.isEmpty()) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    QVERIFY(!main.window->Files().OpenPath(path));  // unanswered means Cancel
    QVERIFY(main.dialogs.asked.back().details.contains(number));
    QCOMPARE(main.dialogs.asked.back().buttons.contains("Open anyway"), anyway);
    QVERIFY(main.window->Session().Document().IsNew());
    main.dialogs.Answer(anyway ? "Open anyway" : "Close");
    QCOMPARE(main.window->Files().OpenPath(path), anyway);
}

void FilesTest::SavingOverCommentsAsksFirst() {
    MainWindow main;
    const QString path = main.Path("copy.mrn");
    QVERIFY(QFile::copy(MainWindow::Sample("silo.mrn"), path));
    QFile(path).setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    const QByteArray before = Bytes(path);
    QVERIFY(main.window->Files().OpenPath(path, true));
    main.dialogs.Answer("Cancel");
    main.Choose("fileSave");
    QCOMPARE(Bytes(path), before);
    main.dialogs.Answer("Save without them");
    main.Choose("fileSave");
    QVERIFY(Bytes(path).startsWith("@REVISION="));
    main.window->Session().SetParameter("UID", "X", false);
    main.Choose("fileSave");  // asked once
    VERIFY_DIALOGS(main);
}

void FilesTest::SavingAsOrCopyingOverCommentsAsksToo() {
    MainWindow main;
    const QString path = main.Path("copy.mrn"), other = main.Path("./copy.mrn");
    QVERIFY(QFile::copy(MainWindow::Sample("silo.mrn"), path));
    QFile(path).setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    const QByteArray before = Bytes(path);
    QVERIFY(main.window->Files().OpenPath(path, true));
    for (const char* command : {"fileSaveAs", "fileSaveCopy"}) {
        main.dialogs.AnswerFile(other);
        main.dialogs.Answer("Replace file");
        main.dialogs.Answer("Cancel");
        main.Choose(command);
        QVERIFY(main.dialogs.asked.back().text.contains("comments"));
        QCOMPARE(Bytes(path), before);
    }
    main.dialogs.AnswerFile(other);
    main.dialogs.Answer("Replace file");
    main.dialogs.Answer("Save without them");
    main.Choose("fileSaveAs");
    QVERIFY(Bytes(path).startsWith("@REVISION="));
    VERIFY_DIALOGS(main);
}

void FilesTest::RecordsThatAreNotUnderstoodCountAsLost() {
    MainWindow main;
    const QString path = main.Path("widget.mrn");
    main.dialogs.AnswerFile(path);
    main.Choose("fileSaveAs");
    QFile file(path);
    QVERIFY(file.open(QIODevice::Append) && file.write("WDGT#1=no widget\r\n") > 0);
    file.close();
    const QByteArray before = Bytes(path);
    QVERIFY(main.window->Files().OpenPath(path, true));
    main.dialogs.Answer("Cancel");
    main.Choose("fileSave");
    QCOMPARE(Bytes(path), before);
    VERIFY_DIALOGS(main);
}

void FilesTest::OnlyMissingFilesLeaveTheRecentOnes() {
    MainWindow main;
    const QString path = main.Path("a.mrn");
    QVERIFY(QFile::copy(MainWindow::Sample("silo.mrn"), path));
    QVERIFY(main.window->Files().OpenPath(path, true));
    QVERIFY(QFile::remove(path) && QDir().mkpath(path));
    main.dialogs.Answer("Close");
    QVERIFY(!main.window->Files().OpenPath(path));  // something of that name is still there
    QCOMPARE(main.window->Files().Recent().size(), 1);
    QVERIFY(QDir().rmdir(path));
    main.dialogs.Answer("Close");
    QVERIFY(!main.window->Files().OpenPath(path));
    QVERIFY(main.window->Files().Recent().isEmpty());
    main.Restart();
    QVERIFY(main.window->Files().Recent().isEmpty());
}

void FilesTest::LeavingChangesAsks_data() {
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<bool>("saves");
    QTest::newRow("save") << "Save" << true << true;
    QTest::newRow("discard") << "Discard changes" << true << false;
    QTest::newRow("cancel") << "Cancel" << false << false;
}

void FilesTest::LeavingChangesAsks() {
    QFETCH(QString, answer);
    QFETCH(bool, closes);
    QFETCH(bool, saves);
    MainWindow main;
    main.window->Session().SetParameter("UID", "X", false);
    main.dialogs.Answer(answer);
    if (saves) main.dialogs.AnswerFile(main.Path("new.mrn"));
    QCOMPARE(main.window->close(), closes);
    QCOMPARE(QFile::exists(main.Path("new.mrn")), saves);
    VERIFY_DIALOGS(main);
}

void FilesTest::ExistingFilesAreReplacedOnlyWhenAskedFor() {
    MainWindow main;
    const QString path = main.Path("there.mrn");
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("old");
    }
    main.dialogs.AnswerFile(path);
    main.dialogs.Answer("Keep it");
    main.Choose("fileSaveAs");
    QCOMPARE(Bytes(path), "old");
    main.dialogs.AnswerFile(path);
    main.dialogs.Answer("Replace file");
    main.Choose("fileSaveCopy");
    QVERIFY(Bytes(path).startsWith("@REVISION="));
    QVERIFY(main.window->Session().Document().IsNew());  // a copy leaves the document as it was
    VERIFY_DIALOGS(main);
}

void FilesTest::RecentFilesAreKept() {
    MainWindow main;
    QVERIFY(main.Open("silo.mrn"));
    QVERIFY(main.Open("truck-scale.mrn"));
    main.window->close();
    main.Restart();
    const auto actions = main.Find<QMenu>("menuRecent")->actions();
    QCOMPARE(actions.size(), 2);
    QVERIFY(actions.front()->text().endsWith("truck-scale.mrn"));
    main.dialogs.Answer("Open anyway");
    actions.back()->trigger();
    QVERIFY(main.Status("statusFile").startsWith("silo.mrn"));
    VERIFY_DIALOGS(main);
}

void FilesTest::ListingAndImportFileAreWritten() {
    MainWindow main;
    QVERIFY(main.Open("batching-plant.mrn"));
    for (const char* name : {"listing.txt", "listing.pdf"}) {
        main.dialogs.AnswerFile(main.Path(name));
        main.Choose("filePrint");
    }
    main.dialogs.AnswerFile(main.Path("aliases.src"));
    main.Choose("fileImport");
    QVERIFY(Bytes(main.Path("listing.txt")).contains("Unit ID: MIX2"));
    QVERIFY(Bytes(main.Path("listing.pdf")).startsWith("%PDF"));
    QVERIFY(Bytes(main.Path("aliases.src")).contains("AggHop : constant integer := 1;"));
    VERIFY_DIALOGS(main);
}

void FilesTest::TwoFilesAreCompared() {
    MainWindow main;
    main.window->CompareFiles(MainWindow::Sample("silo.mrn"), MainWindow::Sample("silo.mrn"));
    QVERIFY(main.Dialog("frmCompare")->findChild<QLabel*>("lblCount")->text().startsWith("No differences"));
    delete main.Dialog("frmCompare");
    main.window->CompareFiles(MainWindow::Sample("silo.mrn"), MainWindow::Sample("truck-scale.mrn"));
    const auto rows = main.Dialog("frmCompare")->findChild<ui::PaneList*>("differences")->Rows();
    const bool found = std::any_of(rows.begin(), rows.end(), [](const ui::PaneList::Row& row) {
        return row.key == "UID" && row.cells.contains("SILO3") && row.cells.contains("GATE-N");
    });
    QVERIFY(found);
}

void FilesTest::DroppedFilesOpenOrAreCompared() {
    MainWindow main;
    const auto drop = [&](const QStringList& samples) {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& sample : samples) urls += QUrl::fromLocalFile(sample);
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(main.window.get(), &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent event(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(main.window.get(), &event);
    };
    const QString silo = MainWindow::Sample("silo.mrn"), truck = MainWindow::Sample("truck-scale.mrn");
    main.dialogs.Answer("Open anyway");
    drop({silo});
    QTRY_VERIFY(main.window->windowTitle().startsWith("silo.mrn"));
    drop({silo, truck});
    QTRY_VERIFY(main.Dialog("frmCompare") != nullptr);
    drop({silo});
    QTRY_VERIFY(main.Status("statusMessage").contains("A dialog is open"));
    main.Press("frmCompare", "cmdClose");
    QTRY_VERIFY(main.Dialog("frmCompare") == nullptr);
    drop({silo, truck, silo});
    QTRY_VERIFY(main.Status("statusMessage").contains("two to compare"));
    VERIFY_DIALOGS(main);
}

void FilesTest::FailedSaveLeavesEverything() {
    MainWindow main;
    main.window->Session().SetParameter("UID", "X", false);
    main.dialogs.AnswerFile(main.Path("no/such/folder/a.mrn"));
    main.dialogs.Answer("Close");
    main.Choose("fileSaveAs");
    QVERIFY(main.dialogs.asked.back().details.contains("20002"));
    QVERIFY(main.window->isWindowModified());
    QVERIFY(main.window->Session().Document().IsNew());
    QVERIFY(Bytes(main.Path("errorlog.txt")).contains("20002"));
    VERIFY_DIALOGS(main);
}

QTEST_MAIN(FilesTest)
#include "files_test.moc"
