// What is wrong usage, and that it says how it is right; the ends of the program.

#include <gtest/gtest.h>

#include "cli/command.h"
#include "tests/cli/cli_fixture.h"

namespace calyx::cli {
namespace {

using Usage = CliTest;

TEST_F(Usage, TellsItselfAndRefusesWhatItDoesNotKnow) {
    ASSERT_EQ(Run("new ~a.mrn").code, 0);
    Expect({
        {"--version", 0, "calyx-cli 3.10.0\n", ""},
        {"--help", 0, "  simulate  ", ""},
        {"text --help", 0, "usage: calyx-cli text FILE [--section NAME] [--firmware PREFIX] [--cb2]", ""},

        {"", 2, "", "usage: calyx-cli COMMAND"},
        {"nonsense ~a.mrn", 2, "", "there is no command nonsense"},
        {"--nonsense check ~a.mrn", 2, "", "no option --nonsense"},
        {"check", 2, "", "FILE is required\nusage: calyx-cli check FILE"},
        {"check ~a.mrn --nonsense", 2, "", "--nonsense"},
        {"check ~a.mrn ~a.mrn", 2, "", "usage: calyx-cli check"},
        {"--json new ~b.mrn", 2, "", "--json"},
        {"new ~b.mrn --json", 2, "", "--json"},
        {"new ~a.mrn", 2, "", "--force"},
        {"text ~a.mrn --section scale", 2, "", "general, prompts, hardware, scales"},
        {"get ~a.mrn", 2, "", "KEY"},
        {"set ~a.mrn", 2, "", "nothing to set"},
        {"set ~a.mrn TRUCK", 2, "", "is not KEY=VALUE"},
        {"set ~a.mrn =1", 2, "", "is not KEY=VALUE"},
        {"diff ~a.mrn", 2, "", "B is missing"},
        {"merge ~a.mrn ~a.mrn", 2, "", "--output is required"},
        {"scrivo ~a.mrn", 2, "", "--output is required"},
        {"lists GEN.NONE", 2, "", "there is no list GEN.NONE"},
        {"keys --markdown --json", 2, "", "not both"},

        {"connect", 2, "", "give --tcp HOST:PORT"},
        {"connect --tcp 127.0.0.1", 2, "", "is not HOST:PORT"},
        {"connect --tcp :5", 2, "", "is not HOST:PORT"},
        {"connect --tcp a:65536", 2, "", "is not HOST:PORT"},
        {"connect --tcp a:+5", 2, "", "is not HOST:PORT"},
        {"connect --tcp ::1:5", 2, "", "is not HOST:PORT"},
        {"connect --tcp []:5", 2, "", "is not HOST:PORT"},
        {"connect --tcp a:5 --serial COM1", 2, "", "not both"},
        {"connect --tcp a:5 --address 5", 2, "", "for --serial"},
        {"connect --serial COM1 --address 256", 2, "", "usage: calyx-cli connect LINK"},
        {"connect --serial COM1 --settings 9600", 2, "", "9600,N,8,1"},
        {"connect --serial COM1", 3, "", "error 12801 (0x80043201) in Calyx."},
        {"download ~a.mrn --only base,cows --dry-run", 2, "", "no group cows"},
        {"download ~a.mrn --only calibration --dry-run", 2, "", "together with base"},
        {"download ~a.mrn --only program --dry-run", 2, "", "--program"},
        {"download ~a.mrn --dry-run --verify", 2, "", "sends nothing"},
        {"download ~a.mrn --tcp a:5 --firmware 3.00.", 2, "", "--dry-run"},
        {"download ~a.mrn --dry-run --changed", 2, "", "--changed reads the indicator"},
        {"download ~a.mrn --tcp a:5 --backup ~a.mrn", 2, "", "exists already; choose another name"},
        {"print ~a.mrn --pdf ~a.pdf", 2, "", "in the desktop program"},
        {"print ~a.mrn --pdf ~a.pdf --html ~a.html", 2, "", "not both"},
        {"send --tcp a:5", 2, "", "nothing to send"},
        {"simulate --tcp 70000", 2, "", "usage: calyx-cli simulate"},
        {"simulate --fault nonsense", 2, "", "nonsense"},
    });
    EXPECT_FALSE(Exists("b.mrn"));
    EXPECT_FALSE(Exists("a.html"));
    const std::vector<std::vector<std::string>> odd{
        {"send", "--tcp", "a:5", "--line", "A=1\rB=2"},
        {"send", "--tcp", "a:5", "--line", "A=1\n"},
        {"connect", "--tcp", "a b:5"},
        {"download", File("a.mrn"), "--dry-run", "--program", "  "},
    };
    for (const auto& arguments : odd) EXPECT_EQ(Run(arguments).code, 2) << arguments[0] << arguments[1];
}

TEST_F(Usage, TellsOfTheFolderItMakesAndOfCtrlCThatCameTooLate) {
    Expect({{"new ~a.mrn", 0, "", "made the folder " + File("user")}});
    EXPECT_EQ(Run("new ~b.mrn").err, "");
    watchInterrupt = [](std::atomic<bool>* flag) {
        if (flag != nullptr) *flag = true;
    };
    Expect({{"new ~c.mrn", 130, "", "Ctrl+C came when all was done"}});
    EXPECT_TRUE(Exists("c.mrn"));
}

TEST_F(Usage, EveryCommandHasHelp) {
    for (const auto& command : AllCommands()) {
        const std::string name(command->Name());
        const Ran ran = Run(name + " --help");
        EXPECT_EQ(ran.code, 0) << name;
        EXPECT_TRUE(Contains(ran.out, "usage: calyx-cli " + name + " ")) << ran.out;
        EXPECT_TRUE(Contains(Out("--help"), "  " + name + " ")) << name;
    }
}

TEST_F(Usage, WordsOfCommandsAndOptionsMayBeFileNames) {
    Expect({{"new ~check", 0, "", ""},
            {"check ~check", 0, "", ""},
            {"get ~check UID text", 1, "UID=1\n", "text"}});
}

// A stream that takes nothing, as a full disk or a closed pipe does.
class Broken : public std::streambuf {};

TEST_F(Usage, ResultsThatCannotBeWrittenAreAnErrorUnlessNobodyReadsOn) {
    for (const auto& [why, code] :
         {std::pair{std::errc::no_space_on_device, 3}, {std::errc::broken_pipe, 0}}) {
        Broken broken;
        std::ostream out(&broken);
        std::ostringstream err;
        std::istringstream in;
        Console console{.out = out, .err = err, .in = in};
        console.outFailure = [reason = why] { return std::make_error_code(reason); };
        EXPECT_EQ(RunCli({"--user-dir", File("user"), "--data-dir", CALYX_DATA_DIR, "lists"}, console), code);
        EXPECT_EQ(Contains(err.str(), "calyx-cli: error 20002 (0x80044E22) in "), code == 3) << err.str();
    }
}

TEST_F(Usage, MissingProgramFilesAreANumberedError) {
    std::ostringstream out, err;
    std::istringstream in;
    Console console{.out = out, .err = err, .in = in};
    EXPECT_EQ(RunCli({"--user-dir", File("user"), "--data-dir", File("none"), "lists"}, console), 3);
    EXPECT_TRUE(Contains(err.str(), "calyx-cli: error 20100 (0x80044E84) in ")) << err.str();
}

TEST_F(Usage, UnknownLanguageIsSaidAndEnglishSpoken) {
    Expect({{"--language xx lists GEN.DECFMT", 0, "Comma", "xx"}});
}

}  // namespace
}  // namespace calyx::cli
