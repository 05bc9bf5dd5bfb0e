// Edits that bring others about.

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
}

}  // namespace
}  // namespace calyx::test
