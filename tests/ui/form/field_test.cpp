// What passes between one field and the document.

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>

#include "tests/ui/form/form_fixture.h"
#include "ui/form/bytes.h"
#include "ui/form/line_controls.h"

namespace calyx::ui {

using namespace form;

class FieldTest : public QObject {
    Q_OBJECT

    static void Choose(FormFixture& form, const char* key, const char* command) {
        QContextMenuEvent open(QContextMenuEvent::Keyboard, QPoint(1, 1),
                               form.Get(key)->mapToGlobal(QPoint(1, 1)));
        QApplication::sendEvent(form.Get(key), &open);
        for (auto* menu : form.Get(key)->findChildren<QMenu*>()) {
            for (QAction* action : menu->actions()) {
                if (action->text() == QLatin1String(command)) {
                    menu->close();
                    return action->trigger();
                }
            }
        }
        QFAIL(command);
    }

  private slots:
    void init() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }

    void TypingIsOneStep() {
        FormFixture form;
        form.Type("DSPRATE", "300");
        QCOMPARE(form.Value("DSPRATE"), std::string("300"));
        QVERIFY(form.Line("DSPRATE")->font().bold());
        QVERIFY(form.MarkWords("DSPRATE").contains("200"));
        form.LeaveTo("UID");
        form.Type("DSPRATE", "400");
        form.session.Undo();
        QCOMPARE(form.Line("DSPRATE")->text(), QString("300"));
        form.session.Undo();
        QCOMPARE(form.Line("DSPRATE")->text(), QString("200"));
        QVERIFY(!form.Line("DSPRATE")->font().bold() && form.MarkWords("DSPRATE").isEmpty());
        QVERIFY(!form.session.UndoName());
        form.session.Redo();
        QCOMPARE(form.Line("DSPRATE")->text(), QString("300"));
    }

    void WrongInputIsToldAndKept_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("message");
        QTest::addColumn<bool>("problem");
        const QString range = "Allowed: 50 to 5000\u00A0ms";
        QTest::newRow("too large") << "9999" << range << true;
        QTest::newRow("letters") << "2x"
                                 << "Write a whole number. " + range << true;
        QTest::newRow("decimals") << "99.5"
                                  << "Write a whole number. " + range << true;
        QTest::newRow("beyond 32 bits") << "99999999999" << range << true;
        QTest::newRow("beyond 64 bits") << "99999999999999999999"
                                        << "Write a whole number. " + range << true;
        QTest::newRow("negative") << "-60" << range << true;
        QTest::newRow("may become right") << "3" << range << false;
        QTest::newRow("nothing") << "" << range << false;
    }
    void WrongInputIsToldAndKept() {
        QFETCH(QString, typed);
        QFETCH(QString, message);
        QFETCH(bool, problem);
        FormFixture form;
        form.Type("DSPRATE", "7");  // what is not right on the way does not reach the document either
        form.Type("DSPRATE", typed);
        QVERIFY(form.Message("DSPRATE")->isVisible());
        QCOMPARE(form.Message("DSPRATE")->text(), message);
        QVERIFY(form.Line("DSPRATE")->accessibleDescription().endsWith(message));
        QCOMPARE(form.Message("DSPRATE")->foregroundRole() == role::kProblem, problem);
        QCOMPARE(form.MarkWords("DSPRATE").contains("Problem"), problem);
        const std::string held = form.Value("DSPRATE");
        form.session.SetParameter("UID", "9", false);  // an edit elsewhere leaves it alone
        QCOMPARE(form.Line("DSPRATE")->text(), typed);
        form.LeaveTo("UID");
        QCOMPARE(form.Value("DSPRATE"), held);
        QCOMPARE(form.Line("DSPRATE")->text(), ToShown(held));
        QVERIFY(!form.Message("DSPRATE")->isVisible());
    }

    void NoPartOfWrongInputStays() {
        FormFixture form;
        form.session.SetParameter("DSPRATE", "300", false);
        form.Type("DSPRATE", "50000");  // on the way it was 50, 500 and 5000
        QCOMPARE(form.Value("DSPRATE"), std::string("300"));
        QCOMPARE(form.Line("DSPRATE")->text(), QString("50000"));
        QCOMPARE(*form.session.UndoName(), std::string("Display rate: 200 to 300"));
        const QStringList wrong = form.session.FinishInput();
        QCOMPARE(wrong, QStringList("Display rate: Allowed: 50 to 5000\u00A0ms"));
        QTest::keyClick(form.Line("DSPRATE"), Qt::Key_Backspace);
        QCOMPARE(form.Value("DSPRATE"), std::string("5000"));
        QCOMPARE(*form.session.UndoName(), std::string("Display rate: 300 to 5000"));
        QVERIFY(form.session.FinishInput().isEmpty());
        // After that typing is another step, and what is wrong goes back no further than to its start.
        QTest::keyClick(form.Line("DSPRATE"), Qt::Key_Backspace);
        QCOMPARE(*form.session.UndoName(), std::string("Display rate: 5000 to 500"));
        QTest::keyClicks(form.Line("DSPRATE"), "x");
        QCOMPARE(form.Value("DSPRATE"), std::string("5000"));
        form.session.GiveUpInput();
        QCOMPARE(form.Line("DSPRATE")->text(), QString("5000"));
        // A date that is only short is taken when it has to be.
        form.Type("NEXTCAL", "4/15/27");
        QVERIFY(form.session.FinishInput().isEmpty());
        QCOMPARE(form.Value("NEXTCAL"), std::string("04152027"));
    }

    void RangesAreShownAsTheyAreTyped() {
        FormFixture form;
        form.Type("DSPRATE", "9999");
        const QString most = form.Message("DSPRATE")->text().section(" to ", 1).section(QChar(0xA0), 0, 0);
        QVERIFY(form.Line("DSPRATE")->toolTip().contains(most));
        form.Type("DSPRATE", most);
        QCOMPARE(form.Value("DSPRATE"), std::string("5000"));
    }

    void HelpOpensByItsKey() {
        FormFixture form;
        for (const char* key : {"DSPRATE", "TRUCK", "NEXTCAL"}) {
            form.Get(key)->setFocus(Qt::TabFocusReason);
            QTest::keyClick(form.Get(key), Qt::Key_F1);
            auto* help = form.Get(key)->findChild<QWidget*>("fieldHelp");
            QVERIFY2(help != nullptr && help->isVisible(), key);
            QVERIFY(help->findChild<QLabel*>("fieldHelpText")->text().contains(key));
            QTest::keyClick(help, Qt::Key_Escape);
            QVERIFY(!help->isVisible());
        }
    }

    void AMenuInFrontIsNoLeaving() {
        FormFixture form;
        form.Type("DSPRATE", "9999");
        QFocusEvent menu(QEvent::FocusOut, Qt::MenuBarFocusReason);
        QApplication::sendEvent(form.Line("DSPRATE"), &menu);
        QCOMPARE(form.Line("DSPRATE")->text(), QString("9999"));
    }

    void UndoFirstTakesBackWhatWasNotTaken() {
        FormFixture form;
        form.session.SetParameter("UID", "9", false);
        form.Type("CFGPWD", "abc");
        QTest::keyClick(form.Line("CFGPWD"), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(form.Line("CFGPWD")->text(), QString("0"));
        QCOMPARE(form.Value("UID"), std::string("9"));
        form.Type("CFGPWD", "12");
        QTest::keyClick(form.Line("CFGPWD"), Qt::Key_Z,
                        Qt::ControlModifier);  // the window's, not the box's own
        QCOMPARE(form.Line("CFGPWD")->text(), QString("12"));
        form.session.Undo();
        QCOMPARE(form.Line("CFGPWD")->text(), QString("0"));
    }

    void TextIsHeldToItsBytes() {
        FormFixture form;
        form.Type("UID", "GATE 7 ");
        QCOMPARE(form.Value("UID"), std::string("GATE 7"));
        QCOMPARE(form.Line("UID")->text(), QString("GATE 7 "));  // more may follow the blank
        form.Type("UID", "123456789");
        QCOMPARE(form.Value("UID"), std::string("1"));  // not its first eight
        QVERIFY(form.Message("UID")->text().startsWith("At most 8 characters fit."));
        form.Type("UID", "\u00FC\u00FC\u00FC\u00FC\u00FC");
        QVERIFY(form.Message("UID")->text().contains("accented"));
        form.Type("UID", "\u00FC\u00FC\u00FC\u00FC");
        QCOMPARE(form.Value("UID"), std::string("\xC3\xBC\xC3\xBC\xC3\xBC\xC3\xBC"));
        // A name in the old code page stays in it, also while it passes through plain letters.
        form.session.SetParameter("CONTACT.COMPANY", "M\xFCller", false);
        QCOMPARE(form.Line("CONTACT.COMPANY")->text(), QString("M\u00FCller"));
        form.Type("CONTACT.COMPANY", "B\u00FCro");
        QCOMPARE(form.Value("CONTACT.COMPANY"), std::string("B\xFCro"));
        // A pasted line end never makes a second line.
        QGuiApplication::clipboard()->setText("Pit\nCFGPWD=1");
        form.Line("CONTACT.COMPANY")->selectAll();
        form.Line("CONTACT.COMPANY")->paste();
        QCOMPARE(form.Value("CONTACT.COMPANY"), std::string("Pit CFGPWD=1"));
    }

    void DatesAreReadInTheFormOfThePlace_data() {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("shown");
        const QLocale american(QLocale::English, QLocale::UnitedStates), german(QLocale::German);
        QTest::newRow("american") << american << "4/15/2027"
                                  << "04152027"
                                  << "4/15/2027";
        QTest::newRow("two figures of the year") << american << "4/15/27"
                                                 << "04152027"
                                                 << "4/15/2027";
        QTest::newRow("german") << german << "15.04.2027"
                                << "04152027"
                                << "15.04.2027";
        QTest::newRow("the form of all places") << german << "2027-4-15"
                                                << "04152027"
                                                << "15.04.2027";
        QTest::newRow("no such day") << american << "2/30/2027"
                                     << "01012026"
                                     << "1/1/2026";
        QTest::newRow("none") << american << ""
                              << ""
                              << "";
    }
    void DatesAreReadInTheFormOfThePlace() {
        QFETCH(QLocale, locale);
        QFETCH(QString, typed);
        QFETCH(QString, value);
        QFETCH(QString, shown);
        QLocale::setDefault(locale);
        FormFixture form;
        form.session.SetParameter("NEXTCAL", "01012026", false);
        form.Type("NEXTCAL", typed);
        form.LeaveTo("UID");
        QCOMPARE(form.Value("NEXTCAL"), value.toStdString());
        QCOMPARE(form.Line("NEXTCAL")->text(), shown);
    }

    void Decimals_data() {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("text");  // empty: not taken
        const QLocale american(QLocale::English, QLocale::UnitedStates), german(QLocale::German),
            swedish(QLocale::Swedish);
        QTest::newRow("dot") << american << "2.5"
                             << "2.5";
        QTest::newRow("comma") << german << "2,5"
                               << "2.5";
        QTest::newRow("a dot groups thousands there") << german << "2.500"
                                                      << "";
        QTest::newRow("a dot for a comma") << swedish << "2.5"
                                           << "2.5";
        QTest::newRow("groups") << american << "1,000"
                                << "";
        QTest::newRow("exponent") << american << "1e1"
                                  << "";
        QTest::newRow("out of range") << american << "100.5"
                                      << "";
    }
    void Decimals() {
        QFETCH(QLocale, locale);
        QFETCH(QString, typed);
        QFETCH(QString, text);
        QLocale::setDefault(locale);
        const test::TestContext context{CALYX_DATA_DIR};
        const RowInfo info{.stem = "ZRANGE",
                           .initial = "1.9",
                           .kind = ValueKind::Decimal,
                           .width = 16,
                           .more = {.min = 0.5, .max = 100}};
        QWidget parent;
        NumberControl control(info, context.texts, &parent);
        auto* line = qobject_cast<QLineEdit*>(control.Widget());
        control.Show("1.9%");
        QCOMPARE(line->text(), "1" + locale.decimalPoint() + "9");
        QCOMPARE(control.Sign(), QString("%"));
        line->setText(typed);
        const Entry entry = control.Read(false);
        QCOMPARE(entry.state == Entry::State::Right, !text.isEmpty());
        QCOMPARE(entry.text, text.toStdString());
        QCOMPARE(entry.words.isEmpty(), !text.isEmpty());
    }

    void ABrokenRuleShowsAtItsField() {
        FormFixture form;
        form.Type("CONTACT.EMAIL", "nonsense");
        QCOMPARE(form.Value("CONTACT.EMAIL"), std::string("nonsense"));
        form.session.Settle();
        QVERIFY(form.Message("CONTACT.EMAIL")->text().startsWith("\"nonsense\" is no e-mail address"));
        QVERIFY(form.MarkWords("CONTACT.EMAIL").startsWith("Problem: \"nonsense\""));
        QVERIFY(form.MarkWords("CONTACT.EMAIL").contains("Changed since the file was saved. It was empty."));
        form.Type("CONTACT.EMAIL", "office@plant.example");
        form.session.Settle();
        QVERIFY(!form.Message("CONTACT.EMAIL")->isVisible());
    }

    void MarksSayWhatTheyMean() {
        FormFixture form;
        form.page.SetDiffering({"uid"});
        QVERIFY(form.MarkWords("UID").contains("indicator"));
        // One lock brings the lines of all; only its own value has changed.
        form.session.SetParameter("KLOCK.KZERO", "True", false);
        QVERIFY(!form.MarkWords("KLOCK.KZERO").isEmpty() && form.MarkWords("KLOCK.KTARE").isEmpty());
        form.session.Save("saved.mrn");
        QVERIFY(form.MarkWords("KLOCK.KZERO").isEmpty() && !form.MarkWords("UID").isEmpty());
    }

    void TheMenuOfAField() {
        FormFixture form;
        form.session.SetParameter("TRUCK", "MODE1", false);
        form.Get<QComboBox>("KEYBOARDLOCK")->setCurrentIndex(1);
        form.session.Save("saved.mrn");
        form.session.SetParameter("TRUCK", "MODE3", false);
        form.Get<QComboBox>("KEYBOARDLOCK")->setCurrentIndex(2);
        Choose(form, "TRUCK", "Copy as line");
        QCOMPARE(QGuiApplication::clipboard()->text(), QString("TRUCK=MODE3"));
        Choose(form, "TRUCK", "Undo change since save");
        QCOMPARE(form.Value("TRUCK"), std::string("MODE1"));
        Choose(form, "TRUCK", "Reset to default");
        QCOMPARE(form.Get<QComboBox>("TRUCK")->currentText(), QString("Off"));
        Choose(form, "KEYBOARDLOCK", "Copy as line");
        QCOMPARE(QGuiApplication::clipboard()->text(), QString("KYBDLK=OFF\nZERONLY=ON"));
        Choose(form, "KEYBOARDLOCK", "Undo change since save");
        QCOMPARE(form.Value("KYBDLK") + form.Value("ZERONLY"), std::string("ONOFF"));
        form.session.Undo();  // both lines were one step
        QCOMPARE(form.Value("KYBDLK") + form.Value("ZERONLY"), std::string("OFFON"));
        QSignalSpy lines(&form.page, &FormPage::ShowInLines);
        Choose(form, "UID", "Show in lines");
        QCOMPARE(lines.last().first().toString(), QString("UID"));
    }

    void TheWheelTurnsThePageNotTheValue() {
        FormFixture form;
        auto* box = form.Get<QComboBox>("TRUCK");
        box->setFocus();
        QWheelEvent turn(QPointF(5, 5), box->mapToGlobal(QPointF(5, 5)), {0, -120}, {0, -120}, Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(box, &turn);
        QCOMPARE(form.Value("TRUCK"), std::string("OFF"));
    }
};

}  // namespace calyx::ui

QTEST_MAIN(calyx::ui::FieldTest)
#include "field_test.moc"
