#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include "tests/ui/main_window.h"
#include "ui/link/link_desk.h"

using namespace calyx;
using namespace calyx::test;

// The calibration wizard against the simulated indicator.
class LinkCalibrationTest : public QObject {
    Q_OBJECT

  private slots:
    void FinishTakesTheNewCalibrationOver();
    void CancelPutsTheOldCalibrationBack();
    void CancelEndsACommandInFlight();
    void WhatWasCutOffIsPutBackAfterARestart();
};

namespace {

constexpr const char* kDialog = "frmCalibrationWizard";

struct Wizard {
    MainWindow main;
    std::string before;

    Wizard() {
        QVERIFY(main.Open("truck-scale.mrn"));
        main.Choose("linkSimulated");
        before = Dump();
        main.Choose("linkCalibrate");
        main.Press(kDialog, "cmdNext");
        QVERIFY2(Note("lblStatus") == "The calibration was read.", qPrintable(Note("lblStatus")));
    }
    QString Note(const char* label) {
        return main.Dialog(kDialog)->findChild<QLabel*>(QLatin1String(label))->text();
    }
    std::string Dump() { return main.window->Desk().Simulator()->Snapshot().dump; }
    bool CanGoOn() { return main.Dialog(kDialog)->findChild<QPushButton*>("cmdNext")->isEnabled(); }
    void Zero(const char* weight) {
        main.Dialog(kDialog)->findChild<QLineEdit*>("txtTestWeight")->setText(QLatin1String(weight));
        main.Press(kDialog, "cmdCalZero");
    }
    bool Journal() const { return QFile::exists(main.Path("calibration.journal")); }
};

}  // namespace

void LinkCalibrationTest::FinishTakesTheNewCalibrationOver() {
    Wizard test;
    QVERIFY(test.Journal());
    QVERIFY(!test.CanGoOn());
    test.Zero("-3");
    QVERIFY(!test.CanGoOn());
    test.Zero("4000");
    QCOMPARE(test.Note("lblStatus"), "Zero is calibrated.");
    test.main.Press(kDialog, "cmdNext");
    test.main.Press(kDialog, "cmdCalSpan");
    QCOMPARE(test.Note("lblStatus"), "Span is calibrated.");
    test.main.Press(kDialog, "cmdNext");
    test.main.Dialog(kDialog)->findChild<QLineEdit*>("txtLinear1")->setText("2000");
    test.main.Press(kDialog, "cmdGoLinear1");
    QVERIFY(test.Note("lblLinear1").contains("(before: "));
    test.main.Press(kDialog, "cmdNext");
    test.main.Press(kDialog, "cmdNext");
    test.main.dialogs.AnswerFile(test.main.Path("certificate.html"));
    test.main.Press(kDialog, "cmdSaveCertificate");
    QVERIFY(Bytes(test.main.Path("certificate.html")).contains("4000"));
    const QString unchanged = test.main.Value("SC.WVAL#1");
    test.main.Press(kDialog, "cmdNext");
    QVERIFY(!test.Journal());
    QCOMPARE(test.main.Value("SC.WVAL#1"), "4000");
    QCOMPARE(test.main.Value("SC.WLIN.V1#1"), "2000");
    test.main.Choose("editUndo");  // one step
    QCOMPARE(test.main.Value("SC.WVAL#1"), unchanged);
    VERIFY_DIALOGS(test.main);
}

void LinkCalibrationTest::CancelPutsTheOldCalibrationBack() {
    Wizard test;
    test.Zero("4000");
    QVERIFY(test.Dump() != test.before);
    test.main.Press(kDialog, "cmdCancel");
    QTRY_VERIFY(test.main.Dialog(kDialog) == nullptr);
    for (const char* key : {"SC.LC.CD#1=", "SC.WVAL#1=", "SC.LC.CW#1=", "SC.WLIN.V1#1=", "SC.WLIN.F5#1="}) {
        const auto value = [key](const std::string& dump) {
            const std::size_t at = dump.find(key);
            return at == std::string::npos ? std::string() : dump.substr(at, dump.find('\r', at) - at);
        };
        if (!value(test.before).empty()) QCOMPARE(value(test.Dump()), value(test.before));
    }
    QVERIFY(!test.Journal());
    VERIFY_DIALOGS(test.main);
}

void LinkCalibrationTest::CancelEndsACommandInFlight() {
    Wizard test;
    test.Zero("4000");
    test.main.window->Desk().Simulator()->AddFault("silent:1");
    QTimer::singleShot(50, [&] { test.main.Dialog(kDialog)->reject(); });
    test.Zero("5000");  // nobody answers; without Cancel that takes a minute
    QTRY_VERIFY(test.main.Dialog(kDialog) == nullptr);
    QVERIFY(test.Dump().find("SC.WVAL#1=5000") == std::string::npos);
    QVERIFY(test.Dump().find("SC.WVAL#1=4000") == std::string::npos);
    QVERIFY(!test.Journal());
    QVERIFY(!test.main.window->Desk().Busy());
    VERIFY_DIALOGS(test.main);
}

void LinkCalibrationTest::WhatWasCutOffIsPutBackAfterARestart() {
    Wizard test;
    test.Zero("4000");
    // The old values are refused, so that they cannot be put back.
    test.main.window->Desk().Simulator()->AddFault("refuse:SC.WVAL*");
    test.main.dialogs.Answer("Leave it for later");
    test.main.Press(kDialog, "cmdCancel");
    QVERIFY(test.Journal());
    test.main.window->Desk().Simulator()->ClearFaults();
    test.main.dialogs.Answer("Put the old one back");
    test.main.Choose("linkSimulated");
    QTRY_VERIFY(test.main.Dialog(kDialog) != nullptr && !test.Journal());
    QVERIFY2(test.Note("lblStatus").startsWith("The old calibration is back"),
             qPrintable(test.Note("lblStatus")));
    QVERIFY(test.Dump().find("SC.WVAL#1=4000") == std::string::npos);
    VERIFY_DIALOGS(test.main);
}

QTEST_MAIN(LinkCalibrationTest)
#include "link_calibration_test.moc"
