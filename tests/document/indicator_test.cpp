// The document as a whole: edits, undo, import file, validation.

#include <gtest/gtest.h>

#include "model/document/history.h"
#include "model/document/indicator.h"
#include "tests/support/model_fixture.h"

namespace calyx::test {
namespace {

class Document : public testing::Test {
  protected:
    TestContext context{CALYX_DATA_DIR};
    CIndicator document{context};
    void SetUp() override { document.Initialize(); }
};

TEST_F(Document, LinesTakenTogetherDecideTogether) {
    // Two words of one lock: the second alone cannot win over the first, both together can.
    ASSERT_TRUE(document.Import({{"ZERONLY", "ON"}}).refused.empty());
    EXPECT_EQ(document.General().Values().keyboardLock, 3);
    EXPECT_EQ(document.Import({{"KYBDLK", "ON"}}).refused.size(), 1u);
    EXPECT_EQ(document.General().Values().keyboardLock, 3);
    const auto both = document.Import({{"KYBDLK", "ON"}, {"ZERONLY", "OFF"}});
    EXPECT_TRUE(both.refused.empty());
    EXPECT_EQ(both.changes.Count(), 2u);
    EXPECT_EQ(document.General().Values().keyboardLock, 2);
    // The choice of the editor page sets both lines.
    ASSERT_TRUE(document.Import({{"KEYBOARDLOCK", "3"}}).refused.empty());
    EXPECT_EQ(document.Value("KYBDLK"), "OFF");
    EXPECT_EQ(document.Value("ZERONLY"), "ON");
}

TEST_F(Document, ImportNamesWhatItRefusesAndTakesTheRest) {
    const auto taken = document.Import({{"uid", "A1"},
                                        {"TRUCK", "truck"},
                                        {"SC.GRADS#1", "5000"},
                                        {"NO.KEY", "1"},
                                        {"LASTCAL", "01012026"}});
    ASSERT_EQ(taken.changes.Count(), 2u);
    EXPECT_EQ(taken.changes.Changes()[0], (Change{"UID", "1", "A1"}));
    EXPECT_EQ(taken.changes.Changes()[1], (Change{"SC.GRADS#1", "10000", "5000"}));
    ASSERT_EQ(taken.refused.size(), 3u);
    EXPECT_EQ(taken.refused[0].reason,
              "Truck mode: \"truck\" is not allowed. Allowed are OFF, MODE1, MODE2, MODE3, MODE4.");
    EXPECT_EQ(taken.refused[1].key, "LASTCAL");
    EXPECT_EQ(taken.refused[2].key, "NO.KEY");
    EXPECT_EQ(document.Import({{"DSPRATE", "1"}}).refused[0].reason,
              "Display rate: 1 is out of range. Allowed are 50 to 5000 ms.");
    EXPECT_EQ(document.Import({{"KLOCK.K0", "ON"}}).refused[0].reason,
              "Key 0: \"ON\" is not understood. Expected is True or False.");
    // A version that opening would reject.
    EXPECT_EQ(document.Import({{"VERSION", "V2.08.01"}}).refused.size(), 1u);
    EXPECT_TRUE(document.Import({{"VERSION", "V3.10.04"}}).refused.empty());
    EXPECT_EQ(document.IndicatorVersion(), "V3.10.04");
}

TEST_F(Document, ALineBreakNeverMakesASecondLine) {
    const std::string before = document.Body();
    for (const KeyValue& line : {KeyValue{"CONTACT.COMPANY", "x\r\nALERT.SERV=9.9.9.9"},
                                 {"UID", "a\rb"},
                                 {"UID", "a\nb"},
                                 {"SP.X#1\r\nSP.KIND#2", "1"},
                                 {"SC.A=B", "1"},
                                 {"", "1"}}) {
        EXPECT_EQ(document.Import({line}).refused.size(), 1u) << line.key;
        ChangeSet changes;
        changes.Add({line.key, std::nullopt, line.value});
        EXPECT_EQ(document.Apply(changes).refused.size(), 1u) << line.key;
        EXPECT_EQ(document.Body(), before);
    }
}

TEST_F(Document, WhatAnIndicatorReportsIsTakenAsAFileIs) {
    const auto taken =
        document.UpdateFromIndicator("LASTCAL=01312026\r\nTRUCK=NEW\r\nDSPRATE=7\r\nUID=X\r\n");
    EXPECT_EQ(document.General().Values().lastCal, (Date{2026, 1, 31}));
    EXPECT_EQ(document.Value("TRUCK"), "OFF");
    EXPECT_EQ(document.Value("DSPRATE"), "7");
    EXPECT_EQ(document.Value("UID"), "X");
    EXPECT_EQ(document.Validate().size(), 1u);
    // A row that is read under another key than it is written.
    document.UpdateFromIndicator("STR.ZERO#1=C\r\nSTR.ZERO2=Y\r\n");
    EXPECT_EQ(*document.Value("STR.ZERO#1") + *document.Value("STR.ZERO#2"), "ZY");
}

TEST_F(Document, FieldbusCardsGoWithTheirSlotsHoweverTheLinesCome) {
    const auto cards = [&] {
        std::string numbers;
        for (int slot = 1; slot <= 14; ++slot) {
            if (document.FieldbusCards().Exists(slot)) numbers += std::to_string(slot) + " ";
        }
        return numbers;
    };
    const std::string begin =
        "HARDWARE=0,8,0,0,0,0,0,0,0,0,0,0,0,0\r\nFB.SIZE#2=32\r\nFB.SIZE#7=64\r\n";  // 7 has no slot
    const struct {
        const char *lines, *cards;
    } cases[] = {
        {"HARDWARE=9,0,0,0,0,0,0,0,0,0,0,0,0,0\r\n", "1 7 "},
        {"HARDWARE=9,13,0,0,0,0,0,0,0,0,0,0,0,x\r\n", "1 2 7 "},
        {"HARDWARE=0,0,0,0,0,0,0,0,0,0,0,0,0,0\r\nHARDWARE=9,9,9,0,0,0,0,0,0,0,0,0,0,0\r\n", "7 "},
        {"FB.BYTESWAP#3=BYTE\r\nHARDWARE=0,0,10,0,0,0,0,0,0,0,0,0,0,0\r\n", "3 7 "},
        {"HARDWARE=9,9,9\r\n", "2 7 "},
        {"UID=1\r\n", "2 7 "},
    };
    for (const auto& one : cases) {
        document.LoadText(begin, "f");
        const std::string before = document.Body();
        const ChangeSet changes = document.UpdateFromIndicator(one.lines).changes;
        EXPECT_EQ(cards(), one.cards) << one.lines;
        document.Apply(changes.Inverse());
        EXPECT_EQ(document.Body(), before) << one.lines;
        document.Apply(changes);
        EXPECT_EQ(cards(), one.cards) << one.lines;
        document.LoadText(begin, "f");
        document.Merge(ReadLines(one.lines));
        EXPECT_EQ(cards(), one.cards) << one.lines;
    }
    document.LoadText(begin, "f");
    EXPECT_EQ(document.UpdateFromIndicator("EDP.ALIAS#9=Gate\r\n").refused.size(), 1u);  // no such port
}

TEST_F(Document, AWholeFileMergedIntoANewDocumentIsThatFile) {
    for (const char* name : {"batching-plant", "checkweigher-line", "silo", "truck-scale"}) {
        CIndicator other(context);
        other.LoadText(ReadFile(std::string(CALYX_DATA_DIR) + "/samples/" + name + ".mrn"), name);
        document.Initialize();
        const auto taken = document.Merge(other.Lines());
        for (const Refusal& refusal : taken.refused) ADD_FAILURE() << refusal.key << " " << refusal.reason;
        EXPECT_EQ(document.Body(), other.Body()) << name;
    }
    // A line that another one decides is told, as it is when it is set.
    EXPECT_EQ(document.Merge({{"EDP.STREAM#2", "CONT"}}).refused.size(), 1u);
    EXPECT_TRUE(document.Merge({{"EDP.STREAM#2", "CONT"}, {"EDP.SOURCE#2", "SCALE1"}}).refused.empty());
    EXPECT_EQ(document.Value("EDP.STREAM#2"), "CONT");
    // What kind a serial scale is, its port says.
    document.Initialize();
    document.Merge({{"SC.SRC#1", "S,2"}, {"EDP.INPUT#2", "IND SC"}});
    EXPECT_EQ(document.Scales().Scale(1).ScaleType(), 8);
}

TEST_F(Document, AliasesAreUniqueAmongAllNamesOfTheImportFile) {
    const std::string cards = "HARDWARE=0,0,5,7,0,0,0,0,0,0,0,0,0,0\r\n";
    const struct {
        const char *lines, *broken;
    } cases[] = {
        {"EDP.ALIAS#1=Gate\r\nDIO.2#3=INPUT\r\nDIO.ALIAS.2#3=gate\r\n", "DIO.ALIAS.2#3"},
        {"EDP.ALIAS#1=DIOCRD3\r\n", ""},  // no constant without a named point
        {"EDP.ALIAS#1=diocrd3\r\nDIO.2#3=INPUT\r\nDIO.ALIAS.2#3=Gate\r\n", "EDP.ALIAS#1"},
        {"EDP.ALIAS#1=ARecord\r\nDB.NAME.1#4=A\r\nDB.FIELD.1.1#4=f\r\n", "EDP.ALIAS#1"},
    };
    for (const auto& one : cases) {
        document.LoadText(cards + one.lines, "f");
        std::string broken;
        for (const BrokenRule& rule : document.Validate()) broken += rule.key;
        EXPECT_EQ(broken, one.broken) << one.lines;
    }
}

TEST_F(Document, AnEditElsewhereLeavesBlanksOfAFieldAlone) {
    document.LoadText("ALERT.PHONE= 555 \r\nUID=ABCDEFGH    \r\nTRUCK=          MODE1\r\n", "f");
    EXPECT_EQ(document.Value("TRUCK"), "MODE1");
    const ChangeSet changes = document.Import({{"CONSNUM", "5"}}).changes;
    document.Apply(changes.Inverse());
    EXPECT_FALSE(document.IsDirty());
    document.Import({{"TRUCK", "bad"}});
    EXPECT_FALSE(document.IsDirty());
}

TEST_F(Document, InstalledCardsAreComparedSlotBySlot) {
    document.LoadText("HARDWARE=1,0,5,0,0,0,0,0,0,0,0,0,0,0\r\n", "f");
    EXPECT_TRUE(document.ValidateLiveHardware("UID=1\r\nHARDWARE=1,0,5,0,0,0,0,0,0,0,0,0,0,0\r\n").empty());
    const auto rules = document.ValidateLiveHardware("HARDWARE=1,7,5,0,0,0,0,0,0,0,0,0,0,4\r\n");
    ASSERT_EQ(rules.size(), 2u);
    EXPECT_EQ(rules[0].text,
              "Slot 2: this configuration has the card \"Empty\", the indicator reports \"Memory\".");
    EXPECT_EQ(rules[1].item, 14);
}

TEST_F(Document, AValueLongerThanItsFieldIsCutAndSaidSo) {
    const auto taken = document.Import({{"UID", "ABCDEFGHIJ"}});
    EXPECT_EQ(document.Value("UID"), "ABCDEFGH");
    EXPECT_EQ(taken.refused.size(), 1u);
}

TEST_F(Document, UndoRestoresWhatTheFileDoesNotHold) {
    History history;
    const auto edit = [&](std::vector<KeyValue> lines, std::string join = {}) {
        history.Record("step", document.Import(lines).changes, std::move(join));
    };
    const std::string begin = document.Body();
    edit({{"GRAVADJ", "ON"}});
    edit({{"LAT.LOC", "5"}}, "LAT.LOC");
    edit({{"LAT.LOC", "52"}}, "LAT.LOC");  // typed on: one step
    edit({{"GRAVADJ", "OFF"}});            // hides the latitude, does not forget it
    edit({{"PROMPT#1", "Truck?"}});
    const std::string end = document.Body();
    EXPECT_EQ(document.Value("LAT.LOC"), "52");

    int steps = 0;
    while (history.Undo(document) != nullptr) ++steps;
    EXPECT_EQ(steps, 4);
    EXPECT_EQ(document.Body(), begin);
    EXPECT_FALSE(document.IsDirty());
    while (history.Redo(document) != nullptr) {
    }
    EXPECT_EQ(document.Body(), end);
    EXPECT_EQ(document.Value("LAT.LOC"), "52");

    // A new edit ends the steps that could be redone; typing back to the start leaves no step.
    history.Undo(document);
    edit({{"UID", "2"}}, "UID");
    EXPECT_EQ(history.NextRedo(), nullptr);
    edit({{"UID", "1"}}, "UID");
    EXPECT_NE(history.NextUndo()->joinKey, "UID");
    // A sealed step is not joined by what follows an edit that came to nothing.
    edit({{"UID", "A"}}, "UID");
    history.Seal();
    edit({{"UID", "B"}}, "UID");
    edit({{"UID", "A"}}, "UID");
    edit({{"UID", "C"}}, "UID");
    history.Undo(document);
    EXPECT_EQ(document.Value("UID"), "A");
}

TEST_F(Document, ACustomParameterComesWithItsValueAndNeverWithAnothersName) {
    EXPECT_TRUE(document.Import({{"CUSTOM#1", "BEEP"}, {"BEEP", "3"}}).refused.empty());
    EXPECT_TRUE(document.Import({{"LAMP", "ON"}, {"CUSTOM#5", "LAMP"}}).refused.empty());
    EXPECT_EQ(document.CustomParms().Pairs(), (std::vector<KeyValue>{{"BEEP", "3"}, {"LAMP", "ON"}}));
    EXPECT_EQ(document.Import({{"CUSTOM#2", "TRUCK"}, {"TRUCK", "MODE1"}}).refused.size(), 1u);
    EXPECT_EQ(document.Value("TRUCK"), "MODE1");
    // All lines of a file at once, places and values apart.
    CIndicator other(context);
    other.Initialize();
    EXPECT_TRUE(other.Import(document.Lines()).refused.empty());
    EXPECT_EQ(other.Body(), document.Body());
}

TEST_F(Document, WhatPortsAndCardsBringComesBackWithThem) {
    History history;
    const std::string begin = document.Body();
    const auto edit = [&](std::vector<KeyValue> lines) {
        const auto taken = document.Import(lines);
        EXPECT_TRUE(taken.refused.empty()) << lines[0].key;
        history.Record("step", taken.changes, {});
    };
    edit({{"SJ.CONFIG#5", "8/8/0/0"},
          {"EDP.INPUT#5", "VEXAL"},
          {"DB.TYPE.1.2#3", "REAL"},
          {"DB.FIELD.1.2#3", "Wgt"},
          {"DB.NAME.2#3", "Log"},
          {"HARDWARE", "1,0,7,0,0,0,0,0,0,0,0,0,0,0"}});
    const std::string with = document.Body();
    EXPECT_EQ(document.Value("SJ.CONFIG#5"), "8/8/0/0");
    edit({{"HARDWARE", "0,0,0,0,0,0,0,0,0,0,0,0,0,0"}});
    EXPECT_EQ(document.Body(), begin);
    history.Undo(document);
    EXPECT_EQ(document.Body(), with);
    history.Undo(document);
    EXPECT_EQ(document.Body(), begin);
    EXPECT_FALSE(document.IsDirty());
    history.Redo(document);
    EXPECT_EQ(document.Body(), with);
}

TEST_F(Document, ARefusedRecordLosesNothing) {
    EXPECT_EQ(document.Import({{"WDGT#3", "1,0,1"}}).refused.size(), 1u);
    EXPECT_TRUE(document.NotKept({"WDGT#3"}).empty());
}

TEST_F(Document, CopiesAreIndependent) {
    CIndicator copy = document;
    ASSERT_TRUE(copy.Import({{"UID", "COPY"}, {"SC.ALIAS#1", "x"}}).refused.empty());
    EXPECT_EQ(document.Value("UID"), "1");
    EXPECT_FALSE(document.IsDirty());
    EXPECT_TRUE(copy.IsDirty());
}

TEST_F(Document, BrokenRulesNameTheField) {
    document.LoadText("ALERT.SERV=10.20.0.256\r\nCONTACT.EMAIL=no address\r\nDSPRATE=7\r\nLAT.LOC=95\r\n",
                      "f");
    const auto rules = document.Validate();
    ASSERT_EQ(rules.size(), 3u);  // the latitude is not in use
    for (const BrokenRule& rule : rules) {
        EXPECT_EQ(rule.section, "general");
        EXPECT_NE(document.OwnerOf(rule.key), nullptr);
        EXPECT_FALSE(rule.text.starts_with('#'));
    }
}

TEST_F(Document, KeyLocksAreWrittenOnceTheyHaveContent) {
    EXPECT_EQ(document.Body().find("KLOCK."), std::string::npos);
    EXPECT_TRUE(document.General().BuildKeyLockCommands().starts_with(
        "KLOCK.KZERO=False\r\nKLOCK.KGROSSNET=False\r\n"));
    ASSERT_TRUE(document.Import({{"KLOCK.K9", "True"}}).refused.empty());
    EXPECT_NE(document.Body().find("ALERT.PHONE=\r\nKLOCK.KZERO=False\r\n"), std::string::npos);
    EXPECT_NE(document.Body().find("KLOCK.K8=False\r\nKLOCK.K9=True\r\n"), std::string::npos);
    // Read from a file they stay, though nothing is locked.
    document.LoadText("KLOCK.KTARE=False\r\nSOFTKEY#1=SCREEN\r\n", "f");
    EXPECT_NE(document.Body().find("KLOCK.K9=False\r\nSOFTKEY#1=SCREEN\r\n"), std::string::npos);
}

TEST_F(Document, ImportFileNamesTheItems) {
    document.LoadText(
        "EDP.ALIAS#2=Keybd\r\nSC.SRC#10=A,1\r\nSC.ALIAS#10=Ten\r\nSC.SRC#2=A,2\r\nSC.ALIAS#2=Two\r\nSC.SRC#3="
        "A,3\r\n"
        "SC.ALIAS#3=\r\nSP.KIND#1=GROSS\r\nSP.ALIAS#1=Green\r\n",
        "a.mrn");
    document.GenerateImportFile("a.inc");
    const std::string rule(49, '-');
    EXPECT_EQ(
        context.memory.files["a.inc"],
        rule + "\r\n-- Used with Calyx Configuration File\r\n-- a.mrn\r\n" + rule +
            "\r\n-- Scale Aliases\r\nTwo : constant integer := 2;\r\nTen : constant integer := 10;\r\n"
            "-- Setpoint Aliases\r\nGreen : constant integer := 1;\r\n-- Widget Aliases\r\n"
            "-- Serial Port Aliases\r\nCom1     : constant integer := 1;\r\nKeybd    : constant integer "
            ":= 2;\r\nCom3     : constant integer := 3;\r\nCom4     : constant integer := 4;\r\n"
            "-- Analog Output Card Aliases\r\n-- Digital I/O Aliases\r\n"
            "-- Database Type Definitions and Field Aliases\r\n");
}

TEST_F(Document, ChangeSetsJoinAndKeepTheOrderOfLines) {
    const std::vector<KeyValue> before{{"A", "1"}, {"B", "2"}, {"C", "3"}};
    const std::vector<KeyValue> after{{"a", "1"}, {"N", "9"}, {"C", "4"}, {"Z", "0"}};
    const ChangeSet changes = Difference(before, after);
    ChangeSet expected;
    expected.Add({"B", "2", std::nullopt});
    expected.Add({"N", std::nullopt, "9"});
    expected.Add({"C", "3", "4"});
    expected.Add({"Z", std::nullopt, "0"});
    EXPECT_EQ(changes, expected);
    EXPECT_TRUE(changes.Then(changes.Inverse()).Empty());
}

}  // namespace
}  // namespace calyx::test
