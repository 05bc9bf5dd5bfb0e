#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QCompleter>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QTextBlock>
#include <QTreeView>

#include "tests/support/model_fixture.h"
#include "tests/ui/golden_picture.h"
#include "tests/ui/main_window.h"
#include "ui/tickets/ctl_ticket_preview.h"
#include "ui/tickets/ctl_ticket_table.h"
#include "ui/tickets/ctl_ticket_text.h"

using namespace calyx;
using namespace calyx::test;

namespace {

TicketTokens Tokens() {
    TicketTokens tokens;
    tokens.Read(ReadFile(CALYX_DATA_DIR "/tickets.dat"));
    return tokens;
}

}  // namespace

// The ticket formats: their table, and the page of one with its text, tokens and preview.
class TicketsTest : public QObject {
    Q_OBJECT

  private slots:
    void BytesSurviveTheEditor_data();
    void BytesSurviveTheEditor();
    void EditsElsewhereLeaveBytesAlone();
    void TypingIsOneStepOfTheDocument();
    void BreaksAreLines();
    void ATextThatIsTooLongIsKeptButNotStored();
    void TabLeavesThePage();
    void TokensAreOffered();
    void TokensAreFoundAndInserted();
    void ThePrinterProposesThePage();
    void FormatsAreCopiedAndRestored();
    void ThePreviewSaysWhatIsPrinted();
    void ThePrintedTicket();
    void WithoutTokens();

  private:
    const TestContext context_{CALYX_DATA_DIR};
    const TicketTokens tokens_ = Tokens();
};

namespace {

ui::ctlTicketText* Go(MainWindow& main, const char* key) {
    main.window->ShowParameter(QLatin1String(key));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // the page that was left
    auto* text = main.Find<ui::ctlTicketText>(key);
    for (int i = 0; i < 100 && !(text->hasFocus() && text->isVisible()); ++i) QTest::qWait(10);
    return text;
}

QByteArray Stored(MainWindow& main, const char* key) {
    return QByteArray::fromStdString(main.window->Session().Document().Value(key).value_or("(none)"));
}

QByteArray BytesOf(const ui::ctlTicketText& text) {
    return QByteArray::fromStdString(text.Bytes().value_or("(none)"));
}

QByteArray DefaultOf(int format) {
    return QByteArray::fromStdString(std::string(DefaultTicketText(format)));
}

void Restart(MainWindow& main) {
    main.window->activateWindow();  // without a screen no window is active once a menu has closed
    QVERIFY(QTest::qWaitForWindowActive(main.window.get()));
}

}  // namespace

void TicketsTest::BytesSurviveTheEditor_data() {
    QTest::addColumn<QByteArray>("text");
    const auto add = [](const std::string& name, const std::string& text) {
        QTest::newRow(name.c_str()) << QByteArray::fromStdString(text);
    };
    for (const char* sample : {"truck-scale", "batching-plant", "checkweigher-line", "silo"}) {
        for (const KeyValue& line : ReadLines(ReadFile(MainWindow::Sample(sample).toStdString() + ".mrn"))) {
            const bool text =
                line.key.find("FMT") != std::string::npos && line.value.find('<') < line.value.size();
            if (text) add(sample + (" " + line.key), line.value);
        }
    }
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        if (byte != '\r' && byte != '\n') all += static_cast<char>(byte);
    }
    add("every byte", all);
    for (const char& byte : all)
        add("byte " + std::to_string(&byte - all.data()), "a" + std::string(1, byte) + "b");
    add("UTF-8", "caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x9A\x9A<NL>");
    add("UTF-8 that Qt reads otherwise",
        "\xEF\xBB\xBFx\xE2\x80\xA8y\xE2\x80\xA9z\xEF\xB7\x90\xEF\xB7\x91\xE2\x90\x81\xE2\x90\xA1");
    add("cut UTF-8", "a\xC3<NL>\xA9");
    add("breaks", "<NL><NL2><NL><NL99><NL6>a<NL>");
    add("other forms", "<NL1><NL0><NL02><NL100><nl><NL <NL-2><NL2 ><NL\x80><<NL>>");
    add("blanks", "   a  <NL>  <SP2>  b");
}

void TicketsTest::BytesSurviveTheEditor() {
    QFETCH(QByteArray, text);
    ui::ctlTicketText editor(tokens_, context_.texts);
    editor.ShowBytes(text.toStdString());
    QCOMPARE(BytesOf(editor), text);
    // By the clipboard as well.
    if (text.contains('\0')) return;
    editor.selectAll();
    editor.cut();
    editor.paste();
    QCOMPARE(BytesOf(editor), text);
}

void TicketsTest::EditsElsewhereLeaveBytesAlone() {
    ui::ctlTicketText editor(tokens_, context_.texts);
    editor.ShowBytes("\xE4\xA0 \x07<NL>");
    QTest::keyClicks(&editor, "x");
    QTest::keyClick(&editor, Qt::Key_Delete);
    QCOMPARE(BytesOf(editor), QByteArray("x\xA0 \x07<NL>"));
    editor.insertPlainText(QString(QChar(0xE4)));
    QCOMPARE(BytesOf(editor), QByteArray("x\xE4\xA0 \x07<NL>"));
    editor.insertPlainText(QString(QChar(0x3A9)));  // an omega, which the code page lacks
    QVERIFY(!editor.Bytes());
}

void TicketsTest::TypingIsOneStepOfTheDocument() {
    MainWindow main;
    QVERIFY(main.Open("truck-scale.mrn"));
    const QByteArray before = Stored(main, "GFMT.FMT");
    auto* text = Go(main, "GFMT.FMT");
    text->moveCursor(QTextCursor::Start);
    QTest::keyClicks(text, "AB C");
    QCOMPARE(Stored(main, "GFMT.FMT"), "AB C" + before);
    QVERIFY(main.Find<QAction>("editUndo")->text().contains("Gross ticket: Ticket text"));
    QTest::keyClick(text, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Stored(main, "GFMT.FMT"), before);
    QCOMPARE(BytesOf(*text), before);
    QVERIFY(!main.window->isWindowModified());
    QTest::keyClick(text, Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(BytesOf(*text), "AB C" + before);
    QVERIFY(main.Find<QLabel>("ticketLength")->text().startsWith(QString::number(before.size() + 4)));
    main.dialogs.Answer("Discard changes");
    QVERIFY(main.window->close());
    VERIFY_DIALOGS(main);
}

void TicketsTest::BreaksAreLines() {
    MainWindow main;
    auto* text = Go(main, "GFMT.FMT");
    QCOMPARE(text->toPlainText(), "GROSS<G>\n\n<TD>\n");  // ends in <NL>
    QCOMPARE(text->blockCount(), 3);                      // <NL2> is one break of two lines
    // The double break loses a line, then is gone.
    text->moveCursor(QTextCursor::Start);
    text->moveCursor(QTextCursor::EndOfLine);
    QTest::keyClick(text, Qt::Key_Delete);
    QCOMPARE(Stored(main, "GFMT.FMT"), "GROSS<G><NL><TD><NL>");
    QTest::keyClick(text, Qt::Key_Delete);
    QCOMPARE(Stored(main, "GFMT.FMT"), "GROSS<G><TD><NL>");
    QTest::keyClick(text, Qt::Key_Return);
    QCOMPARE(Stored(main, "GFMT.FMT"), "GROSS<G><NL><TD><NL>");
    text->insertPlainText("a\nb<NL3>");  // as it is pasted
    QCOMPARE(Stored(main, "GFMT.FMT"), "GROSS<G><NL>a<NL>b<NL3><TD><NL>");
    QCOMPARE(text->textCursor().block().text(), "<TD>");
    text->selectAll();
    text->copy();
    QCOMPARE(QGuiApplication::clipboard()->text(), "GROSS<G><NL>a<NL>b<NL3><TD><NL>");
}

void TicketsTest::ATextThatIsTooLongIsKeptButNotStored() {
    MainWindow main;
    auto* text = Go(main, "GFMT.FMT");
    text->selectAll();
    text->insertPlainText(QString(1000, 'x'));
    QCOMPARE(Stored(main, "GFMT.FMT"), QByteArray(1000, 'x'));
    QTest::keyClicks(text, "yz");
    QCOMPARE(Stored(main, "GFMT.FMT"), QByteArray(1000, 'x'));
    auto* message = main.Find<QLabel>("GFMT.FMT.message");
    QVERIFY(message->isVisible());
    QVERIFY(message->text().startsWith("2 characters too many"));
    // Leaving the field, the page and the place loses nothing.
    main.Find<QWidget>("tokenSearch")->setFocus();
    QCOMPARE(text->toPlainText().size(), 1002);
    Go(main, "NFMT.FMT");
    main.dialogs.Answer("Correct it");
    main.Choose("fileSave");
    QVERIFY(!main.dialogs.asked.empty());
    QVERIFY(main.dialogs.asked.back().details.contains("Gross ticket: 2 characters too many"));
    text = Go(main, "GFMT.FMT");
    QVERIFY(text->toPlainText().endsWith("xyz"));
    QVERIFY(main.Find<QLabel>("GFMT.FMT.message")->isVisible());
    QTest::keyClick(text, Qt::Key_End, Qt::ControlModifier);
    for (int i = 0; i < 3; ++i) QTest::keyClick(text, Qt::Key_Backspace);
    QCOMPARE(Stored(main, "GFMT.FMT"), QByteArray(999, 'x'));
    QVERIFY(!main.Find<QLabel>("GFMT.FMT.message")->isVisible());
    VERIFY_DIALOGS(main);
}

void TicketsTest::TabLeavesThePage() {
    MainWindow main;
    Go(main, "GFMT.FMT");
    auto* last = main.Find<QComboBox>("GFMT.PRN");
    last->setFocus();
    QTest::keyClick(last, Qt::Key_Tab);
    const auto within = [&](const char* part) {
        return main.window->findChild<QWidget*>(QLatin1String(part))
            ->isAncestorOf(QApplication::focusWidget());
    };
    QVERIFY(within("ctlLines"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    QVERIFY(last->hasFocus());
    // And the page comes right behind the navigation.
    auto* navigation = main.window->findChild<QWidget*>("ctlNavigation");
    navigation->setFocus();
    QTest::keyClick(navigation, Qt::Key_Tab);
    QVERIFY(within("ctlPages"));
}

void TicketsTest::TokensAreOffered() {
    MainWindow main;
    auto* text = Go(main, "GFMT.FMT");
    text->selectAll();
    QTest::keyClicks(text, "<tr");
    QAbstractItemView* offered = text->findChild<QCompleter*>()->popup();
    QVERIFY(offered->isVisible());
    QCOMPARE(offered->model()->rowCount(), 3);
    QTest::keyClick(offered, Qt::Key_Down);
    QTest::keyClick(offered, Qt::Key_Return);
    QVERIFY(!offered->isVisible());
    QCOMPARE(Stored(main, "GFMT.FMT"), "<TR2>");
    Restart(main);
    QTest::keyClicks(text, "<XYZ><Q<SP>");
    QCOMPARE(Stored(main, "GFMT.FMT"), "<TR2><XYZ><Q<SP>");
    QVERIFY(main.Find<QLabel>("unknownTokens")->text().endsWith("<XYZ>"));
}

void TicketsTest::TokensAreFoundAndInserted() {
    MainWindow main;
    auto* text = Go(main, "GFMT.FMT");
    text->moveCursor(QTextCursor::Start);
    auto* search = main.Find<QLineEdit>("tokenSearch");
    auto* list = main.Find<QTreeView>("tokenList");
    search->setFocus();
    QTest::keyClicks(search, "tare");
    QCOMPARE(list->model()->rowCount(), 2);
    QTest::keyClick(search, Qt::Key_Return);
    QCOMPARE(Stored(main, "GFMT.FMT"), "<T>GROSS<G><NL2><TD><NL>");
    QVERIFY(text->hasFocus());
    search->setText("date");
    const QModelIndex second = list->model()->index(1, 0);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(second).center());
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(second).center());
    QCOMPARE(Stored(main, "GFMT.FMT"), "<T><DA>GROSS<G><NL2><TD><NL>");
    search->setText("zzz");
    QVERIFY(!list->isVisible());
    QVERIFY(main.Find<QLabel>("noTokens")->text().contains("zzz"));
}

void TicketsTest::ThePrinterProposesThePage() {
    MainWindow main;
    Go(main, "GFMT.FMT");
    const auto choose = [&](int type) {
        auto* box = main.Find<QComboBox>("GFMT.PRN");
        box->setCurrentIndex(type - 1);
    };
    auto* use = main.Find<QPushButton>("cmdUseProposal");
    choose(17);
    QCOMPARE(Stored(main, "GFMT.PRN"), "17");
    QCOMPARE(Stored(main, "GFMT.HORZ"), "42");
    main.Choose("editUndo");  // one step
    QCOMPARE(Stored(main, "GFMT.PRN"), "2");
    QCOMPARE(Stored(main, "GFMT.HORZ"), "40");
    QVERIFY(!use->isVisible());
    // A page of one's own stays.
    main.window->Session().SetParameter("GFMT.HORZ", "20", false);
    choose(14);
    QCOMPARE(Stored(main, "GFMT.HORZ"), "20");
    QVERIFY(use->isVisible());
    QTest::mouseClick(use, Qt::LeftButton);
    QCOMPARE(Stored(main, "GFMT.HORZ"), "50");
    QCOMPARE(Stored(main, "GFMT.VERT"), "20");
    QVERIFY(!use->isVisible());
}

void TicketsTest::FormatsAreCopiedAndRestored() {
    MainWindow main;
    auto* text = Go(main, "NFMT.FMT");
    text->moveCursor(QTextCursor::Start);
    QTest::keyClicks(text, "mine ");
    auto* menu = main.Find<QMenu>("menuCopyTo");
    menu->actions().front()->trigger();  // to the gross ticket
    QCOMPARE(Stored(main, "GFMT.FMT"), Stored(main, "NFMT.FMT"));
    main.Choose("editUndo");
    QCOMPARE(Stored(main, "GFMT.FMT"), DefaultOf(1));
    Go(main, "NFMT.FMT");
    QTest::mouseClick(main.Find<QPushButton>("cmdRestoreText"), Qt::LeftButton);
    QCOMPARE(Stored(main, "NFMT.FMT"), DefaultOf(2));
    main.Choose("editUndo");
    QVERIFY(Stored(main, "NFMT.FMT").startsWith("mine "));

    // The same in the table.
    QTest::mouseClick(main.Find<QWidget>("cmdBack"), Qt::LeftButton);
    auto* table = main.window->findChild<ui::ctlTicketTable*>();
    QTRY_VERIFY(table->Grid().hasFocus());
    QCOMPARE(table->Grid().model()->rowCount(), kTicketFormats);
    QCOMPARE(table->Grid().CurrentNumber(), 2);
    const auto cell = [&](int format, int column) {
        return table->Grid().model()->index(format - 1, column).data().toString();
    };
    QCOMPARE(cell(2, 2), QString::number(Stored(main, "NFMT.FMT").size()));
    QCOMPARE(QStringList({cell(1, 3), cell(2, 3), cell(31, 3)}), QStringList({"Default", "Changed", ""}));
    table->GoTo(2);
    QTest::keyClick(&table->Grid(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(main.Status("statusMessage"), "Formats copied: 1");
    QTest::keyClick(&table->Grid(), Qt::Key_Down);  // lets go of Ctrl
    table->GoTo(30);
    QTest::keyClick(&table->Grid(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Stored(main, "AUXFMT.FMT#20"), Stored(main, "NFMT.FMT"));
    QTest::keyClick(&table->Grid(), Qt::Key_Delete);
    QCOMPARE(Stored(main, "AUXFMT.FMT#20"), DefaultOf(30));
    main.window->ShowParameter("AUXFMT.VERT#3");  // a key of no cell: to the row of its format
    QCOMPARE(table->Grid().CurrentNumber(), 13);
}

void TicketsTest::ThePreviewSaysWhatIsPrinted() {
    MainWindow main;
    QVERIFY(main.Open("truck-scale.mrn"));
    auto* text = Go(main, "TRWOUT.FMT");
    auto* canvas = main.Find<ui::TicketCanvas>("ticketPreview");
    QCOMPARE(canvas->Sheet().lines.size(), 13);
    QCOMPARE(canvas->Sheet().lines.value(6), "ID TRUCK 27");
    QAccessibleInterface* access = QAccessible::queryAccessibleInterface(canvas);
    QCOMPARE(access->childCount(), 13);
    QCOMPARE(access->child(6)->text(QAccessible::Name), "Line 7: ID TRUCK 27");
    QVERIFY(!main.Find<QLabel>("previewCut")->isVisible());
    main.window->Session().SetParameter("TRWOUT.HORZ", "9", false);
    main.window->Session().SetParameter("TRWOUT.VERT", "5", false);
    QCOMPARE(canvas->Sheet().Pages(), 3);
    QVERIFY(main.Find<QLabel>("previewPage")->text().endsWith("13 lines on 3 pages"));
    QVERIFY(main.Find<QLabel>("previewCut")->text().contains("7"));
    QVERIFY(access->child(6)->text(QAccessible::Name).startsWith("Line 7, cut: ID TRUCK"));
    text->selectAll();
    QTest::keyClick(text, Qt::Key_Delete);
    QVERIFY(main.Find<QLabel>("previewPage")->text().endsWith("Nothing is printed"));
}

void TicketsTest::ThePrintedTicket() {
    QStringList lines;
    for (const std::string& line :
         PreviewTicket(std::string(DefaultTicketText(4)) + "A LINE THAT IS TOO LONG", tokens_))
        lines += QString::fromStdString(line);
    QFont font(QStringLiteral("DejaVu Sans Mono"));
    font.setPixelSize(14);
    const ui::TicketPainter painter({lines, 20, 10}, font);
    QImage picture(painter.Size().toSize() + QSize(16, 16), QImage::Format_RGB32);
    picture.fill(QColor(0xE9, 0xEC, 0xEE));
    QPainter device(&picture);
    device.setRenderHint(QPainter::Antialiasing);
    device.translate(8, 8);
    painter.Paint(device, picture.rect());
    device.end();
    CompareWithGolden(picture, "ticket.png");
}

// The list of tokens could not be read: texts are edited as they stand.
void TicketsTest::WithoutTokens() {
    MainWindow main;
    main.app->ticketTokens = {};
    main.Restart();
    auto* text = Go(main, "GFMT.FMT");
    QCOMPARE(text->toPlainText(), "GROSS<G><NL2><TD><NL>");
    QTest::keyClick(text, Qt::Key_End);
    QTest::keyClick(text, Qt::Key_Return);
    QTest::keyClicks(text, "<X>");
    QCOMPARE(Stored(main, "GFMT.FMT"), "GROSS<G><NL2><TD><NL><X>");
    QVERIFY(!main.Find<QLabel>("unknownTokens")->isVisible());
    QVERIFY(main.Find<QLabel>("noTokens")->isVisible());
}

QTEST_MAIN(TicketsTest)
#include "tickets_test.moc"
