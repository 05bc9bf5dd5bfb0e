// The commands that talk to an indicator, against a simulated one on this machine.

#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <thread>

#include "cli/json.h"
#include "model/language/change_set.h"
#include "sim/tcp_server.h"
#include "tests/cli/cli_fixture.h"

namespace calyx::cli {
namespace {

class LinkCommands : public CliTest {
  protected:
    void SetUp() override { ASSERT_EQ(Run("new ~a.mrn").code, 0); }

    void Start(std::vector<std::string> faults = {}, const std::string& version = "V3.10.02 MERRIN",
               const std::string& content = {}) {
        sim::SimulatorOptions options;
        options.version = version;
        options.content = content;
        options.faults = std::move(faults);
        simulator.emplace(std::move(options));
    }
    // "LINK" in a line is the way to the simulated indicator.
    std::string Linked(std::string line) const {
        const std::size_t at = line.find("LINK");
        // Short waits: everything happens on this machine.
        return line.replace(at, 4, "--tcp " + simulator->Address() + " --delay-ms 3");
    }
    Ran RunLinked(const std::string& line) { return Run(Linked(line)); }
    void ExpectLinked(std::vector<Expected> rows) {
        for (Expected& row : rows) row.line = Linked(row.line);
        Expect(rows);
    }
    // The lines that the indicator was sent, without questions of the link itself.
    std::string Received() const {
        std::string lines;
        for (const std::string& line : simulator->Snapshot().received) {
            if (!line.empty() && line != "VERSION" && line != "KNIX" && line != "DUMPALL")
                lines += line + "\n";
        }
        return lines;
    }

    std::optional<sim::TcpSimulator> simulator;
};

TEST_F(LinkCommands, ConnectTellsWhoAnswers) {
    Start({}, "V2.08.01 CB2 MERRIN");
    ExpectLinked({
        {"connect LINK", 0,
         "identification  MERRIN\nversion         2.08.01\ntarget version  2.08.\nCB2             yes\n", ""},
        {"connect LINK --search OTHER", 3, "", "error 12801 (0x80043201) in Calyx.CIndicatorComm."},
        {"connect LINK --log ~log.txt", 0, "setup mode      yes\n", ""},
    });
    EXPECT_TRUE(Contains(Read("log.txt"), "OUT:VERSION"));
    const Json answer = Json::parse(RunLinked("connect LINK --json").out);
    EXPECT_EQ(answer.at("reply"), "V2.08.01 CB2 MERRIN");
    EXPECT_EQ(answer.at("cb2"), true);
    simulator->Stop();
    ExpectLinked({{"connect LINK", 3, "", "error 12801"}});
}

TEST_F(LinkCommands, DownloadUploadCompare) {
    // It has the cards of the sample: which ones there are is never sent.
    Start({}, "V3.10.02 MERRIN", "HARDWARE=2,2,1,5,0,0,0,0,0,0,0,0,0,0\r\n");
    const std::string sample = "@truck-scale --skip-checks ";
    ExpectLinked({
        {"compare LINK " + sample, 1, "\nScales", ""},
        {"download LINK --verify " + sample, 0, "Errors: 0\n", "The download is complete."},
        {"compare LINK " + sample, 0, "", "no differences"},
        {"send LINK --line UID=OTHER --line UID --line NOSUCH", 1,
         "UID=OTHER: OK\nUID: UID=OTHER\nNOSUCH: ??\n", ""},
        {"compare LINK " + sample, 1, "General\n  UID: ", " "},
        {"upload ~up.mrn LINK", 0, " parameter lines, firmware V3.10.02", "Opening the configuration"},
        {"upload ~up.mrn LINK", 2, "", "--force"},
        {"upload ~up.mrn LINK --force", 0, "", ""},
    });
    EXPECT_EQ(Read("up.mrn"), simulator->Snapshot().dump);
    EXPECT_EQ(Json::parse(RunLinked("upload ~up.mrn LINK --force --json").out).at("lines"),
              ReadLines(simulator->Snapshot().dump).size());
    Expect({{"get ~up.mrn --skip-checks UID", 0, "OTHER\n", ""}, {"check ~up.mrn --skip-checks", 0, "", ""}});

    terminal = true;
    input = "n\n";
    ExpectLinked({{"upload ~a.mrn LINK", 1, "", "Replace it? [y/N]"}});
    EXPECT_TRUE(Contains(Read("a.mrn"), "@CRC="));
    input = "y\n";
    ExpectLinked({{"upload ~a.mrn LINK", 0, "", ""}});
    EXPECT_EQ(Read("a.mrn"), simulator->Snapshot().dump);
}

TEST_F(LinkCommands, ReadingBackBelievesTheIndicatorsLinesOnly) {
    // It says OK to everything and keeps nothing: what it lacks must not pass for defaults.
    Start({"forget:*"}, "V3.10.02 MERRIN", "; empty");
    ExpectLinked({
        {"download LINK --verify ~a.mrn", 1, "  TRUCK: \"OFF\" -> (no line)\n", ""},
        {"download LINK --verify ~a.mrn", 1, "\nread back: 0 lines equal, ", ""},
        {"compare LINK ~a.mrn", 1, "  UID: \"1\" -> (no line)\n", ""},
    });
    const Json report = Json::parse(RunLinked("download LINK --verify ~a.mrn --json").out);
    EXPECT_EQ(report.at("verified"), true);
    EXPECT_EQ(report.at("differences").size() + 1, report.at("accepted"));  // "WDGT.CLR" is no parameter

    // Words that it does not know would read as the default; differences stand in the order of the file.
    Start({"corrupt:TRUCK", "corrupt:SC.GRADS#1", "corrupt:UID"});
    const Ran ran = RunLinked("download LINK --verify @truck-scale --skip-checks");
    EXPECT_EQ(ran.code, 1);
    EXPECT_TRUE(Contains(ran.out, "-> \"MODE2~\"\n") || Contains(ran.out, "-> \"MODE1~\"\n") ||
                Contains(ran.out, "-> \"OFF~\"\n"))
        << ran.out;
    EXPECT_TRUE(ran.out.starts_with("General\n")) << ran.out;
    EXPECT_LT(ran.out.find("  UID: "), ran.out.find("\nScales")) << ran.out;
    EXPECT_LT(ran.out.find("\nScales"), ran.out.find("  SC.GRADS#1: ")) << ran.out;
    EXPECT_TRUE(Contains(ran.out, " lines equal, 3 differ\nErrors: 0\n")) << ran.out;
}

TEST_F(LinkCommands, WhatWasNotReadBackIsNotCalledEqual) {
    Start({"refuse:UID"});
    ExpectLinked({{"download ~a.mrn LINK --verify --halt-on-error", 1,
                   "not read back: the download did not complete\n", "has accepted"}});
    for (const auto* line :
         {"download ~a.mrn LINK --json", "download ~a.mrn LINK --verify --halt-on-error --json"}) {
        const Json report = Json::parse(RunLinked(line).out);
        EXPECT_EQ(report.at("verified"), false) << line;
        EXPECT_TRUE(report.at("differences").is_null()) << line;
    }
    // The dump is cut off: what was sent is told all the same, and nothing is written.
    Start({"cut:3"});
    ExpectLinked(
        {{"download ~a.mrn LINK --verify", 3, "not read back: The indicator stopped in the middle", "12801"},
         {"download ~a.mrn LINK --verify", 3, "\nErrors: 0\n", "The download is complete."},
         {"compare ~a.mrn LINK", 3, "", "stopped in the middle"},
         {"upload ~up.mrn LINK", 3, "", "stopped in the middle"},
         {"download ~a.mrn LINK --backup ~up.mrn", 3, "", "stopped in the middle"}});
    EXPECT_FALSE(Exists("up.mrn"));
}

TEST_F(LinkCommands, AnUnknownFirmwareIsSaid) {
    const std::string warning = "9.99. is not a firmware version that this program knows";
    Start({}, "V9.99.01 MERRIN");
    ExpectLinked(
        {{"connect LINK", 0, "target version  9.99.", warning}, {"download ~a.mrn LINK", 0, "", warning}});
    EXPECT_EQ(Json::parse(RunLinked("connect LINK --json").out).at("versionKnown"), false);
    Start({}, "V9.99.01 CB2 MERRIN");
    EXPECT_FALSE(Contains(RunLinked("connect LINK").err, warning));
}

TEST_F(LinkCommands, DryRunPrintsWhatADownloadSends) {
    const std::string all = " --only base,calibration,setpoints,widgets,schemas";
    for (const auto& [version, only] : {std::pair{"1.00.", all}, {"2.08.", all}, {"3.05.", std::string()}}) {
        Start({}, "V" + std::string(version) + "01 MERRIN");
        const std::string file = "download @silo --skip-checks" + only;
        EXPECT_EQ(RunLinked(file + " LINK").code, 0) << version;
        EXPECT_EQ(Received(), Out(file + " --dry-run --firmware " + version)) << version;
    }
    Put("p.cod", ":01\r\n\r\n:02\r\n");
    EXPECT_EQ(Out("download ~a.mrn --only program --program ~p.cod --dry-run --firmware 3.10."),
              ":01\n:02\n");
    std::string widgets;
    for (int i = 1; i <= 130; ++i) widgets += "WDGT#" + std::to_string(i) + "=1,2,1,1\n";
    Put("w.mrn", widgets);
    Expect({{"download ~w.mrn --skip-checks --dry-run --firmware 3.00.", 0, "", "Widget Count #130: "}});
}

TEST_F(LinkCommands, RefusedLinesAreFindings) {
    Start({"refuse:CONTACT.NAME?", "refuse:UID"});
    const Ran ran = RunLinked("download ~a.mrn LINK");
    EXPECT_EQ(ran.code, 1);
    EXPECT_TRUE(ran.out.starts_with("UID=1: ")) << ran.out;
    EXPECT_TRUE(Contains(ran.out, "\nCONTACT.NAME3=: ") && ran.out.ends_with("\nErrors: 4\n")) << ran.out;
    const Json report = Json::parse(RunLinked("download ~a.mrn LINK --halt-on-error --json").out);
    EXPECT_EQ(report.at("complete"), false);
    EXPECT_EQ(report.at("failed").size(), 1u);

    ASSERT_EQ(Run("set ~a.mrn UID=GATE").code, 0);
    ExpectLinked({{"download ~a.mrn LINK --verify", 1, "General\n  UID: \"GATE\" -> ", ""}});
    // The indicator's own word stays what it was, and the backup has it.
    simulator->ClearFaults();
    ExpectLinked(
        {{"send LINK --line UID=OLD", 0, "", ""}, {"download ~a.mrn LINK --backup ~old.mrn", 0, "", ""}});
    Expect({{"get ~old.mrn --skip-checks UID", 0, "OLD\n", ""}});
}

TEST_F(LinkCommands, WhatStopsTheLinkIsANumberedError) {
    for (const auto& [fault, line] : {
             std::pair{"notsetup", "download ~a.mrn LINK"},
             {"drop:9", "download ~a.mrn LINK"},
             {"silent", "connect LINK"},
             {"drop:3", "send LINK --line UID=1 --line UID=2 --line UID=3 --line UID=4"},
         }) {
        Start({fault});
        const Ran ran = RunLinked(line);
        EXPECT_EQ(ran.code, 3) << fault << ran.out << ran.err;
        EXPECT_TRUE(Contains(ran.err, "calyx-cli: error 12801 (0x80043201) in Calyx.")) << ran.err;
    }
    Start({"drop:9"});
    const Ran lost = RunLinked("download ~a.mrn LINK");
    EXPECT_TRUE(Contains(
        lost.err, "Calyx.CDownload.Run: The connection to the indicator was lost. It has accepted 7 of "))
        << lost.err;
    EXPECT_EQ(lost.err.find("was lost"), lost.err.rfind("was lost")) << "told once\n" << lost.err;
    // An older indicator is read in setup mode only; nothing is written.
    Start({"notsetup"}, "V3.05.00 MERRIN");
    ExpectLinked({{"upload ~up.mrn LINK", 3, "", "error 12801"}});
    EXPECT_FALSE(Exists("up.mrn"));
}

TEST_F(LinkCommands, InterruptedDownloadSaysWhatItLeaves) {
    Start({"late:5"});  // so that looking at it now and then leaves it time to answer
    std::atomic<std::atomic<bool>*> cancel{nullptr};
    watchInterrupt = [&](std::atomic<bool>* flag) { cancel = flag; };
    std::jthread finger([&](const std::stop_token& stop) {
        while (!stop.stop_requested() && simulator->Snapshot().receivedCount < 20) {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        if (std::atomic<bool>* flag = cancel) *flag = true;
    });
    const Ran ran = RunLinked("download @truck-scale --skip-checks LINK");
    EXPECT_EQ(ran.code, 130);
    EXPECT_TRUE(Contains(ran.err, "The download was aborted.")) << ran.err;
    EXPECT_TRUE(ran.err.ends_with("calyx-cli: stopped by Ctrl+C\n")) << ran.err;
}

TEST_F(LinkCommands, SimulateRunsUntilInterrupted) {
    watchInterrupt = [](std::atomic<bool>* flag) {
        if (flag != nullptr) *flag = true;
    };
    const Ran ran = Run("simulate --tcp 0 --version V2.00.01_MERRIN --fault split --state ~state.txt");
    EXPECT_EQ(ran.code, 130) << ran.err;
    EXPECT_TRUE(ran.out.starts_with("listening on 127.0.0.1:")) << ran.out;
    EXPECT_TRUE(ran.err.ends_with("calyx-cli: stopped by Ctrl+C\n")) << ran.err;
    EXPECT_TRUE(Exists("state.txt"));
}

}  // namespace
}  // namespace calyx::cli
