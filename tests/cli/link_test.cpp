// The commands that talk to an indicator, against a simulated one on this machine.

#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <thread>

#include "cli/json.h"
#include "sim/tcp_server.h"
#include "tests/cli/cli_fixture.h"

namespace calyx::cli {
namespace {

class LinkCommands : public CliTest {
  protected:
    void SetUp() override { ASSERT_EQ(Run("new ~a.mrn").code, 0); }

    void Start(std::vector<std::string> faults = {}, const std::string& version = "V3.10.02 MERRIN") {
        sim::SimulatorOptions options;
        options.version = version;
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
    Start();
    const std::string sample = "@truck-scale --skip-checks ";
    ExpectLinked({
        {"compare LINK " + sample, 1, "Scales\n  ", ""},
        {"download LINK --verify " + sample, 0, "Errors: 0\n", "The download is complete."},
        {"compare LINK " + sample, 0, "", "no differences"},
        {"send LINK --line UID=OTHER --line UID --line NOSUCH", 1,
         "UID=OTHER: OK\nUID: UID=OTHER\nNOSUCH: ??\n", ""},
        {"compare LINK " + sample, 1, "General\n  UID: ", " "},
        {"upload ~up.mrn LINK", 0, "parameter lines, firmware V3.10.02", ""},
        {"upload ~up.mrn LINK", 2, "", "--force"},
        {"upload ~up.mrn LINK --force", 0, "", ""},
    });
    EXPECT_EQ(Read("up.mrn"), simulator->Snapshot().dump);
    Expect({{"get ~up.mrn --skip-checks UID", 0, "OTHER\n", ""}, {"check ~up.mrn --skip-checks", 0, "", ""}});

    terminal = true;
    input = "n\n";
    ExpectLinked({{"upload ~a.mrn LINK", 1, "", "Replace it? [y/N]"}});
    EXPECT_TRUE(Contains(Read("a.mrn"), "@CRC="));
    input = "y\n";
    ExpectLinked({{"upload ~a.mrn LINK", 0, "", ""}});
    EXPECT_EQ(Read("a.mrn"), simulator->Snapshot().dump);
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
    // An older indicator is read in setup mode only; nothing is written.
    Start({"notsetup"}, "V3.05.00 MERRIN");
    ExpectLinked({{"upload ~up.mrn LINK", 3, "", "error 12801"}});
    EXPECT_FALSE(Exists("up.mrn"));
}

TEST_F(LinkCommands, InterruptedDownloadSaysWhatItLeaves) {
    Start();
    std::atomic<std::atomic<bool>*> cancel{nullptr};
    watchInterrupt = [&](std::atomic<bool>* flag) { cancel = flag; };
    std::jthread finger([&](const std::stop_token& stop) {
        while (!stop.stop_requested() && simulator->Snapshot().receivedCount < 20) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
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
