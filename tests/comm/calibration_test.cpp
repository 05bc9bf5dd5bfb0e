// The live calibration: steps, old values restored, the journal of a crash, the certificate.

#include "comm/calibration/calibration.h"

#include "comm/calibration/certificate.h"
#include "tests/comm/sim_link.h"

namespace calyx::test {
namespace {

constexpr const char* kJournal = "calibration.journal";
constexpr std::string_view kHeld =
    "SC.SRC#2=A,1\r\nSC.LC.CD#2=80000\r\nSC.WVAL#2=10\r\nSC.LC.CW#2=90000\r\nSC.WLIN.V1#2=5\r\n"
    "SC.WLIN.F1#2=85000\r\n";

struct Calibration : testing::Test, ICalibrationEvents {
    SimLink test{{.content = std::string(kHeld)}};
    std::vector<int> statuses;
    CCalibration calibration{*test.link, test.context, *this, kJournal};
    std::string before;

    Calibration() {
        test.Connect();
        before = test.simulator.DumpText();
    }
    void WriteStatusMessage(int number, const std::string& text) override {
        statuses.push_back(number);
        EXPECT_NE(text, "#" + std::to_string(number));
    }
    bool HasJournal() const { return test.context.memory.files.contains(kJournal); }
    std::string Value(const std::string& key) { return StripEcho(test.simulator.Receive(key + "\r"), key); }
    // Restoring also writes values that were never set before: zeros that say the same.
    void ExpectOld() {
        for (const KeyValue& line : ReadLines(kHeld)) EXPECT_EQ(Value(line.key), line.value) << line.key;
        EXPECT_EQ(Value("SC.WLIN.F5#2"), "0");
    }
};

TEST_F(Calibration, StepsInTheirOrderWithTheirStatuses) {
    ASSERT_TRUE(calibration.Begin(2));
    EXPECT_EQ(statuses, (std::vector{18542, 18543}));
    EXPECT_EQ(calibration.Old().spanCount, "90000");
    EXPECT_EQ(calibration.Old().linearWeights[4], "0");
    EXPECT_TRUE(HasJournal());
    statuses.clear();
    test.wire.lines.clear();
    EXPECT_TRUE(calibration.Zero("500"));
    EXPECT_TRUE(calibration.Span());
    EXPECT_TRUE(calibration.Rezero());
    EXPECT_TRUE(calibration.Linear(3, "250"));
    EXPECT_EQ(test.wire.lines,
              (std::vector<std::string>{"SC.WVAL#2=500", "SC.WZERO#2", "SC.WSPAN#2", "SC.REZERO#2",
                                        "SC.WLIN.V3#2=250", "SC.WLIN.C3#2", "SC.WLIN.F3#2"}));
    EXPECT_EQ(statuses, (std::vector{18533, 18534, 18530, 18531, 18538, 18539, 18536, 18537}));
    EXPECT_EQ(calibration.New().linearCounts[2], Value("SC.WLIN.F3#2"));

    CIndicator document(test.context);
    document.LoadText("HARDWARE=2,0,0,0,0,0,0,0,0,0,0,0,0,0\r\nSC.SRC#2=A,1\r\n", "test");
    EXPECT_EQ(ScalesToCalibrate(document), std::vector{2});
    const auto taken = calibration.Finish(document);
    ASSERT_TRUE(taken);
    EXPECT_TRUE(taken->refused.empty());
    EXPECT_EQ(document.Value("SC.WVAL#2"), "500");
    EXPECT_EQ(document.Value("SC.LC.CW#2"), Value("SC.LC.CW#2"));
    EXPECT_EQ(document.Value("SC.WLIN.F3#2"), Value("SC.WLIN.F3#2"));
    EXPECT_FALSE(HasJournal());
}

TEST_F(Calibration, CancelPutsBackWhatWasThereAndReadsIt) {
    ASSERT_TRUE(calibration.Begin(2));
    calibration.Zero("500");
    calibration.Span();
    calibration.Linear(1, "100");
    test.simulator.AddFault("silent:3");  // retries do for it
    EXPECT_TRUE(calibration.Cancel());
    ExpectOld();
    EXPECT_EQ(statuses.back(), 40320);
    EXPECT_FALSE(HasJournal());
    EXPECT_EQ(calibration.At(), CCalibration::State::Idle);
}

TEST_F(Calibration, FaultsOfEachStep) {
    struct Case {
        const char* fault;
        bool begins, zeroes, cancels;
        int last;
    };
    const Case cases[] = {
        {"notsetup", false, false, true, 1294},
        {"refuse:SC.LC.CW#2", false, false, true, 18545},
        {"silent", false, false, true, 18544},
        {"refuse:SC.WZERO#2", true, false, true, 40320},
        {"refuse:SC.WVAL#2@16+", true, false, false, 18545},
        {"forget:SC.LC.CD#2", true, true, false, 40321},
        {"drop:1@16", true, false, true, 40320},
        {"silent@16+", true, false, false, 18544},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.fault);
        test.simulator = sim::Simulator({.content = std::string(kHeld)});
        test.link->Disconnect();
        test.Connect();
        statuses.clear();
        test.simulator.AddFault(c.fault);
        EXPECT_EQ(calibration.Begin(2), c.begins);
        EXPECT_EQ(calibration.Zero("77"), c.zeroes);
        EXPECT_EQ(calibration.Cancel(), c.cancels);
        EXPECT_EQ(std::count(statuses.begin(), statuses.end(), c.last), 1);
        EXPECT_EQ(HasJournal(), !c.cancels);  // kept until the old values are back
        test.simulator.ClearFaults();
        if (c.cancels) continue;
        EXPECT_TRUE(calibration.Cancel());
        ExpectOld();
    }
}

TEST_F(Calibration, ReadingAloneLeavesNothingBehind) {
    ASSERT_TRUE(calibration.GetCurrentCalibration(2));
    EXPECT_EQ(calibration.Old().spanCount, "90000");
    EXPECT_FALSE(HasJournal());
    EXPECT_FALSE(calibration.Zero("500"));  // not begun
    EXPECT_EQ(test.simulator.DumpText(), before);
}

TEST_F(Calibration, WhatIsBrokenOffHasNotFailed) {
    ASSERT_TRUE(calibration.Begin(2));
    test.simulator.AddFault("silent:1");
    test.events.pollsLeft = 3;
    EXPECT_FALSE(calibration.Span());
    EXPECT_EQ(statuses.back(), 18530);
    test.simulator.ClearFaults();
    EXPECT_TRUE(calibration.Cancel());
    ExpectOld();
}

TEST_F(Calibration, ACrashIsMendedAtTheNextStart) {
    ASSERT_TRUE(calibration.Begin(2));
    calibration.Zero("500");
    calibration.Span();

    CCalibration next(*test.link, test.context, *this, kJournal);
    EXPECT_FALSE(next.Begin(1)) << "would write over the old values";
    EXPECT_EQ(statuses.back(), 42202);
    const auto pending = next.Pending();
    ASSERT_TRUE(pending);
    EXPECT_EQ(pending->scale, 2);
    EXPECT_EQ(pending->old, calibration.Old());
    const std::string held = test.simulator.DumpText();
    test.simulator = sim::Simulator({.version = "V2.08.01 MERRIN", .content = held});
    EXPECT_FALSE(next.RestorePending());
    EXPECT_EQ(statuses.back(), 40322);
    EXPECT_TRUE(HasJournal());
    test.simulator = sim::Simulator({.content = held});
    EXPECT_TRUE(next.RestorePending());
    ExpectOld();
    EXPECT_FALSE(next.Pending());

    test.context.memory.files[kJournal] = "; something else";
    EXPECT_FALSE(next.Pending());
}

TEST(CalibrationReply, TheValueIsTakenOutOfTheReply) {
    struct Case {
        const char *reply, *value;
    };
    const Case cases[] = {{"123\r\n", "123"},
                          {"SC.WVAL#1\r\n123\r\n", "123"},
                          {"SC.WVAL#1=123\r", "123"},
                          {"SC.WVAL#1\rSC.WVAL#1= 1.5 \r\nOK\r\n", "1.5"},
                          {"??\r\n", ""},
                          {"OK\r\n", ""},
                          {"", ""}};
    for (const Case& c : cases) EXPECT_EQ(StripEcho(c.reply, "SC.WVAL#1"), c.value) << c.reply;
}

TEST(CalibrationCertificate, SaysBeforeAndAfter) {
    const TestContext context(CALYX_DATA_DIR);
    CalibrationCertificate certificate{.scale = 2,
                                       .alias = "TRUCK<1>",
                                       .units = "LB",
                                       .indicator = "V3.10.02 MERRIN",
                                       .date = "2026-11-21 16:59",
                                       .who = "A & B",
                                       .before = {},
                                       .after = {}};
    certificate.before.spanCount = "90000";
    certificate.after.spanCount = "99123";
    certificate.after.testWeight = "500";
    const std::string text = CertificateText(certificate, context.texts);
    for (const auto* part :
         {"2, TRUCK<1>\n", "90000             99123\n", "500 LB\n", "A & B\n", "2026-11-21"})
        EXPECT_NE(text.find(part), std::string::npos) << part << text;
    const std::string html = CertificateHtml(certificate, context.texts);
    for (const auto* part : {"2, TRUCK&lt;1&gt;", "<td>90000</td><td>99123</td>", "A &amp; B"})
        EXPECT_NE(html.find(part), std::string::npos) << part << html;
}

}  // namespace
}  // namespace calyx::test
