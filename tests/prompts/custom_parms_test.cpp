// Custom parameters: pairs of a name and a value, in their order.

#include "model/prompts/custom_parms.h"

#include <gtest/gtest.h>

#include "tests/support/model_fixture.h"

namespace calyx::test {
namespace {

using Changes = std::vector<Change>;
using Check = Section::Check;

class CustomParms : public testing::Test {
  protected:
    TestContext context{CALYX_DATA_DIR};
    CCustomParms parms{context};
    ReadReport report;

    void SetUp() override { parms.Initialize(); }
    // The document's other sections own TRUCK.
    std::size_t Refused(const std::vector<KeyValue>& lines, Check check = Check::Strict) {
        Changes changes;
        for (const KeyValue& line : lines) changes.push_back({line.key, std::nullopt, line.value});
        return parms
            .Take(changes, check,
                  [](std::string_view key) {
                      return key == "TRUCK" ? std::optional<std::string>("OFF") : std::nullopt;
                  })
            .size();
    }
    Dictionary Read(const std::string& text) {
        Dictionary lines(text);
        report = {};
        parms.RestoreState(lines, report);
        return lines;
    }
};

const std::string kTwo = "CUSTOM#1=BEEPTONE\r\nCUSTOM#3=LAMP_2\r\nBEEPTONE= 3 \r\nLAMP_2=a=b\r\n";

TEST_F(CustomParms, AreNamedInTheFileAndSentAsTheyAre) {
    const Dictionary lines = Read("LAMP_2=a=b\r\nBEPTONE=5\r\n" + kTwo);
    EXPECT_EQ(parms.StoreState(), kTwo);
    EXPECT_EQ(parms.GetTextOutput(false), "BEEPTONE= 3 \r\nLAMP_2=a=b\r\n");
    EXPECT_EQ(parms.Pairs(), (std::vector<KeyValue>{{"BEEPTONE", " 3 "}, {"LAMP_2", "a=b"}}));
    EXPECT_EQ(parms.GetPrintOutput(), "Custom parameters\r\n  BEEPTONE:  3 \r\n  LAMP_2: a=b\r\n");
    EXPECT_TRUE(report.Empty());
    EXPECT_FALSE(parms.IsDirty());
    // A misspelt key is nobody's.
    for (const auto& entry : lines.Entries()) EXPECT_EQ(entry.asked, entry.key != "BEPTONE") << entry.key;
    EXPECT_TRUE(parms.Owns("beeptone"));
    EXPECT_FALSE(parms.Owns("BEPTONE"));
}

TEST_F(CustomParms, NamesThatCannotBeAreReportedAndNotKept) {
    const std::string longest(20, 'A');
    const Dictionary lines = Read(
        "CUSTOM#1=lower\r\nCUSTOM#2=A.B\r\nCUSTOM#3=A\r\nCUSTOM#4=A\r\nCUSTOM#5=\r\nCUSTOM#6=TRUCK\r\nCUSTOM#"
        "7=" +
        longest + "\r\nCUSTOM#8=" + longest + "A\r\nCUSTOM#9=2A\r\nA=1\r\nTRUCK=MODE1\r\n");
    std::vector<std::string> noted;
    for (const ReadNote& note : report.Notes()) noted.push_back(note.key);
    EXPECT_EQ(noted, (std::vector<std::string>{"CUSTOM#1", "CUSTOM#2", "CUSTOM#4", "CUSTOM#5", "CUSTOM#8",
                                               "CUSTOM#9"}));
    parms.DropOwned([](std::string_view key) { return key == "TRUCK"; }, lines, report);
    EXPECT_EQ(report.Count(), 7u);
    EXPECT_EQ(report.Notes().back().line, 6u);
    EXPECT_EQ(parms.StoreState(), "CUSTOM#3=A\r\nCUSTOM#7=" + longest + "\r\nA=1\r\n" + longest + "=\r\n");
    EXPECT_FALSE(parms.IsDirty());
}

TEST_F(CustomParms, SettingKeepsToTheSameRules) {
    ASSERT_EQ(Refused({{"CUSTOM#1", "ONE"}, {"CUSTOM.VALUE#1", "1"}}), 0u);
    EXPECT_TRUE(parms.IsDirty());
    EXPECT_EQ(Refused({{"one", "2"}}), 0u);
    EXPECT_EQ(parms.Pairs(), (std::vector<KeyValue>{{"ONE", "2"}}));
    // In any order, and under its name as well.
    EXPECT_EQ(Refused({{"TWO", "x"}, {"CUSTOM#2", "TWO"}}), 0u);
    const std::string before = parms.StoreState();
    for (const KeyValue& bad : std::initializer_list<KeyValue>{{"CUSTOM#3", "ONE"},
                                                               {"CUSTOM#3", "TRUCK"},
                                                               {"CUSTOM#3", "three"},
                                                               {"CUSTOM#3", "A B"},
                                                               {"CUSTOM.VALUE#3", "7"},
                                                               {"ONE", "a\r\nUID=1"}}) {
        EXPECT_EQ(Refused({bad}), 1u) << bad.key << "=" << bad.value;
        EXPECT_EQ(parms.StoreState(), before) << bad.value;
    }
    EXPECT_EQ(Refused({{"CUSTOM#3", "three"}, {"three", "3"}}), 1u);
    EXPECT_EQ(parms.StoreState(), before);
    // Of two names for one place the last counts, and it cannot be one.
    EXPECT_EQ(Refused({{"CUSTOM#3", "ONE"}, {"CUSTOM#3", "no"}}), 1u);
    EXPECT_EQ(parms.StoreState(), before);
    // Names change places; a name that goes takes its value along.
    EXPECT_EQ(Refused({{"CUSTOM#1", "TWO"}, {"CUSTOM#2", "ONE"}, {"ONE", "2"}, {"TWO", "x"}}), 0u);
    EXPECT_EQ(parms.Pairs(), (std::vector<KeyValue>{{"TWO", "x"}, {"ONE", "2"}}));
    EXPECT_EQ(Refused({{"CUSTOM#1", ""}}), 0u);
    EXPECT_EQ(parms.StoreState(), "CUSTOM#2=ONE\r\nONE=2\r\n");
    EXPECT_FALSE(parms.Owns("CUSTOM#51"));
}

TEST_F(CustomParms, UndoPutsBackNamesValuesAndOrder) {
    Read(kTwo);
    const auto step = [&](const std::vector<KeyValue>& lines) {
        const std::string before = parms.StoreState();
        const auto state = parms.State();
        ASSERT_EQ(Refused(lines), 0u);
        const std::string after = parms.StoreState();
        const ChangeSet changes = Difference(state, parms.State());
        EXPECT_TRUE(parms.Take(changes.Inverse().Changes(), Check::None).empty());
        EXPECT_EQ(parms.StoreState(), before);
        EXPECT_FALSE(parms.IsDirty());
        EXPECT_TRUE(parms.Take(changes.Changes(), Check::None).empty());
        EXPECT_EQ(parms.StoreState(), after);
        parms.Take(changes.Inverse().Changes(), Check::None);
    };
    step({{"CUSTOM#1", ""}});
    step({{"CUSTOM#2", "NEW"}, {"NEW", "1"}});
    step({{"CUSTOM#1", "LAMP_2"}, {"CUSTOM#3", "BEEPTONE"}});
    step({{"BEEPTONE", ""}, {"LAMP_2", "9"}});
    step({{"CUSTOM#1", "OTHER"}, {"CUSTOM#50", "BEEPTONE"}});
}

}  // namespace
}  // namespace calyx::test
