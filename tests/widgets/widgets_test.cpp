// The array of widgets: its lines, gaps, changes and what is sent.

#include "model/widgets/widgets.h"

#include <gtest/gtest.h>

#include "tests/support/golden.h"
#include "tests/support/model_fixture.h"

namespace calyx::test {
namespace {

class Widgets : public testing::Test {
  protected:
    TestContext context{CALYX_DATA_DIR};
    CWidgets widgets{context};
    ReadReport report;

    void Read(const std::string& text) {
        Dictionary lines(text);
        report = {};
        widgets.Initialize();
        widgets.RestoreState(lines, report);
    }
    void ReadMany(int count) {
        std::string text;
        for (int i = 1; i <= count; ++i) text += "WDGT#" + std::to_string(i) + "=1,0,1,1\r\n";
        Read(text);
    }
    // The numbers that the scale widgets show, in order.
    std::string Shown() const {
        std::string shown;
        for (const int number : widgets.Numbers())
            shown += std::to_string(widgets.widget(number).Values().numberDisplayed) + " ";
        return shown;
    }
};

constexpr const char* kFive =
    "WDGT#1=1,0,1,1\r\nWDGT#2=1,0,2,1\r\nWDGT#3=1,0,3,2\r\nWDGT#4=1,0,4,1\r\nWDGT#5=1,0,5,1\r\n";

TEST_F(Widgets, LinesOfTheSamplesComeBackAsTheyStand) {
    int found = 0;
    for (const char* name : {"silo", "truck-scale", "batching-plant", "checkweigher-line"}) {
        const std::string text = ReadFile(std::string(CALYX_DATA_DIR) + "/samples/" + name + ".mrn");
        std::string wanted;
        for (const KeyValue& line : ReadLines(text)) {
            if (line.key.starts_with("WDGT#")) wanted += line.key + "=" + line.value + "\r\n", ++found;
        }
        Read(text);
        EXPECT_EQ(widgets.StoreState(), wanted) << name;
        EXPECT_TRUE(report.Empty()) << name;
        EXPECT_FALSE(widgets.IsDirty()) << name;
        EXPECT_TRUE(widgets.IsValid()) << name;
    }
    EXPECT_EQ(found, 14);
    ExpectGolden("widgets-checkweigher-listing.txt", widgets.GetPrintOutput());
}

TEST_F(Widgets, GapsAreReadOverAndClosedAndMalformedRecordsReported) {
    Dictionary lines(
        "wdgt#10=1,0,3,1\r\nWDGT#2=1,0,1,1\r\nWDGT#x=1,0,9,1\r\nWDGT#4=9,9\r\nWDGT#07=1,0,9,1\r\n"
        "WDGT#6=1,9,2,1\r\nWDGTS=1\r\n");
    widgets.RestoreState(lines, report);
    EXPECT_EQ(widgets.StoreState(), "WDGT#1=1,0,1,1\r\nWDGT#2=1,0,2,1\r\nWDGT#3=1,0,3,1\r\n");
    EXPECT_FALSE(widgets.IsDirty());
    ASSERT_EQ(report.Count(), 2u);
    EXPECT_EQ(report.Notes()[0].key, "WDGT#4");
    EXPECT_EQ(report.Notes()[0].kind, ReadNote::Kind::NotUnderstood);
    EXPECT_EQ(report.Notes()[1].key, "WDGT#6");
    EXPECT_EQ(report.Notes()[1].became, "1,0,2,1");
    EXPECT_FALSE(lines.Peek("WDGT#x")->asked);
    EXPECT_FALSE(lines.Peek("WDGT#07")->asked);
    EXPECT_TRUE(lines.Peek("WDGT#4")->asked);
}

TEST_F(Widgets, RemovalLeavesAGapUntilTheArrayIsCompacted) {
    Read(kFive);
    widgets.Remove(2);
    EXPECT_EQ(widgets.WidgetCount(), 4);
    EXPECT_THROW(widgets.widget(2), Error);
    EXPECT_EQ(widgets.widget(3).WidgetNumber(), 3);
    EXPECT_TRUE(widgets.StoreState().find("WDGT#4=1,0,5,1") != std::string::npos);
    widgets.CompactWidgetArray();
    EXPECT_EQ(widgets.widget(2).Record(), "1,0,3,2");
    EXPECT_EQ(widgets.widget(2).WidgetNumber(), 2);
    EXPECT_EQ(Shown(), "1 3 4 5 ");
    EXPECT_TRUE(widgets.IsDirty());
    widgets.MarkSaved();
    EXPECT_FALSE(widgets.IsDirty());
    widgets.Move(1, 3);
    EXPECT_EQ(Shown(), "3 4 1 5 ");
    widgets.Move(4, 1);
    EXPECT_EQ(Shown(), "5 3 4 1 ");
    EXPECT_EQ(widgets.widget(4).WidgetNumber(), 4);
    EXPECT_EQ(widgets.OnScreen(2), std::vector{2});
}

TEST_F(Widgets, DifferencesGoForwardsAndBack) {
    Read(kFive);
    const auto before = widgets.State();
    CWidgets edited = widgets;
    edited.Remove(1);
    edited.Remove(4);
    edited.CompactWidgetArray();
    edited.Add(WidgetKind::Symbol, 3);
    edited.Add(WidgetKind::Label, 3);
    edited.Add(WidgetKind::Bitmap, 3);
    const auto after = edited.State();
    const ChangeSet changes = Difference(before, after);

    widgets.Take(changes.Changes(), Section::Check::None);
    EXPECT_EQ(widgets.State(), after);
    EXPECT_TRUE(widgets.IsDirty());
    widgets.Take(changes.Inverse().Changes(), Section::Check::None);
    EXPECT_EQ(widgets.State(), before);
    EXPECT_FALSE(widgets.IsDirty());
    EXPECT_EQ(edited.State(), after);  // copies are independent

    // Nothing left, and back again.
    CWidgets none(context);
    const ChangeSet emptied = Difference(before, none.State());
    widgets.Take(emptied.Changes(), Section::Check::None);
    EXPECT_TRUE(widgets.State().empty());
    EXPECT_TRUE(widgets.IsDirty());
    widgets.Take(emptied.Inverse().Changes(), Section::Check::None);
    EXPECT_EQ(widgets.State(), before);
    EXPECT_FALSE(widgets.IsDirty());
}

TEST_F(Widgets, ChangesByNumberCloseTheGapsThatTheyLeave) {
    using Changes = std::vector<Change>;
    const auto set = [](int number, const char* record) { return Change{WidgetKey(number), {}, record}; };
    const auto drop = [](int number) { return Change{WidgetKey(number), {}, std::nullopt}; };
    const struct {
        const char* name;
        Changes changes;
        const char* shown;
        std::vector<std::string> refused;
    } rows[] = {
        {"a record in its place", {set(2, "1,0,9,1")}, "1 9 3 4 5 ", {}},
        {"another kind in its place", {set(2, "6,0,14,5,,1,0,0,1,1")}, "1 1 3 4 5 ", {}},
        {"one that goes", {drop(2)}, "1 3 4 5 ", {}},
        {"one that goes with one that comes", {drop(2), set(6, "1,0,6,1")}, "1 3 4 5 6 ", {}},
        {"far behind the last", {set(400, "1,0,6,1")}, "1 2 3 4 5 6 ", {}},
        {"malformed in its place", {drop(1), set(5, "1,0")}, "2 3 4 5 ", {"WDGT#5"}},
        {"malformed behind the last", {set(8, "junk"), set(9, "1,0,6,1")}, "1 2 3 4 5 6 ", {"WDGT#8"}},
        {"out of range", {set(3, "1,0,3,21")}, "1 2 3 4 5 ", {"WDGT#3"}},
        {"a line break", {set(3, "1,0,9,1\r\nUID=1")}, "1 2 3 4 5 ", {"WDGT#3"}},
        {"no number", {set(0, "1,0,9,1")}, "1 2 3 4 5 ", {}},
    };
    for (const auto& row : rows) {
        Read(kFive);
        std::vector<std::string> refused;
        for (const Refusal& refusal : widgets.Take(row.changes, Section::Check::Strict)) {
            refused.push_back(refusal.key);
            EXPECT_FALSE(refusal.reason.empty());
        }
        EXPECT_EQ(Shown(), row.shown) << row.name;
        EXPECT_EQ(refused, row.refused) << row.name;
        for (const KeyValue& line : widgets.State()) EXPECT_FALSE(line.value.empty()) << row.name;
    }
}

TEST_F(Widgets, OlderFirmwareGetsTheFirst128) {
    const auto sent = [&](const char* prefix, bool cb2) {
        const TargetVersion target{prefix, cb2};
        return ReadLines(widgets.LinesToSend(target.Gated())).size();  // "WDGT.CLR" is no parameter
    };
    ReadMany(130);
    EXPECT_TRUE(widgets.LinesToSend(Target::Everything()).starts_with("WDGT.CLR\r\nWDGT#1=1,0,1,1\r\n"));
    EXPECT_EQ(sent("2.08.", false), 128u);
    EXPECT_EQ(sent("3.00.", false), 128u);
    EXPECT_EQ(sent("3.11.", false), 128u);
    EXPECT_EQ(sent("2.08.", true), 130u);
    EXPECT_EQ(sent("3.01.", false), 130u);
    EXPECT_EQ(sent("3.05.", false), 130u);
    ReadMany(128);
    EXPECT_EQ(sent("2.08.", false), 128u);
    ReadMany(0);
    EXPECT_EQ(widgets.LinesToSend(Target::Everything()), "WDGT.CLR\r\n");
}

TEST_F(Widgets, ConstantsOfTheImportFile) {
    Read("WDGT#1=1,0,1,1\r\nWDGT#2=6,0,14,5,lampA,1,0,0,1,1\r\nWDGT#3=6,0,14,5,,1,0,0,1,1\r\n");
    EXPECT_EQ(widgets.GetIWriteImportDef(), "-- Widget Aliases\r\nlampA : constant integer := 2;\r\n");
    // The numbers of the lines, also while there is a gap.
    widgets.Remove(1);
    EXPECT_TRUE(widgets.StoreState().starts_with("WDGT#1=6"));
    EXPECT_EQ(widgets.GetIWriteImportDef(), "-- Widget Aliases\r\nlampA : constant integer := 1;\r\n");
}

TEST_F(Widgets, WhatIsWrong) {
    Read(
        "WDGT#1=6,0,14,5,lamp,1,0,0,1,1\r\nWDGT#2=6,0,14,5,while,1,0,0,1,1\r\n"
        "WDGT#3=2,300,14,21,40,0,0,LAMP,1,1\r\nWDGT#4=2,0,224,320,41,0,0,,1,1\r\nWDGT#5=1,0,33,1\r\n"
        "WDGT#6=2,300,224,20,40,0,0,ok,1,1\r\n");
    CBrokenRules rules = widgets.BrokenRules();
    CheckWidgetScales(
        widgets, [](int scale) { return scale == 1; }, context.texts, rules);
    std::vector<int> items;
    for (const BrokenRule& rule : rules) {
        items.push_back(rule.item);
        EXPECT_EQ(rule.key, WidgetKey(rule.item));
        EXPECT_EQ(rule.text.find('#'), std::string::npos) << rule.text;
    }
    EXPECT_EQ(items, (std::vector{2, 3, 3, 4, 5}));
}

}  // namespace
}  // namespace calyx::test
