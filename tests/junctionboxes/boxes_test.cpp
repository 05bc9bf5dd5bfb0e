// The junction boxes as a section: their lines, gates, defaults, and how they come and go with the ports.

#include "model/junctionboxes/junction_boxes.h"

#include <gtest/gtest.h>

#include "model/junctionboxes/vexal_ports.h"
#include "tests/support/golden.h"
#include "tests/support/members.h"
#include "tests/support/section_suite.h"

namespace calyx::test {
namespace {

class Boxes : public testing::Test {
  protected:
    TestContext context{CALYX_DATA_DIR};
    CJunctionBoxes boxes{context};
    ReadReport report;

    void Read(const std::string& text, const std::vector<int>& ports) {
        Dictionary lines(text);
        report = {};
        boxes.RestoreState(lines, report, ports);
    }
    std::string Value(const std::string& key) const {
        for (const KeyValue& line : boxes.State()) {
            if (line.key == key) return line.value;
        }
        return "no such line";
    }
};

TEST_F(Boxes, LinesByVersion) {
    Read("", {3});
    ExpectGolden("junctionboxes-versions.txt", VersionMatrix(boxes));
}

TEST_F(Boxes, TheWholeTextOfASiloWithTheDefaultsOfWhatItLeavesOut) {
    Dictionary lines(ReadFile(std::string(CALYX_DATA_DIR) + "/samples/silo.mrn"));
    boxes.RestoreState(lines, report);
    ExpectGolden("junctionboxes-silo.txt", boxes.StoreState());
}

TEST_F(Boxes, LinesOfTheSamplesComeBackAsTheyStand) {
    int found = 0;
    for (const char* name : {"silo", "truck-scale", "batching-plant", "checkweigher-line"}) {
        const std::string text = ReadFile(std::string(CALYX_DATA_DIR) + "/samples/" + name + ".mrn");
        Dictionary lines(text);
        boxes.RestoreState(lines, report);
        const std::string written = boxes.StoreState();
        for (const auto& entry : lines.Entries()) {
            if (!StartsNoCase(entry.key, "SJ.")) continue;
            ++found;
            EXPECT_TRUE(entry.asked) << entry.key;
            const std::string line = std::string(entry.key) + "=" + std::string(entry.value) + "\r\n";
            EXPECT_NE(written.find(line), std::string::npos) << line;
        }
        EXPECT_EQ(written.empty(), std::string(name) != "silo") << name;
    }
    EXPECT_EQ(found, 37);
    EXPECT_TRUE(report.Empty());
}

TEST_F(Boxes, OneForEachExistingPortOfThatInputType) {
    const struct {
        const char* file;
        std::vector<int> ports;
    } rows[] = {
        {"", {}},
        {"EDP.INPUT#3=VEXAL\r\n", {3}},
        {"EDP.INPUT#4= vexal \r\nEDP.INPUT#1=VEXAL\r\nEDP.INPUT#2=CMD\r\n", {1, 4}},
        // Ports 5 and 6 need a dual serial card in slot 1, ports 31 and 32 one in slot 14.
        {"EDP.INPUT#5=VEXAL\r\n", {}},
        {"HARDWARE=1,0,0,0,0,0,0,0,0,0,0,0,0,1\r\nEDP.INPUT#6=VEXAL\r\nEDP.INPUT#7=VEXAL\r\n"
         "EDP.INPUT#32=VEXAL\r\nEDP.INPUT#33=VEXAL\r\n",
         {6, 32}},
        {"HARDWARE=1,1\r\nEDP.INPUT#5=VEXAL\r\n", {}},
    };
    for (const auto& row : rows) {
        Dictionary lines(row.file);
        EXPECT_EQ(VexalPorts(lines), row.ports) << row.file;
        boxes.RestoreState(lines, report);
        EXPECT_EQ(boxes.Ports(), row.ports) << row.file;
    }
}

TEST_F(Boxes, EachBoxReadsItsOwnLinesAndLeavesThoseOfOtherPorts) {
    Dictionary lines("SJ.CONFIG#3=8/8/0/0\r\nSJ.SYS.NAME.1#4=East\r\nSJ.CONFIG#5=4/0/0/0\r\n");
    boxes.RestoreState(lines, report, {3, 4});
    EXPECT_EQ(Value("SJ.CONFIG#3"), "8/8/0/0");
    EXPECT_EQ(Value("SJ.SYS.NAME.1#3"), "System1");
    EXPECT_EQ(Value("SJ.CONFIG#4"), "8/0/0/0");
    EXPECT_EQ(Value("SJ.SYS.NAME.1#4"), "East");
    EXPECT_FALSE(lines.Peek("SJ.CONFIG#5")->asked);
    EXPECT_TRUE(boxes.Owns("sj.lc.id.16#32"));
    for (const char* key : {"SJ.LC.ID.17#3", "SJ.CONFIG#33", "SJ.CONFIG#03", "SJ.CONFIG", "SC.SRC#3"}) {
        EXPECT_FALSE(boxes.Owns(key)) << key;
    }
}

TEST_F(Boxes, NumbersStayAsTheyWereReadAndUnknownWordsBecomeTheDefault) {
    const struct {
        const char *key, *read, *held;
        bool reported;
    } rows[] = {
        {"SJ.LC.SENS.2#3", "2.000", "2.000", false},    {"SJ.LC.SRLNUM.2#3", "B-77 01", "B-77 01", false},
        {"SJ.DIAG.CB.%TOLR#3", "odd", "odd", false},    {"SJ.ALG.FULLSC#3", "80000", "80000", false},
        {"SJ.PLAT.CALMULT.4#3", "1.25", "1.25", false}, {"SJ.PLAT.CELLS.1#3", "1,2, 5", "1,2, 5", false},
        {"SJ.CONFIG#3", "9/9/9/9", "8/0/0/0", true},    {"SJ.SECT_TYPE#3", "ODD", "PAIRED", true},
        {"SJ.PLAT.CALTYPE.3#3", "ODD", "NONE", true},   {"SJ.DIO.8#3", "ODD", "OFF", true},
        {"SJ.DIAG.CE.TYPE#3", "ODD", "MANUAL1", true},  {"SJ.DIAG.CELLBAL#3", "YES", "OFF", true},
        {"SJ.DIAG.TEMPCOMP#3", "ON", "ON", false},
    };
    for (const auto& row : rows) {
        Read(std::string(row.key) + "=" + row.read + "\r\n", {3});
        EXPECT_EQ(Value(row.key), row.held) << row.key;
        EXPECT_EQ(report.Count(), row.reported ? 1u : 0u) << row.key;
        EXPECT_FALSE(boxes.IsDirty()) << row.key;
    }
}

TEST_F(Boxes, TheSerialNumberIsReadAndNeverWritten) {
    Read("SJ.SERIAL_NUMBER#3=4711\r\n", {3});
    EXPECT_EQ(boxes.Box(3).Values().serialNumber, "4711");
    EXPECT_EQ(boxes.StoreState().find("SERIAL_NUMBER"), std::string::npos);
    EXPECT_NE(boxes.GetPrintOutput().find("4711"), std::string::npos);
}

TEST_F(Boxes, EveryParameterIsSetWrittenAndReadBack) {
    Read("", {3});
    std::vector<std::pair<std::string, std::string>> wanted;
    const Item& item = boxes.Box(3).Parameters();
    for (std::size_t row = 0; row < item.RowCount(); ++row) {
        if (item.Info(row).more.use == Use::Line)
            wanted.emplace_back(item.Key(row), OtherText({}, item, row));
        EXPECT_TRUE(context.texts.Has(item.Info(row).more.label)) << item.Key(row);
        EXPECT_TRUE(context.texts.Has(item.Info(row).more.help)) << item.Key(row);
        EXPECT_TRUE(context.texts.Has(item.Info(row).more.group)) << item.Key(row);
    }
    EXPECT_EQ(boxes.BrokenRules().Count(), 0u);
    for (const auto& [key, text] : wanted) {
        Read("", {3});
        const auto before = boxes.State();
        EXPECT_TRUE(boxes.Take({{key, std::nullopt, text}}, Section::Check::Strict).empty()) << key;
        EXPECT_EQ(Value(key), text);
        EXPECT_TRUE(boxes.IsDirty()) << key;
        const auto after = boxes.State();
        boxes.Take(Difference(after, before).Changes(), Section::Check::None);
        EXPECT_FALSE(boxes.IsDirty()) << key;
        Read(key + "=" + text + "\r\n", {3});
        EXPECT_EQ(boxes.State(), after) << key;
    }
}

// The ports belong to another section: here a table stands for it.
class BoxesAndPorts : public Boxes {
  protected:
    std::map<std::string, std::string> inputs{{"EDP.INPUT#3", "VEXAL"}, {"EDP.INPUT#4", "CMD"}};
    ValueOf valueOf = [this](std::string_view key) -> std::optional<std::string> {
        const auto found = inputs.find(std::string(key));
        return found == inputs.end() ? std::nullopt : std::optional(found->second);
    };
};

TEST_F(BoxesAndPorts, TheyComeAndGoWithThePortsAndUndoBringsThemBack) {
    Read("SJ.SYS.NAME.1#3=Silo\r\nSJ.SYS.NAME.1#4=Lost\r\n", {3});
    const auto before = boxes.State();

    boxes.SetPorts({4});
    EXPECT_TRUE(boxes.IsDirty());
    EXPECT_EQ(Value("SJ.SYS.NAME.1#4"), "System1");
    EXPECT_EQ(Value("SJ.CONFIG#3"), "no such line");
    const ChangeSet changes = Difference(before, boxes.State());

    boxes.Take(changes.Inverse().Changes(), Section::Check::None, valueOf);
    EXPECT_EQ(boxes.State(), before);
    EXPECT_FALSE(boxes.IsDirty());

    inputs = {{"EDP.INPUT#3", "CMD"}, {"EDP.INPUT#4", "VEXAL"}};
    boxes.Take(changes.Changes(), Section::Check::None, valueOf);
    EXPECT_EQ(boxes.Ports(), std::vector{4});
    // A port that is no link has no box, whatever lines come.
    EXPECT_EQ(boxes.Take({{"SJ.CONFIG#3", std::nullopt, "4/0/0/0"}}, Section::Check::Strict, valueOf).size(),
              1u);
    EXPECT_EQ(boxes.Ports(), std::vector{4});
}

TEST_F(Boxes, BoxesThatStayKeepTheirContentAndReturningOnesStartAnew) {
    Read("SJ.SYS.NAME.1#3=Silo\r\nSJ.SYS.NAME.1#4=Pit\r\n", {3, 4});
    boxes.SetPorts({3});
    EXPECT_EQ(Value("SJ.SYS.NAME.1#3"), "Silo");
    boxes.SetPorts({4, 3});
    EXPECT_EQ(boxes.Ports(), (std::vector{3, 4}));
    EXPECT_EQ(Value("SJ.SYS.NAME.1#4"), "System1");
    EXPECT_THROW(boxes.SetPorts({33}), Error);
    EXPECT_THROW(boxes.Box(5), Error);
}

TEST_F(Boxes, EveryMemberHasARow) {
    ExpectARowForEveryMember(kBoxTable);
}

}  // namespace
}  // namespace calyx::test
