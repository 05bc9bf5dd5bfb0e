// Calibration, changed-only downloads and going on with them, and the simulated indicator on its own lines.

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <optional>

#include "cli/json.h"
#include "sim/pty_simulator.h"
#include "sim/tcp_server.h"
#include "tests/cli/cli_fixture.h"

namespace calyx::cli {
namespace {

class SafeCommands : public CliTest {
  protected:
    void SetUp() override { ASSERT_EQ(Run("new ~a.mrn").code, 0); }
    void Start(std::vector<std::string> faults = {}, const std::string& content = {}) {
        sim::SimulatorOptions options;
        options.content = content;
        options.faults = std::move(faults);
        simulator.emplace(std::move(options));
    }
    std::string Linked(std::string line) const {
        return line.replace(line.find("LINK"), 4, "--tcp " + simulator->Address() + " --delay-ms 3");
    }
    Ran RunLinked(const std::string& line) { return Run(Linked(line)); }
    void ExpectLinked(std::vector<Expected> rows) {
        for (Expected& row : rows) row.line = Linked(row.line);
        Expect(rows);
    }
    bool Holds(const std::string& line) const { return Contains(simulator->Snapshot().dump, line + "\r\n"); }

    std::optional<sim::TcpSimulator> simulator;
};

TEST_F(SafeCommands, CalibrateStepByStep) {
    Start();
    ASSERT_EQ(Run("set ~a.mrn HARDWARE=2,0,0,0,0,0,0,0,0,0,0,0,0,0 SC.SRC#2=A,1").code, 0);
    ExpectLinked({
        {"calibrate LINK --scale 2 --read", 0, "SC.LC.CD#2: 0\n", "The calibration was read."},
        {"calibrate LINK --scale 2 --zero --span --weight 500 --linear 1=100 --linear 5=450 --rezero --into "
         "~a.mrn "
         "--certificate ~c.html --who Me",
         0, "SC.WVAL#2: 0 -> 500\n", "Span is calibrated."},
        {"calibrate LINK --scale 2 --read", 0, "SC.WLIN.V5#2: 450\n", ""},
        {"calibrate LINK --restore", 0, "", "there is nothing to put back"},
        {"calibrate LINK --scale 2", 2, "", "give --read, or steps"},
        {"calibrate LINK --read", 2, "", "--scale"},
        {"calibrate LINK --scale 2 --span", 2, "", "--weight"},
        {"calibrate LINK --scale 2 --zero --weight x", 2, "", "no weight above 0"},
        {"calibrate LINK --scale 2 --linear 6=5", 2, "", "K=W"},
        {"calibrate LINK --scale 9 --zero --into ~a.mrn", 2, "", "of a kind that has no calibration"},
        {"calibrate LINK --restore --forget", 2, "", "stands alone"},
    });
    const Json now = Json::parse(RunLinked("calibrate LINK --scale 2 --read --json").out);
    EXPECT_EQ(Run("get ~a.mrn SC.LC.CW#2").out, std::string(now.at(2).at("after")) + "\n");
    EXPECT_TRUE(Contains(Read("c.html"), "<td>500 LB</td>"));
    EXPECT_TRUE(Contains(Read("c.html"), "Me"));
}

TEST_F(SafeCommands, AFailedCalibrationPutsBackWhatWasThere) {
    const std::string held = "SC.LC.CD#1=80000\r\nSC.WVAL#1=10\r\nSC.LC.CW#1=90000\r\n";
    Start({"refuse:SC.WSPAN#1"}, held);
    ExpectLinked({{"calibrate LINK --scale 1 --zero --span --weight 500", 3, "",
                   "The old calibration is back in the indicator"}});
    for (const auto* line : {"SC.LC.CD#1=80000", "SC.WVAL#1=10", "SC.LC.CW#1=90000"})
        EXPECT_TRUE(Holds(line)) << line;

    // The connection goes in the midst: the old values wait on disk.
    simulator->ClearFaults();
    simulator->AddFault("drop:20");
    simulator->AddFault("silent@21+");
    EXPECT_EQ(RunLinked("calibrate LINK --scale 1 --zero --span --weight 500").code, 3);
    EXPECT_FALSE(Holds("SC.WVAL#1=10"));
    simulator->ClearFaults();
    const std::string journal = Read("user/calibration.journal");
    ExpectLinked({{"calibrate LINK --scale 1 --zero", 2, "", "--restore puts its old values back"},
                  {"calibrate LINK --scale 1 --read", 0, "SC.WVAL#1: 500\n", ""},
                  {"connect LINK", 0, "", "\"calibrate --restore\" puts the old values back"},
                  {"calibrate LINK --restore", 0, "", "The old calibration is back"},
                  {"connect LINK", 0, "setup mode", ""}});
    EXPECT_TRUE(Holds("SC.WVAL#1=10"));

    // At the end of another way there may be another indicator.
    Put("user/calibration.journal", journal);
    simulator.reset();
    Start();
    ExpectLinked({{"calibrate LINK --restore", 2, "", "--force when it is the same indicator"}});
    EXPECT_FALSE(Holds("SC.WVAL#1=10"));
    ExpectLinked({{"calibrate LINK --restore --force", 0, "", "is back"}});
    EXPECT_TRUE(Holds("SC.WVAL#1=10"));
    Put("user/calibration.journal", journal);
    Expect({{"calibrate --forget", 0, "", ""}, {"calibrate --forget", 0, "", "nothing to put back"}});
}

// On a terminal each step waits for the scale; who goes away meanwhile gets the old values back.
TEST_F(SafeCommands, StepsWaitForTheScale) {
    Start();
    terminal = true;
    input = "\n\n";
    ExpectLinked({{"calibrate LINK --scale 1 --zero --span --weight 500", 0, "SC.WVAL#1: 0 -> 500\n",
                   "Put 500 on the scale, wait until it is still, then press Enter: "}});
    input = "\n";
    ExpectLinked({{"calibrate LINK --scale 1 --zero --span --weight 900", 130, "", "Empty the scale"}});
    EXPECT_TRUE(Holds("SC.WVAL#1=500"));
    input.clear();
    EXPECT_FALSE(Contains(RunLinked("calibrate LINK --scale 1 --zero").err, "press Enter"));
}

TEST_F(SafeCommands, ChangedSendsWhatDiffersAndResumeGoesOn) {
    Start();
    ASSERT_EQ(RunLinked("download LINK ~a.mrn").code, 0);
    ExpectLinked(
        {{"send LINK --line UID=OTHER --line DSPRATE=500 --line CONSNUM=3", 0, "OK", ""},
         {"download LINK --changed --backup ~b.mrn ~a.mrn", 0,
          "Every line that was sent was read back from the indicator as it was sent. Sent: 3. Refused: 0.",
          "is kept in "}});
    EXPECT_TRUE(Holds("UID=1"));
    EXPECT_TRUE(Contains(Read("b.mrn"), "UID=OTHER\r\n"));
    EXPECT_FALSE(std::filesystem::is_empty(File("user/backups")));

    ASSERT_EQ(RunLinked("send LINK --line UID=OTHER --line DSPRATE=500 --line CONSNUM=3").code, 0);
    simulator->AddFault("drop:5");  // VERSION, DUMPALL, KNIX and two lines
    const Ran broken = RunLinked("download LINK --changed ~a.mrn");
    EXPECT_EQ(broken.code, 3);
    EXPECT_TRUE(Contains(broken.err, "of 3 lines are done")) << broken.err;
    simulator->ClearFaults();
    ExpectLinked(
        {{"resume LINK", 0, "Sent: 3.", "a.mrn: "}, {"resume LINK", 0, "", "there is nothing to resume"}});
    EXPECT_TRUE(Holds("UID=1"));

    // A line that the indicator says it took and did not is told.
    ASSERT_EQ(RunLinked("send LINK --line UID=OTHER").code, 0);
    simulator->AddFault("forget:UID");
    const Ran forgotten = RunLinked("download LINK --changed ~a.mrn --json");
    EXPECT_EQ(forgotten.code, 1);
    EXPECT_EQ(Json::parse(forgotten.out).at("notReadBack"), 1);
}

TEST_F(SafeCommands, APlainDownloadGoesOnTooWhereItWasBrokenOff) {
    Start({"drop:30"});
    ExpectLinked({{"download LINK ~a.mrn", 3, "", "\"resume\" goes on with the "}});
    simulator->ClearFaults();
    ExpectLinked({{"connect LINK", 0, "", "was broken off, "},
                  {"resume LINK --restore", 2, "", "was not kept"},
                  {"resume LINK", 0, "Every line that was sent was read back", "lines are left"},
                  {"compare LINK ~a.mrn", 0, "", "no differences"}});
    const std::string all = simulator->Snapshot().dump;

    // With a backup it can be taken back as well; by the same way only.
    ASSERT_EQ(RunLinked("send LINK --line UID=OLD").code, 0);
    simulator->AddFault("drop:200");
    ExpectLinked({{"download LINK ~a.mrn --backup ~b.mrn", 3, "", "\"resume --restore\" puts back"}});
    EXPECT_FALSE(Holds("UID=OLD"));
    Start({}, simulator->Snapshot().dump);
    ExpectLinked({{"resume LINK --restore", 2, "", "--force when it is the same"},
                  {"resume LINK --restore --force", 0, "", ""},
                  {"resume LINK", 0, "", "nothing to resume"}});
    EXPECT_TRUE(Holds("UID=OLD"));

    // Only one is kept.
    simulator->AddFault("drop:30");
    EXPECT_EQ(RunLinked("download LINK ~a.mrn").code, 3);
    simulator->ClearFaults();
    ExpectLinked({{"download LINK ~a.mrn", 0, "Errors: 0", "is given up for this one"},
                  {"resume LINK", 0, "", "nothing to resume"}});
}

TEST_F(SafeCommands, TheTerminalSendsLinesAndMacros) {
    Start();
    input =
        "VERSION\r\n\nUID=7\nUID\n/macro 3 "
        "UID\\nDSPRATE\n/f3\n\x1bOR\n/macros\n/f4\n/nothing\n//x\n/quit\nUID=8\n";
    const Ran ran = RunLinked("terminal LINK");
    EXPECT_EQ(ran.code, 1);  // "/x" was refused
    const std::string pressed = "UID\nUID=7\nDSPRATE\nDSPRATE=200\n";
    EXPECT_EQ(ran.out, "V3.10.02 MERRIN\nOK\nUID=7\n" + pressed + pressed + "F3  UID: UID\\x0ADSPRATE\n??\n");
    for (const auto* said : {"V3.10.02 MERRIN at TCP/IP:", "F4 has no macro", "/nothing is nothing that"})
        EXPECT_TRUE(Contains(ran.err, said)) << ran.err;
    EXPECT_TRUE(Holds("UID=7"));
    // The macros are kept; one without Enter begins the next line.
    Put("user/macros.ini", "F1.Caption=Set\r\nF1.Text=UID=\r\nF1.Enter=False\r\n");
    input = "/f1\n12\nUID\n";
    EXPECT_EQ(RunLinked("terminal LINK").out, "OK\nUID=12\n");
    simulator->AddFault("drop:2");
    input = "UID=1\nUID=2\nUID=3\n";
    EXPECT_EQ(RunLinked("terminal LINK").code, 3);
}

TEST_F(SafeCommands, SerialLines) {
    if (!sim::HasPseudoTerminals()) GTEST_SKIP() << "this system has no pseudo-terminals";
    const sim::PtySimulator bus({.address = 7}, {.settings = "57600,N,8,1"});
    const std::string link = "--serial " + bus.Path() + " --delay-ms 20 ";
    Expect({{"connect " + link + "--settings 57600,N,8,1 --address 7", 0, bus.Path() + ":57600,N,8,1\n", ""},
            {"send " + link + "--settings 57600,N,8,1 --address 7 --line UID=9", 0, "UID=9: OK\n", ""},
            {"connect " + link + "--settings 57600,N,8,1 --address 8", 3, "", "error 12801"},
            {"connect " + link + "--settings 57600,8,N,1", 2, "", "not like 9600,N,8,1"}});
    const sim::PtySimulator plain({}, {.settings = "9600,E,7,1"});
    Expect({{"connect --auto --serial " + plain.Path(), 0, plain.Path() + ":9600,E,7,1\n", ""},
            {"connect --auto --address 7 --serial " + plain.Path(), 2, "", "without a bus address"}});

    watchInterrupt = [](std::atomic<bool>* flag) {
        if (flag != nullptr) *flag = true;
    };
    Expect({{"simulate --pty --address 7", 130, "listening on /dev/", ""}});
}

TEST_F(SafeCommands, SimulateSaysWhatCannotBe) {
    Expect({{"simulate --tcp 0 --pty", 2, "", "not both"},
            {"simulate --serial COM9 --pty", 2, "", "not both"},
            {"simulate --serial ~no/such/port", 3, "", "The simulated indicator cannot run: "},
            {"simulate --settings 9600,N,8,1", 2, "", "--pty"},
            {"simulate --pty --settings 9600,8,N,1", 2, "", "9600,N,8,1"},
            {"simulate --fault silent@0", 2, "", "from 1 to"}});
}

}  // namespace
}  // namespace calyx::cli
