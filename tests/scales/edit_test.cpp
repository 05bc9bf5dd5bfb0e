// Edits that bring others about.

#include "model/scales/scale_edits.h"
#include "tests/scales/scales_fixture.h"

namespace calyx::test {
namespace {

using namespace scale_kind;

TEST_F(ScalesTest, ASourceBringsItsKind) {
    struct Row {
        const char* before;
        const char* source;
        std::int32_t kind;
        const char* stands;
    };
    const Row rows[] = {
        {"NONE", "A,1,2", kAnalog, "A,1,2"},
        {"NONE", "S,5", kSerial, "S,5"},
        {"NONE", "S,6", kIndustrial, "S,6"},
        {"S,5", "S,6", kIndustrial, "S,6"},
        {"NONE", "S,3.1", kVexal, "S,3.1"},
        {"A,1", "P,1", kProgrammable, "P,1"},
        {"A,1", "NONE", kNone, "NONE"},
        // The port does not fit: as the scale was, else as the form suggests.
        {"S,6", "S,1", kIndustrial, "S,1"},
        {"NONE", "S,1", kSerial, "S,1"},
        {"S,5", "S,2.1", kVexal, "S,2.1"},
        // Not understood: nothing changes.
        {"A,1", "B,x", kAnalog, "A,1"},
        {"A,1", "X,2", kAnalog, "A,1"},
    };
    for (const Row& row : rows) {
        Read(std::string("SC.SRC#1=") + row.before + "\r\n");
        const auto before = scales.State();
        const bool refused = !Set("SC.SRC#1", row.source).empty();
        EXPECT_EQ(scales.Scale(1).ScaleType(), row.kind) << row.source;
        EXPECT_EQ(Value("SC.SRC#1"), row.stands) << row.source;
        EXPECT_EQ(refused, Value("SC.SRC#1") != row.source) << row.source;
        if (refused) {
            EXPECT_EQ(scales.State(), before) << row.source;
        }
    }
}

TEST_F(ScalesTest, AKindClearsTheSourcesAndBringsItsValues) {
    Read("SC.SRC#1=A,1,2\r\nSC.ALIAS#1=Bin\r\nSC.GRADS#1=5000\r\nSC.WVAL#1=20\r\nSC.SSTIME#1=30\r\n");
    const auto before = scales.State();
    EXPECT_TRUE(Set("SC.KIND#1", "7").empty());
    EXPECT_EQ(Value("SC.SRC#1"), "B,");
    EXPECT_EQ(Value("SC.GRADS#1") + " " + Value("SC.LC.CD#1") + " " + Value("SC.LC.CW#1") + " " +
                  Value("SC.WVAL#1"),
              "1000 33229 63840 5.0");
    EXPECT_EQ(Value("SC.SSTIME#1"), "30");
    EXPECT_EQ(Value("SC.ALIAS#1"), "Bin");
    EXPECT_TRUE(Set("SC.KIND#1", "1").empty());
    EXPECT_EQ(Value("SC.ALIAS#1"), "");
    const ChangeSet step = Difference(before, scales.State());
    scales.Take(step.Inverse().Changes(), Section::Check::None);
    EXPECT_EQ(scales.State(), before);

    // What is named in the same step is not decided by the kind, in any order.
    EXPECT_TRUE(Set({{"SC.GRADS#1", "5000", "3000"}, {"sc.src#1", "A,1,2", "T,3,4"}, {"SC.KIND#1", "2", "4"}})
                    .empty());
    EXPECT_EQ(Value("SC.SRC#1") + " " + Value("SC.GRADS#1") + " " + Value("SC.WVAL#1"), "T,3,4 3000 0");
}

TEST_F(ScalesTest, AKindThatContradictsTheSourceIsTold) {
    EXPECT_EQ(Set({{"SC.KIND#1", "1", "2"}, {"SC.SRC#1", "NONE", "T,3"}}).size(), 1u);
    EXPECT_EQ(scales.Scale(1).ScaleType(), kTotal);
    EXPECT_EQ(Set("SC.KIND#1", "9").size(), 1u);
    EXPECT_EQ(scales.Scale(1).ScaleType(), kTotal);
}

TEST_F(ScalesTest, LinesOfAnIndicatorAreTakenAsAFileIsRead) {
    EXPECT_TRUE(Set({{"SC.SRC#1", {}, "S,6"}, {"SC.SRC#2", {}, "S,3.4"}, {"SC.ALIAS#2", {}, "Silo"}},
                    Section::Check::Lenient)
                    .empty());
    EXPECT_EQ(scales.Scale(1).ScaleType(), kIndustrial);
    EXPECT_EQ(scales.Scale(2).ScaleType(), kVexal);
    EXPECT_EQ(Set({{"SC.SRC#3", {}, "A,1,x"}}, Section::Check::Lenient).size(), 1u);
    EXPECT_EQ(Value("SC.SRC#3"), "A,1");
    // A line that comes twice counts once, as in a file.
    EXPECT_TRUE(Set({{"SC.SRC#4", {}, "S,3.2"}, {"SC.PRI.UNITS#4", {}, "KG"}, {"sc.pri.units#4", {}, "G"}},
                    Section::Check::Lenient)
                    .empty());
    EXPECT_EQ(Value("SC.PRI.UNITS#4"), "KG");
}

TEST_F(ScalesTest, LinesThatWereCopiedComeInElsewhere) {
    const std::string file =
        "SC.SRC#1=A,1\r\nSC.ALIAS#1=Bin\r\nSC.WVAL#1=20\r\nSC.SRC#2=S,6\r\nSC.SRC#3=T,1,2,9\r\nSC.SRC#4="
        "P,4\r\nSC.SRC#5=NONE\r\nSC.SRC#6=A,2\r\nSC.MAX_WEIGHT#6=7\r\n";
    Read(file);
    const auto before = scales.State();
    const auto sources = [&](int first, int last) {
        std::string all;
        for (int number = first; number <= last; ++number) all += scales.Scale(number).Command("SRC") + " ";
        return all;
    };
    const auto take = [&](const std::vector<Change>& changes) {
        EXPECT_TRUE(scales.Take(changes, Section::Check::None).empty());
        EXPECT_TRUE(Difference(before, scales.State()).Changes() == changes);
    };
    take(PasteScales(scales, CopyScales(scales, {1, 2, 3, 4}, true), 6, InputOf).changes);
    EXPECT_EQ(sources(1, 9), "A,1 S,6 T,1,2,9 P,4 NONE A,1 S,6 T,6,7,9 P,9 ");
    EXPECT_EQ(Value("SC.WVAL#6") + Value("SC.ALIAS#6") + Value("SC.MAX_WEIGHT#6"), "207");
    EXPECT_EQ(scales.Scale(7).ScaleType(), kIndustrial);
    Read(file);

    // Without the port, the line of the kind decides, else the form of the source.
    const auto noPorts = [](int) { return std::string(); };
    EXPECT_TRUE(
        Set(PasteScales(scales, CopyScales(scales, {2}, true), 8, noPorts).changes, Section::Check::None)
            .empty());
    EXPECT_EQ(scales.Scale(8).ScaleType(), kIndustrial);
    EXPECT_TRUE(
        Set(PasteScales(scales, CopyScales(scales, {2}, false), 9, noPorts).changes, Section::Check::None)
            .empty());
    EXPECT_EQ(scales.Scale(9).ScaleType(), kSerial);
    EXPECT_TRUE(Set(ClearScale(scales, 1), Section::Check::None).empty());
    EXPECT_EQ(sources(1, 1) + Value("SC.ALIAS#1"), "NONE ");
    // One that is not configured clears the place.
    EXPECT_FALSE(PasteScales(scales, CopyScales(scales, {5}, true), 3, InputOf).changes.empty());

    EXPECT_EQ(PasteScales(scales, "SC.GRADS#1=5\r\n", 1, InputOf).count, 0);
    const auto beyond = PasteScales(scales, CopyScales(scales, {3, 4}, true), 32, InputOf);
    EXPECT_EQ(beyond.count, 2);
    EXPECT_TRUE(beyond.changes.empty());
}

}  // namespace
}  // namespace calyx::test
