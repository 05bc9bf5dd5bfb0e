// Prompts, soft keys and industrial mode.

#include "model/prompts/prompts.h"

#include <gtest/gtest.h>

#include "model/language/error.h"
#include "model/prompts/industrial_mode.h"
#include "model/prompts/optional_block.h"
#include "model/prompts/soft_keys.h"
#include "tests/support/members.h"
#include "tests/support/model_fixture.h"

namespace calyx::test {
namespace {

class SmallSections : public testing::Test {
  protected:
    TestContext context{CALYX_DATA_DIR};
    ReadReport report;

    template <class F>
    RowItem<F> Block(const RowTable<F>& table, const std::string& lines) {
        RowItem<F> block(table, context);
        block.Initialize();
        Dictionary file(lines);
        RestoreBlock(block, file, report);
        EXPECT_FALSE(block.IsDirty());
        return block;
    }
    static std::string Written(const Item& item) {
        std::string text;
        item.Append(text, Target::Everything());
        return text;
    }
};

TEST_F(SmallSections, PromptsKeepTheirBlanksAndFortyCharacters) {
    CPrompts prompts(context);
    prompts.Initialize();
    const std::string forty(40, 'x');
    Dictionary lines("PROMPT#1= Truck number? \r\nprompt#10=" + forty + "y\r\nPROMPT#11=z\r\n");
    prompts.RestoreState(lines, report);
    std::string text = "PROMPT#1= Truck number? \r\n";
    for (int n = 2; n < 10; ++n) text += "PROMPT#" + std::to_string(n) + "=\r\n";
    EXPECT_EQ(prompts.StoreState(), text + "PROMPT#10=" + forty + "\r\n");
    EXPECT_EQ(prompts.GetTextOutput(false), prompts.StoreState());
    ASSERT_EQ(report.Count(), 1u);
    EXPECT_EQ(report.Notes().front().kind, ReadNote::Kind::Cut);
    EXPECT_EQ(prompts.Prompt(1), " Truck number? ");
    for (const int number : {0, 11}) {
        try {
            (void)prompts.Prompt(number);
            ADD_FAILURE() << number;
        } catch (const Error& error) {
            EXPECT_EQ(error.Code(), 10002);
        }
    }
}

TEST_F(SmallSections, EveryMemberHasARow) {
    ExpectARowForEveryMember(kSoftKeyTable, 1);  // whether the file has such lines
    ExpectARowForEveryMember(kIndustrialModeTable, 1);
}

TEST_F(SmallSections, BlocksAreWrittenOnceTheyHaveContent) {
    EXPECT_EQ(Written(Block(kSoftKeyTable, "UID=1\r\n")), "");
    EXPECT_EQ(Written(Block(kIndustrialModeTable, "UID=1\r\n")), "");

    auto keys = Block(kSoftKeyTable, "SOFTKEY#2=NONE\r\n");
    EXPECT_TRUE(Written(keys).starts_with("SOFTKEY#1=NONE\r\nSOFTKEY#2=NONE\r\n"));
    EXPECT_TRUE(Written(keys).ends_with("SOFTKEY.ORDER#9=9\r\nSOFTKEY.ORDER#10=10\r\n"));
    const std::string plain = Written(keys);
    EXPECT_EQ(Written(Block(kSoftKeyTable, plain)), plain);

    const std::string industrial =
        "INDMODE.ACTIVE=ON\r\nINDMODE.SCREEN=4\r\nINDMODE.LOCK.WEIGH=OFF\r\nINDMODE.LOCK.PRINT=OFF\r\n"
        "INDMODE.LOCK.ARROWS=ON\r\nINDMODE.LOCK.DIGITS=OFF\r\nINDMODE.LOCK.ENTER=OFF\r\n"
        "INDMODE.LOCK.SOFT=ON\r\n";
    EXPECT_EQ(Written(Block(kIndustrialModeTable, industrial)), industrial);

    // Set, and put back.
    auto block = Block(kIndustrialModeTable, "");
    const auto row = *block.Find("INDMODE.LOCK.SOFT");
    block.Take(row, "ON");
    EXPECT_FALSE(Written(block).empty());
    block.Take(row, "OFF");
    EXPECT_TRUE(Written(block).empty());
    keys = Block(kSoftKeyTable, "");
    keys.Take(*keys.Find("SOFTKEY.ORDER#3"), "4");
    EXPECT_FALSE(Written(keys).empty());
}

TEST_F(SmallSections, ASoftKeyStandsAtOnePlace) {
    auto keys = Block(kSoftKeyTable, "SOFTKEY.ORDER#1=2\r\nSOFTKEY.ORDER#2=1\r\n");
    CBrokenRules rules;
    CheckSoftKeys(keys.fields, context, "general", rules);
    EXPECT_EQ(rules.Count(), 0u);
    keys.fields.order[6] = 2;
    CheckSoftKeys(keys.fields, context, "general", rules);
    ASSERT_EQ(rules.Count(), 1u);
    EXPECT_EQ(rules.begin()->key, "SOFTKEY.ORDER#7");
    EXPECT_EQ(rules.begin()->text, context.texts.Format(6131, {"2", "1", "7"}));
}

}  // namespace
}  // namespace calyx::test
