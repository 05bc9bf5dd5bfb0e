// The source line, and the kind that it makes of a scale.

#include "tests/scales/scales_fixture.h"

namespace calyx::test {
namespace {

using namespace scale_kind;
using Sources = std::vector<std::int32_t>;

TEST_F(ScalesTest, SourcesAreReadThroughTheInputTypeOfThePort) {
    struct Row {
        std::string line;
        std::int32_t kind;
        Sources sources;
        std::string written;
        bool told;  // something of it was not taken as given
    };
    std::string most = "A", tooMany = "A";
    Sources all;
    for (int i = 1; i <= 33; ++i) {
        tooMany += "," + std::to_string(i);
        if (i <= 32) all.push_back(i);
        if (i == 32) most = tooMany;
    }
    const Row rows[] = {
        {"A,1,2", kAnalog, {1, 2}, "A,1,2", false},
        {" T,1,2,3 ", kTotal, {1, 2, 3}, "T,1,2,3", false},
        {"B,4", kAnalogInput, {4}, "B,4", false},
        {"P,4", kProgrammable, {4}, "P,4", false},
        {"P", kProgrammable, {4}, "P,4", false},
        {"P,9", kProgrammable, {4}, "P,4", true},
        {"NONE", kNone, {}, "NONE", false},
        {"A,", kAnalog, {}, "A,", false},
        {"A,1,,x,2y", kAnalog, {1, 2}, "A,1,2", true},
        {most, kAnalog, all, most, false},
        {tooMany, kNone, {}, "NONE", true},

        // One letter, three kinds.
        {"S,5", kSerial, {5}, "S,5", false},
        {"S,6", kIndustrial, {6}, "S,6", false},
        {"S,5,6", kSerial, {5}, "S,5", true},
        {"S,3.1", kVexal, {103}, "S,3.1", false},
        {"S,3.2", kVexal, {203}, "S,3.2", false},
        {"S,3.4", kVexal, {403}, "S,3.4", false},
        {"S,3.7", kVexal, {103}, "S,3.1", true},
        {"S,1", kNone, {}, "NONE", true},    // another input type
        {"S,2.1", kNone, {}, "NONE", true},  // no such port
        {"S,", kNone, {}, "NONE", true},
        {"Q,12.3", kVexal, {312}, "S,12.3", false},  // an older letter

        {"a,1", kNone, {}, "NONE", true},
        {"X,1", kNone, {}, "NONE", true},
        {"", kNone, {}, "NONE", true},
    };
    for (const Row& row : rows) {
        Read("SC.SRC#4=" + row.line + "\r\n");
        const CScale& scale = scales.Scale(4);
        EXPECT_EQ(scale.ScaleType(), row.kind) << row.line;
        const ScaleFields& fields = scale.Values();
        EXPECT_EQ(Sources(fields.sources.begin(), fields.sources.begin() + fields.sourceCount), row.sources)
            << row.line;
        EXPECT_EQ(Value("SC.SRC#4"), row.written) << row.line;
        EXPECT_EQ(!report.Empty(), row.told) << row.line;
    }
}

TEST_F(ScalesTest, APortThatCannotBeReadIsNoPort) {
    EXPECT_EQ(KindOfSource("S,x", InputOf), kNone);
    EXPECT_EQ(KindOfSource("S", InputOf), kNone);
}

TEST_F(ScalesTest, OfAScaleThatIsNotConfiguredNothingElseIsRead) {
    Read("SC.SRC#1=A,1\r\nSC.GRADS#1=5000\r\n");
    Dictionary file(
        "SC.SRC#1=S,9\r\nSC.GRADS#1=1\r\nSC.MAX_WEIGHT#1=7\r\nSC.GRADS#2=2\r\nSC.SRC#3=S,1\r\n"
        "SC.SRC#4=S\r\nSC.SRC#5=X,1\r\nEDP.INPUT#1=CMD\r\n");
    report = {};
    scales.RestoreState(file, report);
    EXPECT_EQ(Value("SC.GRADS#1"), "5000");
    EXPECT_EQ(Value("SC.GRADS#2"), "10000");
    EXPECT_FALSE(scales.IsDirty());
    std::string told;
    for (const ReadNote& note : report.Notes()) {
        told += note.key + (note.kind == ReadNote::Kind::NotWritten ? " not written\n"
                                                                    : " became " + note.became + "\n");
        told += note.reason;
    }
    EXPECT_EQ(told, "SC.SRC#1 became NONE\n" + context.texts.Format(42002, {"9"}) +
                        "SC.GRADS#1 not written\nSC.GRADS#2 not written\nSC.SRC#3 became NONE\n" +
                        context.texts.Format(42003, {"1", "CMD"}) + "SC.SRC#4 became NONE\n" +
                        context.texts.Text(42004) + "SC.SRC#5 became NONE\n");
    for (const Dictionary::Entry& entry : file.Entries())
        EXPECT_EQ(entry.asked, entry.key != "EDP.INPUT#1") << entry.key;
}

TEST_F(ScalesTest, UndoKeepsTheKindWhereTheLineSaysTooLittle) {
    // "S,5" is a serial scale before and an industrial one after; what port 5 is now does not count.
    Read("SC.SRC#1=S,5\r\nSC.SRC#2=S,3.1\r\n");
    const auto before = scales.State();
    EXPECT_TRUE(Set({{"SC.KIND#1", "3", "8"}, {"SC.SRC#1", "S,5", "S,5"}, {"SC.KIND#2", "5", "3"}}).empty());
    const auto after = scales.State();
    EXPECT_EQ(scales.Scale(1).ScaleType(), kIndustrial);
    EXPECT_EQ(Value("SC.SRC#1"), "S,5");
    EXPECT_EQ(Value("SC.SRC#2"), "S,");
    const ChangeSet step = Difference(before, after);
    scales.Take(step.Inverse().Changes(), Section::Check::None);
    EXPECT_EQ(scales.State(), before);
    scales.Take(step.Changes(), Section::Check::None);
    EXPECT_EQ(scales.State(), after);
}

}  // namespace
}  // namespace calyx::test
