// What is wrong with scales.

#include "model/scales/scale_checks.h"
#include "tests/scales/scales_fixture.h"

namespace calyx::test {
namespace {

const std::string kTotalRule =
    "Total Scales can only contain Analog Scales, Industrial Serial Scales, and Vexal Scales";

TEST_F(ScalesTest, SoundScalesBreakNoRule) {
    Read(
        "SC.SRC#1=A,1\r\nSC.SRC#2=S,6\r\nSC.SRC#3=S,3.1\r\nSC.SRC#4=T,1,2,3\r\nSC.SRC#5=S,5\r\nSC.SRC#6="
        "P\r\n");
    EXPECT_EQ(scales.Validate(InputOf), "");
    EXPECT_TRUE(scales.IsValid());
}

TEST_F(ScalesTest, TotalsOfWhatCannotBeAdded) {
    Read("SC.SRC#1=S,5\r\nSC.SRC#2=P\r\nSC.SRC#3=B,1\r\nSC.SRC#7=T,1,2,3\r\nSC.SRC#8=T,9,40\r\n");
    EXPECT_EQ(scales.Validate(InputOf), kTotalRule + " ( #7)|" + context.texts.Format(3403, {"9"}) +
                                            " ( #8)|" + context.texts.Format(3404, {"40"}) + " ( #8)|" +
                                            kTotalRule + " ( #8)");
    const CBrokenRules rules = scales.BrokenRules();
    EXPECT_EQ(*rules.begin(), (BrokenRule{"scales", 7, "SC.SRC#7", kTotalRule}));
    EXPECT_TRUE(scales.IsValid(1));
    EXPECT_FALSE(scales.IsValid(8));
}

TEST_F(ScalesTest, TotalsInACircle) {
    Read(
        "SC.SRC#1=A,1\r\nSC.SRC#2=T,1,3\r\nSC.SRC#3=T,4\r\nSC.SRC#4=T,2\r\nSC.SRC#5=T,5\r\nSC.SRC#6=T,2\r\n");
    std::string circles;
    for (const BrokenRule& rule : scales.BrokenRules()) {
        if (rule.text == context.texts.Text(3402)) circles += std::to_string(rule.item);
    }
    EXPECT_EQ(circles, "2345");  // 6 leads into a circle and is not part of it
}

TEST_F(ScalesTest, SourcesAndAliases) {
    Read(
        "SC.SRC#1=A,\r\nSC.SRC#2=A,1\r\nSC.ALIAS#2=while\r\nSC.SRC#3=A,2\r\nSC.ALIAS#3=\r\nSC.LC.CD#3="
        "8x\r\n");
    std::string keys;
    for (const BrokenRule& rule : scales.BrokenRules()) keys += rule.key + " ";
    EXPECT_EQ(keys, "SC.ALIAS#2 SC.LC.CD#3 SC.SRC#1 ");
    // One that is not configured has no line for its alias.
    EXPECT_TRUE(Set("SC.ALIAS#4", "Bin").empty());
    keys.clear();
    for (const BrokenRule& rule : scales.BrokenRules()) keys += rule.key + " ";
    EXPECT_EQ(keys, "SC.ALIAS#2 SC.LC.CD#3 SC.SRC#1 SC.ALIAS#4 ");
}

TEST_F(ScalesTest, NoNumberIsTooLargeAndNoneMayBeNegative) {
    for (const auto& [key, large] : {std::pair{"GRADS", "10000000"},
                                     {"ZTRKBND", "5000D"},
                                     {"ZRANGE", "250%"},
                                     {"MOTBAND", "32000D"},
                                     {"SSTIME", "70000"},
                                     {"SEC.MULT", "20000000."},
                                     {"ROC.INTERVL", "70000"},
                                     {"ROC.REFRESH", "70000"},
                                     {"WMTTHRH", "20000000"},
                                     {"RANGE1.MAX", "20000000"}}) {
        const std::string line = "SC." + std::string(key) + "#1";
        Read("SC.SRC#1=A,1\r\nSC.SPLIT#1=2RANGE\r\n" + line + "=" + large + "\r\n");
        EXPECT_TRUE(report.Empty()) << key;
        EXPECT_EQ(Value(line), large);
        EXPECT_EQ(scales.BrokenRules().Count(), 0u) << key;
        EXPECT_TRUE(Set(line, large).empty()) << key;
        Read("SC.SRC#1=A,1\r\nSC.SPLIT#1=2RANGE\r\n" + line + "=-" + large + "\r\n");
        const CBrokenRules rules = scales.BrokenRules();
        ASSERT_EQ(rules.Count(), 1u) << key;
        EXPECT_EQ(rules.begin()->key, line);
        EXPECT_FALSE(scales.IsValid(1));
    }
}

TEST_F(ScalesTest, ABarInAValueSeparatesNoFindings) {
    Read("SC.SRC#2=A,1\r\nSC.ALIAS#2=a|b\r\n");
    EXPECT_NE(scales.BrokenRules().begin()->text.find("a|b"), std::string::npos);
    EXPECT_EQ(scales.Validate(InputOf).find('|'), std::string::npos);
}

TEST_F(ScalesTest, PortsMustFitTheKind) {
    Read("SC.SRC#1=S,5\r\nSC.SRC#2=S,6\r\nSC.SRC#3=S,3.1\r\n");
    const auto found = [&](const PortInput& inputOf) {
        CBrokenRules rules;
        CheckScalePorts(scales, inputOf, context.texts, rules);
        std::vector<std::string> texts;
        for (const BrokenRule& rule : rules) texts.push_back(rule.text);
        return texts;
    };
    EXPECT_TRUE(found(InputOf).empty());
    EXPECT_EQ(found([](int) { return ""; }),
              (std::vector{context.texts.Format(3406, {"5"}), context.texts.Format(3406, {"6"}),
                           context.texts.Format(3406, {"3"})}));
    EXPECT_EQ(found([](int port) { return port == 3 ? "CMD" : "SCALE"; }),
              (std::vector{context.texts.Format(3411, {"6", "SCALE", "IND SC", "Serial Scale"}),
                           context.texts.Format(3407, {"3", "CMD", "VEXAL"})}));
    EXPECT_NE(scales.Validate([](int) { return ""; }).find("come back as not configured"), std::string::npos);
}

}  // namespace
}  // namespace calyx::test
