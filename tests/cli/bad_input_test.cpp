// No input crashes or hangs: each ends with a number, in words, and leaves the files as they were.

#include <gtest/gtest.h>

#include "model/document/checksum.h"
#include "tests/cli/cli_fixture.h"

namespace calyx::cli {
namespace {

class BadInput : public CliTest {
  protected:
    void SetUp() override { ASSERT_EQ(Run("new ~good.mrn").code, 0); }

    static std::string Around(const std::string& body, const std::string& revision) {
        return "@REVISION=" + revision + "\r\n@CRC=" + std::to_string(Checksum(body)) +
               "\r\n\r\n[BEGIN]\r\n" + body + "[END]";
    }
};

TEST_F(BadInput, EndsWithTheNumberOfWhatIsWrong) {
    const std::string good = Read("good.mrn");
    std::string edited = good;
    edited.replace(edited.find("UID=1"), 5, "UID=2");
    Put("edited.mrn", edited);
    Put("empty.mrn", "");
    Put("long.mrn", "UID=" + std::string(1 << 20, 'x'));
    Put("zeros.mrn", std::string("UID=1\0\r\nTRUCK=\0OFF", 18));
    Put("foreign.mrn", "\x89PNG\r\n\x1A\nIHDR\xFF\xFE=");
    Put("revision.mrn", Around("UID=1\r\n", "2.09.1"));
    Put("version.mrn", Around("VERSION=V2.08.01\r\n", "3.10.0"));
    std::string many;
    for (int i = 0; i < 50'000; ++i) many += "LINE" + std::to_string(i) + "=1\r\n";
    Put("many.mrn", many);

    const std::vector<std::pair<std::string, std::string>> kNumbers{
        {"missing.mrn", "10004 (0x80042714)"},  {"user", "20003 (0x80044E23)"},
        {"empty.mrn", "10012 (0x8004271C)"},    {"long.mrn", "10012 (0x8004271C)"},
        {"zeros.mrn", "10012 (0x8004271C)"},    {"foreign.mrn", "10012 (0x8004271C)"},
        {"many.mrn", "10012 (0x8004271C)"},     {"edited.mrn", "10005 (0x80042715)"},
        {"revision.mrn", "15000 (0x80043A98)"}, {"version.mrn", "15001 (0x80043A99)"},
    };
    for (const auto& [file, number] : kNumbers) {
        for (const auto* command : {"check ~", "text ~", "get UID ~", "print ~", "diff ~good.mrn ~"}) {
            const std::string line =
                std::string(command) == "get UID ~" ? "get ~" + file + " UID" : command + file;
            const Ran ran = Run(line);
            EXPECT_EQ(ran.code, 3) << line;
            EXPECT_TRUE(ran.err.starts_with("calyx-cli: error " + number + " in Calyx.CIndicator."))
                << line << '\n'
                << ran.err;
            EXPECT_EQ(ran.out, "") << line;
        }
        const auto before = Exists(file) && file != "user" ? Read(file) : "";
        EXPECT_EQ(Run("set ~" + file + " UID=5").code, 3) << file;
        EXPECT_EQ(Exists(file) && file != "user" ? Read(file) : "", before) << file;
    }
    for (const auto* file : {"empty.mrn", "long.mrn", "zeros.mrn", "foreign.mrn", "many.mrn", "edited.mrn",
                             "revision.mrn", "version.mrn"}) {
        const Ran ran = Run(std::string("check --skip-checks ~") + file);
        EXPECT_TRUE(ran.code == 0 || ran.code == 1) << file << '\n' << ran.err;
        EXPECT_EQ(Run(std::string("text --skip-checks --json ~") + file).code, 0) << file;
    }
    EXPECT_TRUE(
        Contains(Out("check --skip-checks ~many.mrn"), "line 50000: LINE49999 is no known parameter"));
}

TEST_F(BadInput, UnwritableTargetsLeaveEverythingAsItWas) {
    const std::string good = Read("good.mrn");
    Expect({
        {"new ~none/a.mrn", 3, "", "calyx-cli: error 20002 (0x80044E22) in Calyx.CIndicator."},
        {"new ~user", 3, "", "error 20003 (0x80044E23) in Calyx.CIndicator."},
        {"set ~good.mrn UID=2 --output ~good.mrn/a", 3, "", "error 20002"},
        {"merge ~good.mrn ~good.mrn --output ~none/a", 3, "", "error 20002"},
        {"print ~good.mrn --html ~none/a", 3, "", "error 20002"},
        {"scrivo ~good.mrn --output ~none/a", 3, "", "error 20002"},
        {"set ~good.mrn --from ~none/a", 3, "", "error 20001 (0x80044E21)"},
        {"set ~good.mrn --from ~user", 3, "", "error 20003"},
        {"download ~good.mrn --dry-run --program ~user", 3, "", "error 20003"},
        // Found before anything is connected.
        {"upload ~user --tcp a:5", 3, "", "error 20003"},
        {"upload ~none/a --tcp a:5", 3, "", "error 20002"},
        {"download ~good.mrn --tcp a:5 --backup ~none/a", 3, "", "error 20002"},
        {"connect --tcp a:5 --log ~user", 3, "", "error 20003"},
        {"simulate --state ~user", 3, "", "error 20001"},
        {"simulate --state ~none/a", 3, "", "error 20002"},
    });
    // A name that no system takes; not every system tells it from one that is not there.
    const std::string name = File(std::string(300, 'x') + ".mrn");
    for (const auto& [reads, arguments] : std::vector<std::pair<bool, std::vector<std::string>>>{
             {true, {"check", name}},
             {true, {"set", name, "UID=1"}},
             {true, {"set", File("good.mrn"), "--from", name}},
             {true, {"download", File("good.mrn"), "--dry-run", "--program", name}},
             {false, {"new", name}},
             {false, {"set", File("good.mrn"), "UID=2", "--output", name}}}) {
        const Ran ran = Run(arguments);
        EXPECT_EQ(ran.code, 3) << arguments[0];
        EXPECT_TRUE(reads ? Contains(ran.err, "error 20001 ") || Contains(ran.err, "error 10004 ")
                          : Contains(ran.err, "error 20002 "))
            << arguments[0] << '\n'
            << ran.err;
        EXPECT_FALSE(Contains(ran.err, "..")) << ran.err;
    }
    EXPECT_EQ(Read("good.mrn"), good);
}

TEST_F(BadInput, ControlCharactersDoNotReachTheTerminal) {
    Put("bad.mrn", "\x1B[2J=1\r\nUID=\x1B[2J\r\n");
    std::string shown;
    for (const auto& arguments :
         std::vector<std::vector<std::string>>{{"check", "--skip-checks", File("bad.mrn")},
                                               {"diff", "--skip-checks", File("good.mrn"), File("bad.mrn")},
                                               {"set", File("good.mrn"), "\x1B[2J=1", "UID=\x1B[2J"}}) {
        const Ran ran = Run(arguments);
        EXPECT_EQ(ran.code, 1) << arguments[0];
        shown += ran.out + ran.err;
    }
    EXPECT_EQ(shown.find('\x1B'), std::string::npos) << shown;
    EXPECT_TRUE(Contains(shown, "\\x1B[2J"));
}

}  // namespace
}  // namespace calyx::cli
