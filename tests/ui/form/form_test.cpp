// The page made of the general features' rows.

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include "tests/ui/form/form_fixture.h"
#include "ui/form/bytes.h"
#include "ui/form/flow_grid.h"
#include "ui/form/mnemonics.h"
#include "ui/form/words.h"

namespace calyx::ui {

using namespace form;

class FormTest : public QObject {
    Q_OBJECT

    // Every row of the section that belongs on the page.
    template <class Check>
    static void EachRow(FormFixture& form, Check&& check) {
        for (Item* item : form.session.Document().FindSection("general")->Items()) {
            for (std::size_t i = 0; i < item->RowCount(); ++i) {
                if (item->Info(i).more.group != 0) check(*item, i, item->Key(i));
            }
        }
    }

  private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }

    void EveryRowHasItsControl() {
        FormFixture form;
        std::set<QString> mnemonics;
        int rows = 0;
        EachRow(form, [&](const Item& item, std::size_t row, const std::string& key) {
            ++rows;
            auto* control = form.Get(key.c_str());
            QVERIFY2(control != nullptr, key.c_str());
            auto* label = form.Get<QLabel>((key + ".label").c_str());
            QVERIFY2(label != nullptr && label->buddy() == control, key.c_str());
            const QString start = ToShown(key + ". " + form.context.texts.Text(item.Info(row).more.help));
            QVERIFY2(control->accessibleDescription().startsWith(start), key.c_str());
            if (qobject_cast<QLineEdit*>(control) != nullptr ||
                qobject_cast<QCheckBox*>(control) != nullptr) {
                const QString name = QAccessible::queryAccessibleInterface(control)->text(QAccessible::Name);
                QCOMPARE(name, ToShown(form.context.texts.Text(item.Info(row).more.label)));
            }
            if (item.Info(row).more.use == Use::Line) {
                QVERIFY2(control->toolTip().contains(ToShown(key)), key.c_str());
                QVERIFY2(!control->toolTip().contains("no version"), key.c_str());
            }
            const bool absent = key == "LAT.LOC" || key == "ELEV.LOC";
            QCOMPARE(control->isVisible(), !absent);
            QVERIFY2(absent || control->height() >= 28, key.c_str());
            const auto place = label->text().remove("&&").indexOf('&');
            if (place < 0) return;
            const QString letter = label->text().remove("&&").mid(place + 1, 1).toUpper();
            QVERIFY2(mnemonics.insert(letter).second && !FormPage::kMenuLetters.contains(letter),
                     key.c_str());
        });
        QVERIFY(rows > 50);
        QVERIFY(mnemonics.size() > 20);
        for (const auto* label : form.page.findChildren<QLabel*>()) QVERIFY(!label->text().startsWith('#'));
        for (const char* elsewhere : {"KYBDLK", "ZERONLY", "VERSION"})
            QVERIFY(form.Get(elsewhere) == nullptr);
    }

    void EveryChoiceAndSwitchWritesItsWord() {
        FormFixture form;
        EachRow(form, [&](const Item& item, std::size_t row, const std::string& key) {
            if (auto* box = form.Get<QComboBox>(key.c_str())) {
                QCOMPARE(box->count(), static_cast<int>(item.List(row)->Count()));
                int index = box->count();
                while (--index >= 0) {
                    box->setCurrentIndex(index);
                    const auto entry = item.List(row)->begin() + index;
                    QCOMPARE(item.Text(row), entry->key);
                    QCOMPARE(box->currentText(), ToShown(entry->text));
                }
            } else if (auto* check = form.Get<QCheckBox>(key.c_str())) {
                const std::string initial = item.InitialText(row);
                check->click();
                QVERIFY(check->isChecked());
                QCOMPARE(item.Text(row), initial == "OFF" ? "ON" : "True");
                check->click();
                QCOMPARE(item.Text(row), initial);
            }
        });
    }

    void EveryNumberKeepsItsRange() {
        FormFixture form;
        form.session.SetParameter("GRAVADJ", "ON", false);
        EachRow(form, [&](const Item& item, std::size_t row, const std::string& key) {
            const More& more = item.Info(row).more;
            if (!more.HasRange() || item.List(row) != nullptr) return;
            if (key.starts_with("SOFTKEY.ORDER")) return;  // another one has each place already
            const char* name = key.c_str();
            form.Type(name, QString::number(more.max + 1, 'f', 0));
            QVERIFY2(item.Text(row) != std::to_string(static_cast<long long>(more.max) + 1), name);
            QVERIFY2(form.Message(name)->isVisible(), name);
            QVERIFY(form.Message(name)->text().contains(RangeWords(item.Info(row), QLocale()).most));
            QVERIFY(!form.MarkWords(name).isEmpty());
            form.Type(name, QString::number(more.max, 'f', 0));
            QCOMPARE(item.Text(row), QString::number(more.max, 'f', 0).toStdString());
            QVERIFY2(!form.Message(name)->isVisible(), name);
        });
    }

    void GravityBringsItsFields() {
        FormFixture form;
        auto* company = form.Line("CONTACT.COMPANY");
        company->setFocus();
        QVERIFY(!form.Line("LAT.LOC")->isVisible() && !form.Get("ELEV.LOC.label")->isVisible());
        QVERIFY(!form.page.FocusKey("LAT.LOC"));
        form.session.SetParameter("GRAVADJ", "ON", false);
        QVERIFY(form.Line("LAT.LOC")->isVisible() && form.Get("ELEV.LOC.label")->isVisible());
        QVERIFY(company->hasFocus());
        QVERIFY(form.page.FocusKey("lat.loc"));
        QVERIFY(form.Line("LAT.LOC")->hasFocus());
        form.session.Undo();
        QVERIFY(!form.Line("LAT.LOC")->isVisible());
    }

    void TheKeyboardLockIsOneChoiceOfTwoLines() {
        FormFixture form;
        auto* box = form.Get<QComboBox>("KEYBOARDLOCK");
        QVERIFY(box->toolTip().contains("KYBDLK, ZERONLY"));
        box->setCurrentIndex(1);
        QCOMPARE(form.Value("KYBDLK") + form.Value("ZERONLY"), std::string("ONOFF"));
        form.session.Save("saved.mrn");
        box->setCurrentIndex(2);
        QCOMPARE(form.Value("KYBDLK") + form.Value("ZERONLY"), std::string("OFFON"));
        QVERIFY(form.MarkWords("KEYBOARDLOCK").contains("KYBDLK=ON"));
        form.session.Undo();
        QCOMPARE(box->currentIndex(), 1);
        form.session.Edit({{"KYBDLK", "OFF"}}, "by its line");
        QCOMPARE(box->currentIndex(), 0);
        // Its lines lead to it, and it names a line.
        QSignalSpy focused(&form.page, &FormPage::KeyFocused);
        QVERIFY(form.page.FocusKey("ZERONLY"));
        QVERIFY(box->hasFocus());
        QCOMPARE(focused.last().first().toString(), QString("KYBDLK"));
    }

    void APageOutOfSightFollowsWhenItIsSeen() {
        FormFixture form;
        form.page.hide();
        form.session.SetParameter("UID", "GATE-N", false);
        QCOMPARE(form.Line("UID")->text(), QString("1"));
        form.page.show();
        QCOMPARE(form.Line("UID")->text(), QString("GATE-N"));
        form.session.New();
        QCOMPARE(form.Line("UID")->text(), QString("1"));
    }

    void SectionsWithoutRowsHaveNoForm() {
        FormFixture form;
        QVERIFY(HasForm(form.session.Document(), {"general"}));
        QVERIFY(!HasForm(form.session.Document(), {"widgets"}) &&
                !HasForm(form.session.Document(), {"general", 0, 1}));
        QVERIFY(MakePage(form.session, {"widgets"}) == nullptr);
    }

    void BytesGoThereAndBack() {
        struct Case {
            const char* bytes;
            QString shown;
        };
        for (const auto& [bytes, shown] :
             {Case{"Silo west", "Silo west"}, Case{"M\xC3\xBCller", "M\u00FCller"},
              Case{"M\xFCller", "M\u00FCller"}, Case{"5 \x80 \x95", "5 \u20AC \u2022"},
              Case{"\x81\xC3(\xFF", "\u0081\u00C3(\u00FF"}, Case{"", ""}}) {
            QCOMPARE(ToShown(bytes), shown);
            QCOMPARE(ToBytes(shown, bytes), std::string(bytes));
        }
        QCOMPARE(ToBytes("B\u00FCro", "office"), std::string("B\xC3\xBCro"));
        QCOMPARE(ToBytes("B\u00FCro", "M\xFCller"), std::string("B\xFCro"));
        QCOMPARE(ToBytes("\u0416", "M\xFCller"), std::string("\xD0\x96"));  // not of the code page
        QCOMPARE(OneLine("a\r\nb\u2028c"), QString("a  b c"));
    }

    void MnemonicsAreFairAndUnique() {
        QCOMPARE(WithMnemonics({"Date format", "Date separator", "R&D", "1", "ae", "ea"}, "F"),
                 QStringList({"&Date format", "Date &separator", "&R&&D", "&1", "&ae", "&ea"}));
        QCOMPARE(WithMnemonics({"ab", "ba", "ab"}, ""), QStringList({"&ab", "&ba", "ab"}));
    }

    void GroupsAreSharedOutEvenly() {
        using Begins = std::vector<std::size_t>;
        QCOMPARE(ShareOut({6, 3, 5, 4, 3, 11, 4, 11}, 1), Begins({}));
        QCOMPARE(ShareOut({6, 3, 5, 4, 3, 11, 4, 11}, 2), Begins({5}));
        QCOMPARE(ShareOut({1, 1, 1}, 3), Begins({1, 2}));
        QCOMPARE(ShareOut({9, 1, 1}, 2), Begins({1}));
        QCOMPARE(ShareOut({4}, 3), Begins({}));
    }

    void FirmwareIsToldByWhatItGets() {
        FormFixture form;
        const auto parameter = FindParameter(form.session.Document(), "general", "REGWORD");
        const auto effects = parameter->Firmware();
        QCOMPARE(effects.size(), std::size_t{2});
        QVERIFY(effects[0].lines.empty());
        QCOMPARE(calyx::Words(effects[0].versions), std::string("1.00 to 1.04, 1.06"));
        QCOMPARE(effects[1].lines.front().value, std::string("GROSS"));
        // Not in the file yet, and still known to be for all.
        const auto lock = FindParameter(form.session.Document(), "general", "KLOCK.K0");
        QVERIFY(lock->Firmware().size() == 1 && lock->Versions().Ungated());
    }
};

}  // namespace calyx::ui

QTEST_MAIN(calyx::ui::FormTest)
#include "form_test.moc"
