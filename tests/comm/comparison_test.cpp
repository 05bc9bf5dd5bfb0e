// What differs between a document and what an indicator says that it holds.

#include "comm/comparison.h"

#include <gtest/gtest.h>

#include "tests/support/model_fixture.h"

namespace calyx::test {
namespace {

struct ComparisonTest : testing::Test {
    TestContext context{CALYX_DATA_DIR};
    CIndicator document{context};
    unsigned groups = download_option::kUsual;
    Target target;

    ComparisonTest() {
        document.LoadText("UID=GATE\r\nCFGPWD=12\r\nTRUCK=OFF\r\nSC.WVAL#1=10\r\nPROMPT#1=Name\r\n", "test");
    }
    // "KEY: before -> after" for each change, "-" for no line.
    std::string Compared(const std::string& dump) const {
        std::string text;
        const ChangeSet changes = AgainstIndicator(document, Held(context, dump, "test"), groups, target);
        for (const Change& change : changes.Changes()) {
            text +=
                change.key + ": " + change.before.value_or("-") + " -> " + change.after.value_or("-") + "\n";
        }
        return text;
    }
    // The dump of an indicator that took all that was sent.
    std::string Dump() const {
        std::string dump = "VERSION=V3.10.02\r\n";
        for (const KeyValue& line : SentLines(document, groups, target))
            dump += line.key + "=" + line.value + "\r\n";
        return dump;
    }
};

TEST_F(ComparisonTest, TheIndicatorsOwnLinesCount) {
    const struct {
        const char *sent, *holds, *differs;
    } cases[] = {
        {"UID=GATE", "UID=GATE", ""},
        {"UID=GATE", "uid=GATE", ""},
        {"UID=GATE", "", "UID: GATE -> -\n"},
        {"UID=GATE", "UID=", "UID: GATE -> \n"},
        {"UID=GATE", "UID=OTHER\r\nUID=GATE", "UID: GATE -> OTHER\n"},
        // Another way of writing the same is no difference; what is only half understood is one.
        {"CFGPWD=12", "CFGPWD= 0012 ", ""},
        {"CFGPWD=12", "CFGPWD=12x", "CFGPWD: 12 -> 12x\n"},
        // Read as a document both would become the default, which is what was sent.
        {"TRUCK=OFF", "TRUCK=MODE9", "TRUCK: OFF -> MODE9\n"},
        {"TRUCK=OFF", "NOSUCH=1", "TRUCK: OFF -> -\n"},
        // Lines that only the indicator has, in the groups and outside.
        {"PROMPT#1=Name", "PROMPT#1=Name\r\nWDGT#1=1,2,1,1", "WDGT#1: - -> 1,2,1,1\n"},
        {"PROMPT#1=Name", "PROMPT#1=Name\r\nSC.WVAL#1=99", ""},
    };
    for (const auto& c : cases) {
        std::string dump = Dump();
        const std::size_t at = dump.find(std::string(c.sent) + "\r\n");
        ASSERT_NE(at, std::string::npos) << c.sent;
        EXPECT_EQ(Compared(dump.replace(at, std::string(c.sent).size(), c.holds)), c.differs) << c.holds;
    }
}

TEST_F(ComparisonTest, AnIndicatorThatHoldsNothingLacksEveryLine) {
    groups |= download_option::chkCalibration;
    const auto sent = SentLines(document, groups, target);
    ASSERT_GT(sent.size(), 20u);
    const Held held(context, "VERSION=V3.10.02\r\n", "test");
    const ChangeSet changes = AgainstIndicator(document, held, groups, target);
    ASSERT_EQ(changes.Count(), sent.size());
    for (const Change& change : changes.Changes()) EXPECT_EQ(change.after, std::nullopt) << change.key;
}

}  // namespace
}  // namespace calyx::test
