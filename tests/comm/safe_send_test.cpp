// The safe way to send: backup, preview, sending, reading back, restoring, and going on after a loss.

#include "comm/safe_send.h"

#include "platform/file_store.h"
#include "tests/comm/sim_link.h"
#include "tests/platform/test_folder.h"

namespace calyx::test {
namespace {

using namespace download_option;
using End = DownloadReport::End;
using Fate = PlannedLine::Fate;
using Texts = std::vector<std::string>;

constexpr std::string_view kBody =
    "HARDWARE=0,0,0,0,0,0,0,0,0,0,0,0,0,0\r\nSC.SRC#1=A,1\r\nSC.GRADS#1=5000\r\nSC.WVAL#1=10\r\n"
    "UID=GATE\r\nSP.KIND#1=GROSS\r\nSP.VALUE#1=100\r\nWDGT#1=1,2,1,1\r\n";

struct SafeSend : testing::Test {
    SimLink test;
    TestFolder folder;
    FileStore disk;
    CIndicator document{test.context};
    IDownloadEvents quiet;
    IUploadEvents silent;
    DownloadOptions options{.mask = kUsual, .timeoutMs = 100};
    std::unique_ptr<CSafeSend> sending;
    std::size_t askUpTo = 64;

    SafeSend() {
        test.context.files = &disk;
        document.LoadText(std::string(kBody), "test");
        Again();
    }
    // As after a restart of the program: only the files are left.
    void Again() {
        sending = std::make_unique<CSafeSend>(
            *test.link, test.context, test.cancel, quiet, silent,
            CSafeSend::Places{folder.Text(), folder.File("send.journal"), askUpTo});
    }
    // The indicator holds what a download of the document leaves, with these lines on top.
    void Hold(const Texts& lines) {
        test.Connect();
        CDownload download(*test.link, test.cancel, quiet);
        DownloadOptions all{.mask = kUsual | chkCalibration | chkSchemas};
        EXPECT_EQ(download.Run(document, all, test.context.target.Gated()).end, End::Complete);
        for (const std::string& line : lines) test.simulator.Receive(line + "\r");
        test.simulator.ForgetReceived();
    }
    SendPlan Preview() {
        EXPECT_NE(sending->Prepare("2026-11-21 165900"), nullptr);
        return sending->Preview(document, options);
    }
    SafeSendReport Send(const SendPlan& plan) { return sending->Send(plan, options, "test.mrn"); }
    // Parameter lines and commands that came in, without the link's own questions.
    Texts Received() const {
        Texts lines = test.simulator.Received();
        std::erase_if(lines, [](const std::string& line) {
            const bool command = line.starts_with("WDGT.");
            return line.find('=') == std::string::npos && !command;
        });
        return lines;
    }
    static Texts Keys(const SendPlan& plan, Fate fate) {
        Texts keys;
        for (const PlannedLine& line : plan.Lines()) {
            if (line.fate == fate) keys.push_back(line.key.empty() ? line.line : line.key);
        }
        return keys;
    }
};

TEST_F(SafeSend, OnlyWhatDiffersGoesAndIsReadBack) {
    Hold({"UID=OTHER", "SC.GRADS#1=4000", "SC.WVAL#1=11", "SP.VALUE#1=100.0"});
    const std::string before = test.simulator.DumpText();
    const SendPlan plan = Preview();
    EXPECT_EQ(disk.Read(sending->Backup()), before);
    EXPECT_EQ(Keys(plan, Fate::Send), (Texts{"SC.GRADS#1", "UID"}));
    EXPECT_EQ(Keys(plan, Fate::NotChosen), Texts{"SC.WVAL#1"});
    const auto& lines = plan.Lines();
    const auto grads =
        std::find_if(lines.begin(), lines.end(), [](const auto& l) { return l.key == "SC.GRADS#1"; });
    EXPECT_EQ(grads->place, "Scales, Scale 1");
    EXPECT_EQ(grads->held, "4000");

    test.simulator.ForgetReceived();
    const SafeSendReport report = Send(plan);
    EXPECT_EQ(Received(), (Texts{"SC.GRADS#1=5000", "UID=GATE"}));
    EXPECT_TRUE(report.Success());
    EXPECT_EQ(report.counts.sent, 2u);
    EXPECT_GT(report.counts.unchanged, 100u);
    EXPECT_EQ(report.InWords(test.context.texts).find("Every line that was sent was read back"), 0u);
    EXPECT_FALSE(sending->Pending());

    // What was there comes back, and nothing else is touched.
    const SafeSendReport back = sending->Restore();
    EXPECT_TRUE(back.Success());
    EXPECT_EQ(test.simulator.DumpText(), before);
    EXPECT_TRUE(back.InWords(test.context.texts).starts_with(test.context.texts.Text(41698)));
}

TEST_F(SafeSend, EveryLineThatDoesNotGoHasAReason) {
    test.context.target.prefix = "2.03.";
    sim::SimulatorOptions old{.version = "V2.03.01 MERRIN",
                              .content = "UID=OTHER\r\nSJ.CONFIG#3=8/0/0/0\r\n"};
    test.simulator = sim::Simulator(old);
    test.Connect();
    const SendPlan plan = Preview();
    for (const PlannedLine& line : plan.Lines()) {
        EXPECT_EQ(line.reason.empty(), line.fate == Fate::Send || line.fate == Fate::Same) << line.line;
        if (!line.key.empty() && line.fate != Fate::Same) {
            EXPECT_NE(line.place, "") << line.key;
        }
    }
    EXPECT_GT(plan.Count(Fate::NotKnown), 0u);
    EXPECT_GT(plan.Count(Fate::NotChosen), 0u);  // calibration
    EXPECT_EQ(Keys(plan, Fate::OnlyThere),
              Texts{});  // a port that is no junction box sends none of its lines
}

TEST_F(SafeSend, TicksDecideAndClearingStepsGoWhole) {
    Hold({"UID=OTHER", "SC.GRADS#1=4000", "WDGT#1=1,2,1,2", "WDGT#2=1,2,1,1"});
    SendPlan plan = Preview();
    EXPECT_EQ(Keys(plan, Fate::Send), (Texts{"SC.GRADS#1", "UID", "WDGT.CLR", "WDGT#1"}));
    const auto tick = [&plan](const std::string& key, bool on) {
        for (PlannedLine& line : plan.Lines()) {
            if (line.key == key) line.ticked = on;
        }
    };
    tick("UID", false);
    tick("WDGT#1", false);
    test.simulator.ForgetReceived();
    EXPECT_TRUE(Send(plan).Success());
    EXPECT_EQ(Received(), Texts{"SC.GRADS#1=5000"});

    tick("SC.GRADS#1", false);
    tick("WDGT#1", true);
    test.simulator.ForgetReceived();
    EXPECT_TRUE(Send(plan).Success());
    EXPECT_EQ(Received(), (Texts{"WDGT.CLR", "WDGT#1=1,2,1,1"}));
    EXPECT_FALSE(test.Holds("WDGT#2=1,2,1,1"));
    EXPECT_TRUE(sending->Restore().Success());
    EXPECT_TRUE(test.Holds("WDGT#2=1,2,1,1"));
    EXPECT_TRUE(test.Holds("WDGT#1=1,2,1,2"));
}

TEST_F(SafeSend, NothingIsASuccessThatWasNotReadBack) {
    struct Case {
        const char* fault;
        std::size_t askUpTo, sent, refused, notReadBack;
    };
    const Case cases[] = {{"forget:UID", 0, 2, 0, 1},
                          {"forget:UID", 64, 2, 0, 1},
                          {"corrupt:UID", 0, 2, 0, 1},
                          {"refuse:UID", 64, 1, 1, 0},
                          {"cut:5", 0, 2, 0, 2}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.fault);
        test.simulator.ClearFaults();
        askUpTo = c.askUpTo;
        Again();
        Hold({"UID=OTHER", "SC.GRADS#1=4000"});
        const SendPlan plan = Preview();
        test.simulator.AddFault(c.fault);
        const SafeSendReport report = Send(plan);
        EXPECT_FALSE(report.Success());
        EXPECT_EQ(report.counts.sent, c.sent);
        EXPECT_EQ(report.counts.refused, c.refused);
        EXPECT_EQ(report.counts.notReadBack, c.notReadBack);
    }
}

// The link is lost at every line in turn; the program is started again and goes on where it was.
TEST_F(SafeSend, ALostLinkPausesAndIsResumedAfterARestart) {
    const Texts changed{"SC.GRADS#1=4000", "UID=OTHER", "SP.VALUE#1=7", "WDGT#1=9,9,9,9"};
    for (const auto* fault : {"drop:1@", "silent@"}) {
        for (int at = 2; at <= 7; ++at) {
            SCOPED_TRACE(fault + std::to_string(at));
            test.simulator.ClearFaults();
            Hold(changed);
            const std::string before = test.simulator.DumpText();
            const SendPlan plan = Preview();
            test.simulator.AddFault(fault + std::to_string(at) + (fault[0] == 's' ? "+" : ""));
            const SafeSendReport broken = Send(plan);
            ASSERT_TRUE(broken.Paused());
            EXPECT_FALSE(broken.Success());
            EXPECT_NE(broken.trouble.find(" of 5 lines are done"), std::string::npos) << broken.trouble;

            Again();
            const auto pending = sending->Pending();
            ASSERT_TRUE(pending);
            EXPECT_EQ(pending->document, "test.mrn");
            EXPECT_EQ(pending->Left() + broken.counts.sent, 5u);
            test.simulator.ClearFaults();
            test.Connect();
            const SafeSendReport rest = sending->Resume();
            EXPECT_EQ(rest.counts.unchanged, plan.Count(Fate::Same));
            EXPECT_TRUE(rest.Success()) << rest.InWords(test.context.texts);
            EXPECT_EQ(rest.counts.sent, 5u);
            EXPECT_FALSE(sending->Pending());
            EXPECT_EQ(Received().size(), pending->Left());
            EXPECT_TRUE(sending->Restore().Success());
            EXPECT_EQ(test.simulator.DumpText(), before);
        }
    }
}

// Ctrl+C ends the program, not what it was to do; Abort is a person's choice between two buttons.
TEST_F(SafeSend, AProgramThatIsEndedCanGoOn) {
    for (const bool program : {true, false}) {
        Hold({"UID=OTHER", "SC.GRADS#1=4000"});
        const SendPlan plan = Preview();
        const Wire::Device indicator = test.wire.device;
        test.wire.device = [&](Wire& wire, const std::string& line) {
            if (line == "UID=GATE") program ? void(test.cancel = true) : sending->Abort();
            indicator(wire, line);
        };
        const SafeSendReport report = Send(plan);
        test.wire.device = indicator;
        EXPECT_EQ(report.download.end, End::Aborted);
        EXPECT_EQ(sending->Pending().has_value(), program);
        if (!program) break;
        test.cancel = false;
        EXPECT_TRUE(sending->RestorePending().Success());
        EXPECT_TRUE(test.Holds("UID=OTHER"));
        EXPECT_TRUE(test.Holds("SC.GRADS#1=4000"));
    }
}

TEST_F(SafeSend, WhatWasNotKeptCannotComeBack) {
    folder.Put("send.journal",
               "Calyx send journal 1\nwhere=x\nbackup=\n[0 1 1 ]Step\n>UID=1\n>UID=2\nfates\nA");
    Hold({});
    const Error error = Raised([&] { sending->RestorePending(); });
    EXPECT_EQ(error.Description(), test.context.texts.Text(42201));
    EXPECT_TRUE(sending->Pending());
}

// Asked for one by one, blanks at the ends of a value and "??" are part of it.
TEST_F(SafeSend, ValuesAreReadBackAsTheyStand) {
    document.Import({{"CONTACT.NAME1", "  A  "}, {"CONTACT.NAME2", "??"}});
    Hold({"CONTACT.NAME1=A", "CONTACT.NAME2=?"});
    const SafeSendReport report = Send(Preview());
    EXPECT_EQ(report.counts.sent, 2u);
    EXPECT_TRUE(report.Success());
    EXPECT_TRUE(Send(Preview()).InWords(test.context.texts).starts_with("There was nothing to send."));
}

TEST_F(SafeSend, AJournalThatIsNoneIsNotOffered) {
    const std::string whole = "Calyx send journal 1\nwhere=x\n[0 1 1 ]Step\n>UID=1\n>UID=2\nfates\nA";
    struct Case {
        std::string text;
        std::size_t left;  // 0: not offered
    };
    const Case cases[] = {
        {whole, 1},
        {whole.substr(0, whole.size() - 2), 2},
        {whole.substr(0, whole.find("fates")), 0},  // cut off while it was begun
        {whole + "AA", 0},                          // more fates than lines
        {"Calyx send journal 1\n[3 0 1 ]Ports\n>EDP.BAUD#1=1\n>STR.POS#1=+\n>UID=2\nfates\nRH", 1},
        {"Something else", 0},
        {"", 0}};
    for (const Case& c : cases) {
        folder.Put("send.journal", c.text);
        const auto pending = sending->Pending();
        ASSERT_EQ(pending.has_value(), c.left > 0) << c.text;
        if (pending) {
            EXPECT_EQ(pending->Left(), c.left);
        }
    }
}

TEST_F(SafeSend, WithoutAPlaceForTheJournalNothingIsSent) {
    Hold({"UID=OTHER"});
    CSafeSend nowhere(*test.link, test.context, test.cancel, quiet, silent,
                      {folder.Text(), folder.File("no/such/folder/journal")});
    ASSERT_NE(nowhere.Prepare("now"), nullptr);
    const SendPlan plan = nowhere.Preview(document, options);
    EXPECT_EQ(Raised([&] { nowhere.Send(plan, options, ""); }).Code(), code::kFileNotWritten);
    EXPECT_TRUE(test.Holds("UID=OTHER"));
}

}  // namespace
}  // namespace calyx::test
