// A configuration made, changed, compared and merged by the commands.

#include <gtest/gtest.h>

#include "cli/json.h"
#include "tests/cli/cli_fixture.h"

namespace calyx::cli {
namespace {

class Files : public CliTest {
  protected:
    void SetUp() override { ASSERT_EQ(Run("new ~a.mrn").code, 0); }
};

TEST_F(Files, NewSetGetTextDiff) {
    Expect({
        {"check ~a.mrn", 0, "0 lines passed over or changed, 0 broken rules", ""},
        {"get ~a.mrn TRUCK", 0, "OFF\n", ""},
        {"set ~a.mrn TRUCK=MODE1 UID=GATE-N --output ~b.mrn", 0, "TRUCK: \"OFF\" -> \"MODE1\"", ""},
        {"get ~a.mrn TRUCK", 0, "OFF\n", ""},
        {"get ~b.mrn truck UID NOSUCH", 1, "TRUCK=MODE1\nUID=GATE-N\n", "there is no parameter NOSUCH"},
        {"get ~b.mrn EDP.ALIAS#9", 1, "", "EDP.ALIAS#9"},
        {"diff ~a.mrn ~a.mrn", 0, "", "no differences"},
        {"diff ~a.mrn --defaults", 0, "", "no differences"},
        {"new ~b.mrn --force", 0, "", ""},
        {"get ~b.mrn UID", 0, "1\n", ""},
    });
    EXPECT_EQ(Run({"set", File("a.mrn"), "CONTACT.NAME1= B. Holm "}).code, 0);
    EXPECT_EQ(Out("get ~a.mrn CONTACT.NAME1"), " B. Holm \n");
    EXPECT_EQ(Out("diff ~a.mrn ~b.mrn"), "General\n  CONTACT.NAME1: \" B. Holm \" -> \"\"\n");
    EXPECT_EQ(Out("diff ~b.mrn ~a.mrn --defaults"),
              "General\n  CONTACT.NAME1: \"\" -> \" B. Holm \" (default \"\")\n");
    const Json changes = Json::parse(Out("diff ~b.mrn ~a.mrn --json"));
    EXPECT_EQ(changes.dump(),
              R"([{"section":"general","item":0,"key":"CONTACT.NAME1","before":"","after":" B. Holm "}])");
}

TEST_F(Files, SetTakesWhatItCanAndSaysWhatNot) {
    const std::string before = Read("a.mrn");
    Expect({{"set ~a.mrn DSPRATE=9 NOSUCH=1 TRUCK=MODE9", 1, "", "nothing was written"}});
    EXPECT_EQ(Read("a.mrn"), before);
    const Ran ran = Run("set ~a.mrn DSPRATE=9 NOSUCH=1 TRUCK=MODE9 CFGPWD=x UID=123456789 SPPWD=42");
    EXPECT_EQ(ran.code, 1);
    EXPECT_EQ(ran.out, "General\n  SPPWD: \"0\" -> \"42\"\n  UID: \"1\" -> \"12345678\"\n");
    for (const auto* line : {"DSPRATE=9: ", "NOSUCH=1: ", "TRUCK=MODE9: ", "CFGPWD=x: ", "UID=123456789: "}) {
        EXPECT_TRUE(Contains(ran.err, std::string("calyx-cli: ") + line)) << ran.err;
    }
    // A line end would make two lines of one.
    EXPECT_EQ(Run({"set", File("a.mrn"), "UID=2\r\nTRUCK=MODE1"}).code, 2);
    EXPECT_EQ(Out("get ~a.mrn UID TRUCK"), "UID=12345678\nTRUCK=OFF\n");
}

TEST_F(Files, SetTakesThousandsOfArgumentsAndLinesOfAFile) {
    std::vector<std::string> arguments{"set", File("a.mrn")};
    std::string lines = "; widgets\r\n\r\n@CODFile=x\r\n[BEGIN]\r\n";
    for (int i = 1; i <= 100; ++i) {
        const std::string number = "#" + std::to_string(i) + "=";
        arguments.push_back("SP.KIND" + number + "GROSS");
        for (const char* stem :
             {"VALUE", "HYSTER", "PREVAL", "TOLBAND", "TOLCNT", "NAME", "ALIAS", "BRANCH"}) {
            const bool alias = stem == std::string("ALIAS");
            arguments.push_back(std::string("SP.") + stem + number + (alias ? "S" : "") + std::to_string(i));
        }
        for (const char* stem : {"BATCH", "CLRACCM", "CLRTARE", "PSHTARE", "ALARM"}) {
            lines += std::string("SP.") + stem + number + "ON\r\n";
        }
    }
    EXPECT_EQ(Run(arguments).code, 0);
    Put("lines.txt", lines + "NO LINE\n");
    Expect({{"set ~a.mrn UID=7 --from ~lines.txt", 1, "UID: \"1\" -> \"7\"", "NO LINE"}});
    input = "UID=8\nTRUCK=MODE2\n";
    Expect({{"set ~a.mrn --from -", 0, "", ""}});
    EXPECT_EQ(Out("get ~a.mrn UID TRUCK SP.VALUE#100 SP.BATCH#100"),
              "UID=8\nTRUCK=MODE2\nSP.VALUE#100=100\nSP.BATCH#100=ON\n");
}

// Changes a file the first time that something is said.
class Meddler : public std::stringbuf {
  public:
    explicit Meddler(std::function<void()> meddle) : meddle_(std::move(meddle)) {}

  private:
    std::streamsize xsputn(const char* bytes, std::streamsize count) override {
        if (auto meddle = std::exchange(meddle_, nullptr)) meddle();
        return std::stringbuf::xsputn(bytes, count);
    }
    std::function<void()> meddle_;
};

TEST_F(Files, AChangeOfAnotherProgramMeanwhileIsNotReplaced) {
    const std::string a = File("a.mrn"), mine = Read("a.mrn") + "\r\n; told before anything is written";
    const std::string others = "of another program";
    const auto run = [&](std::vector<std::string> words) {
        Put("a.mrn", mine);
        Meddler meddler([&] { Put("a.mrn", others); });
        std::ostream err(&meddler);
        std::ostringstream out;
        std::istringstream in;
        words.insert(words.end(),
                     {"--skip-checks", "--user-dir", File("user"), "--data-dir", CALYX_DATA_DIR});
        Console console{.out = out, .err = err, .in = in};
        const int code = RunCli(words, console);
        EXPECT_EQ(Read("a.mrn"), others);
        return std::to_string(code) + meddler.str();
    };
    for (const auto& words :
         {std::vector<std::string>{"set", a, "UID=1"}, {"merge", a, a, "--output", File("./a.mrn")}}) {
        const std::string told = run(words);
        EXPECT_EQ(told[0], '3') << told;
        EXPECT_TRUE(Contains(told, "42600")) << told;
    }
    EXPECT_EQ(run({"set", a, "UID=1", "--output", File("b.mrn")})[0], '0');
}

TEST_F(Files, ValuesThatLoseTheirLineAreTold) {
    ASSERT_EQ(Run("set ~a.mrn SP.KIND#1=GROSS SP.HYSTER#1=5 EDP.BAUD#1=19200").code, 0);
    Expect({{"set ~a.mrn SP.TRIP#1=INBAND", 1, "", "SP.HYSTER#1 is not kept"},
            {"set ~a.mrn EDP.INPUT#1=KEYBD", 1, "", "EDP.BAUD#1 is not kept"}});
}

TEST_F(Files, ARefusedHardwareLineChangesNoCard) {
    const std::string with = "HARDWARE=1,5,0,0,0,0,0,0,0,0,0,0,0,0";
    ASSERT_EQ(Run("set ~a.mrn " + with).code, 0);
    ASSERT_EQ(Run("set ~a.mrn DIO.ALIAS.1#2=Pump").code, 0);
    Expect({{"set ~a.mrn HARDWARE=1,x,0,0,0,0,0,0,0,0,0,0,0,0", 1, "", "is not understood"}});
    EXPECT_EQ(Out("get ~a.mrn HARDWARE DIO.ALIAS.1#2"), with + "\nDIO.ALIAS.1#2=Pump\n");
}

TEST_F(Files, TextIsTheBodyOrWhatAVersionReceives) {
    const std::string body = Out("text ~a.mrn");
    std::string file = Read("a.mrn");
    std::erase(file, '\r');
    EXPECT_TRUE(Contains(file, "[BEGIN]\n" + body + "[END]"));

    const std::string old = Out("text ~a.mrn --firmware 1.04.");
    EXPECT_FALSE(Contains(old, "VERSION=") || Contains(old, "REGWORD=") || Contains(old, "CONTACT."));
    EXPECT_EQ(Out("text ~a.mrn --firmware 3.05"), Out("text ~a.mrn --firmware 3.05."));
    EXPECT_EQ("VERSION=3.10.00\n" + Out("text ~a.mrn --firmware 1.04. --cb2"), body);
    EXPECT_EQ(Out("text ~a.mrn --firmware 2.04."), old);
    Expect({{"text ~a.mrn --firmware 2.04.", 0, "", "2.04. is not a firmware version"}});

    const std::string scales = Out("text @truck-scale --skip-checks --section scales");
    EXPECT_TRUE(Contains(scales, "SC.WVAL#1="));
    EXPECT_FALSE(Contains(Out("text @truck-scale --skip-checks --firmware 3.10."), "SC.WVAL#1="));
    const Json lines = Json::parse(Out("text ~a.mrn --json"));
    EXPECT_EQ(lines.at(1).dump(), R"({"section":"general","key":"BATCHNG","value":"OFF"})");
}

TEST_F(Files, MergeTakesChosenLines) {
    ASSERT_EQ(
        Run("set ~a.mrn UID=A SC.SRC#1=A,1 SC.SRC#2=A,2 SC.GRADS#1=1000 SC.GRADS#2=2000 --output ~b.mrn")
            .code,
        0);
    ASSERT_EQ(Run("set ~a.mrn SPPWD=5 SC.SRC#2=A,2 SC.SRC#3=A,3 SC.GRADS#3=3000").code, 0);
    const std::string before = Read("a.mrn");
    Expect({
        {"merge ~a.mrn ~b.mrn --keys DB.* --output ~a.mrn", 1, "", "has no line for DB.*"},
        {"merge ~a.mrn ~b.mrn --keys sc.grads#? DB.* --output ~c.mrn", 1, "", "DB.*"},
        {"get ~c.mrn UID SPPWD SC.GRADS#2 SC.GRADS#3", 0,
         "UID=1\nSPPWD=5\nSC.GRADS#2=2000\nSC.GRADS#3=3000\n", ""},
        {"merge ~a.mrn ~b.mrn --output ~c.mrn", 0, "UID: \"1\" -> \"A\"", ""},
        {"get ~c.mrn UID SPPWD SC.GRADS#3", 0, "UID=A\nSPPWD=0\nSC.GRADS#3=10000\n", ""},
    });
    EXPECT_EQ(Read("a.mrn"), before);
}

TEST_F(Files, EightBitTextSurvivesAndIsReadableAsJson) {
    ASSERT_EQ(Run({"set", File("a.mrn"), "CONTACT.COMPANY=M\xFCller \x80"}).code, 0);
    EXPECT_EQ(Out("get ~a.mrn CONTACT.COMPANY"), "M\xFCller \x80\n");
    EXPECT_EQ(Json::parse(Out("get ~a.mrn CONTACT.COMPANY --json")).at("CONTACT.COMPANY"),
              "M\xC3\xBCller \xE2\x82\xAC");
    ASSERT_EQ(Run({"set", File("a.mrn"), "CONTACT.COMPANY=M\xC3\xBCller"}).code, 0);
    EXPECT_EQ(Json::parse(Out("get ~a.mrn CONTACT.COMPANY --json")).at("CONTACT.COMPANY"), "M\xC3\xBCller");
}

TEST_F(Files, CheckReportsWhatReadingChangedAndBrokenRules) {
    Put("bad.mrn",
        "# a comment\nno parameter\nTRUCK=MODE9\nCFGPWD=12x\nSPPWD=x\nUID=123456789\nNOSUCH=1\nTRUCK=MODE1\n"
        "DSPRATE=9\nALERT.SERV=1.2\n");
    const Ran ran = Run("check ~bad.mrn --skip-checks");
    EXPECT_EQ(ran.code, 1);
    for (const auto* line : {
             "line 1: a comment, not kept: \"# a comment\"",
             "line 2: no parameter line, not kept: \"no parameter\"",
             "line 3: TRUCK: \"MODE9\" is not in its list; became \"OFF\"",
             "line 4: CFGPWD: only the start of \"12x\" was read; became \"12\"",
             "line 5: SPPWD: \"x\" is not understood; became \"0\"",
             "line 6: UID: \"123456789\" is too long; became \"12345678\"",
             "line 7: NOSUCH is no known parameter, not kept: \"1\"",
             "line 8: TRUCK stands there again, passed over: \"MODE1\"; the first one counts: \"MODE9\"",
             "general DSPRATE: ",
             "general ALERT.SERV: ",
             "8 lines passed over or changed, 2 broken rules",
         }) {
        EXPECT_TRUE(Contains(ran.out, line)) << line << '\n' << ran.out;
    }
    const Json report = Json::parse(Out("check ~bad.mrn --skip-checks --json"));
    EXPECT_EQ(report.at("notes").size(), 8u);
    EXPECT_EQ(report.at("brokenRules").at(1).at("key"), "ALERT.SERV");

    Put("comment.mrn", "; only a comment\nUID=3\n");
    Expect({{"check ~comment.mrn --skip-checks", 0, "line 1: a comment", ""},
            {"set ~comment.mrn --skip-checks UID=4", 0, "", "1 line of "},
            {"check ~comment.mrn", 0, "", ""}});
}

TEST_F(Files, LinesThatAreLeftOutAreToldAndCounted) {
    Put("odd.mrn",
        "CUSTOM#1=BEEP\nBEEP=3\nCUSTOM#2=UID\nCUSTOM#3=lamp\nWDGT#1=1,0\nWDGT#7=1,0,1,1\nWDGT#0=1,0,1,1\n"
        "SJ.CONFIG#3=8/8/0/0\nGFMT.PORT=P12\nDB.NAME.1#1=T\n");
    const Ran ran = Run("check ~odd.mrn --skip-checks");
    for (const auto* line :
         {"CUSTOM#2: \"UID\" is not understood. Left out: UID is a parameter",
          "WDGT#1: \"1,0\" is not understood. Left out: the record of this kind (Scale) has 4 fields",
          "CUSTOM#3: \"lamp\" is not understood, not kept", "WDGT#0 is no known parameter",
          "SJ.CONFIG#3 is of no item that is there", "GFMT.PORT: \"P12\" is not understood; became \"PORT3\"",
          "DB.NAME.1#1 is of no item that is there"})
        EXPECT_TRUE(Contains(ran.out, line)) << line << '\n' << ran.out;
    Expect({{"set ~odd.mrn --skip-checks UID=2 --output ~a.mrn", 0, "", "6 lines of "},
            {"get ~a.mrn BEEP WDGT#1", 0, "BEEP=3\nWDGT#1=1,0,1,1\n", ""},
            {"check ~a.mrn", 1, "0 lines passed over", ""},  // there is no scale 1
            {"set ~a.mrn --from ~odd.mrn", 1, "", "WDGT#1=1,0: "},
            {"keys WDGT*", 0, "WDGT#n", ""}});
}

TEST_F(Files, SamplesAreWholeButHandWritten) {
    for (const auto* sample : {"@batching-plant", "@checkweigher-line", "@silo", "@truck-scale"}) {
        Expect({{std::string("check ") + sample, 3, "",
                 "calyx-cli: error 10012 (0x8004271C) in Calyx.CIndicator.Load: "},
                {std::string("check ") + sample, 3, "", "--skip-checks opens it all the same"},
                {std::string("check --skip-checks ") + sample, 0, "0 broken rules", ""}});
    }
}

}  // namespace
}  // namespace calyx::cli
