// Sending files and lines, macro keys, and what a firmware knows.

#include "comm/comparison.h"
#include "comm/firmware_keys.h"
#include "comm/macro_keys.h"
#include "comm/send_file.h"
#include "tests/comm/sim_link.h"

namespace calyx::test {
namespace {

using End = CSendFile::Report::End;

TEST(SendFile, EveryLineHasItsAnswer) {
    struct Case {
        const char *text, *fault;
        bool halt;
        std::string answers;
        End end;
    };
    const Case cases[] = {
        {"UID=A\r\n\r\nUID\nNOSUCH\nTRUCK=ON", "", false, "OK|UID=A|??|OK|", End::Complete},
        {"UID=A\nNOSUCH=1\nUID=B", "refuse:NOSUCH", true, "OK|??|", End::Halted},
        {"UID=A\nUID=B\nUID=C", "drop:1@2", false, "OK||", End::Lost},
        {"UID=A\nUID=B\nUID=C", "silent@2+", false, "OK||", End::Lost},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        SimLink test;
        test.Connect();
        if (*c.fault != '\0') test.simulator.AddFault(c.fault);
        CSendFile::IEvents quiet;
        CSendFile sending(*test.link, test.cancel, quiet);
        const auto report = sending.Run(c.text, 100, c.halt);
        std::string answers;
        for (const auto& answer : report.answers) answers += answer.text + "|";
        EXPECT_EQ(answers, c.answers);
        EXPECT_EQ(report.end, c.end);
    }
}

TEST(SendFile, AbortEndsBetweenTwoLines) {
    struct Stop : CSendFile::IEvents {
        CSendFile* sending = nullptr;
        void Answered(const CSendFile::Answer&) override { sending->Abort(); }
    } stop;
    SimLink test;
    test.Connect();
    CSendFile sending(*test.link, test.cancel, stop);
    stop.sending = &sending;
    const auto report = sending.Run("UID=A\nUID=B\n", 100, false);
    EXPECT_EQ(report.end, End::Aborted);
    EXPECT_EQ(report.answers.size(), 1u);
    EXPECT_TRUE(test.Holds("UID=A"));
}

TEST(MacroKeys, AreKeptWithAllThatCanBeTyped) {
    MemoryFiles files;
    MacroKeys keys = LoadMacroKeys(files, "macros.ini");
    EXPECT_EQ(keys, MacroKeys{});
    keys[0] = {"Version", "VERSION", true};
    keys[11] = {"Two = lines", "UID=1\nA\\nB=\\", false};
    SaveMacroKeys(files, "macros.ini", keys);
    EXPECT_EQ(LoadMacroKeys(files, "macros.ini"), keys);
    files.files["macros.ini"] = "F13.Text=x\r\nF0.Text=x\r\nFx.Text=x\r\nF2.Text=ok\r\n";
    EXPECT_EQ(LoadMacroKeys(files, "macros.ini")[1].text, "ok");
}

// A strict indicator refuses what its version does not know, and nothing that a download for it sends.
TEST(FirmwareKeys, AreThoseOfTheTables) {
    struct Case {
        const char *version, *known, *unknown;
    };
    const Case cases[] = {
        {"1.06.", "sc.grads#31", "CONTACT.COMPANY"},
        {"2.08.", "CONTACT.COMPANY", "SC.PEAKHOLD#1"},
        {"3.10.", "SC.PEAKHOLD#32", "NO.SUCH"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.version);
        TestContext context(CALYX_DATA_DIR);
        context.target.prefix = c.version;
        const auto knows = KeysKnownTo(context, context.target.Gated());
        EXPECT_TRUE(knows(c.known));
        EXPECT_FALSE(knows(c.unknown));
        EXPECT_TRUE(knows("WDGT#100"));
        CIndicator document(context);
        document.LoadText(ReadFile(std::string(CALYX_DATA_DIR) + "/samples/batching-plant.mrn"), "sample");
        constexpr unsigned kAll = 31;
        for (const KeyValue& line : SentLines(document, kAll, context.target.Gated()))
            EXPECT_TRUE(knows(line.key)) << line.key;
    }
}

}  // namespace
}  // namespace calyx::test
