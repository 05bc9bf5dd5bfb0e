#include <gtest/gtest.h>

#include "model/cards/analog_out.h"
#include "model/cards/digital_io.h"
#include "model/cards/fieldbus_cards.h"
#include "tests/support/error_code.h"
#include "tests/support/members.h"
#include "tests/support/model_fixture.h"

namespace calyx::test {
namespace {

class Cards : public testing::Test {
  protected:
    TestContext context{CALYX_DATA_DIR};
    ReadReport report;

    template <class Object>
    std::string Sent(const Object& object, const char* version, bool cb2 = false) {
        context.target = {version, cb2};
        return object.GetTextOutput(false);
    }
};

TEST_F(Cards, AnalogOutputWritesItsDefaultsGatesAndCalibration) {
    CAnalogOut output(context);
    EXPECT_EQ(CodeOf([&] { output.GetTextOutput(true); }), code::kNotInitialised);
    EXPECT_EQ(CodeOf([&] { output.Initialize(29); }), code::kOutOfRange);
    output.Initialize(16);
    EXPECT_EQ(output.Position(), 2);
    const std::string base =
        "ALG.ALIAS#16=\r\nALG.SOURCE#16=PROG\r\nALG.MODE#16=GROSS\r\nALG.OFFSET#16=0%\r\nALG.ERRACT#16="
        "ZEROSC\r\n"
        "ALG.MIN#16=0\r\nALG.MAX#16=10000\r\n";
    const std::string calibration = "ALG.ZERO#16=40\r\nALG.SPAN#16=59650\r\n";
    EXPECT_EQ(Sent(output, "3.07."), base + calibration);
    EXPECT_EQ(Sent(output, "3.08."), base + "ALG.MINNEG#16=OFF\r\nALG.MAXNEG#16=OFF\r\n" + calibration);

    Dictionary file(
        "ALG.SOURCE#16=SCALE3\r\nALG.ZERO#16=0\r\nALG.MODE#16=SIDEWAYS\r\nALG.ALIAS#16=Level\r\n");
    output.RestoreState(file, report);
    EXPECT_EQ(output.Values().source, 3);
    EXPECT_EQ(output.Values().mode.View(), "GROSS");
    EXPECT_EQ(output.StoreState().find("ALG.SPAN"), std::string::npos);
    EXPECT_EQ(output.GetIWriteImportDef(), "Level : constant integer := 16;\r\n");
    for (const char* source : {"PROG", "0"}) {
        Dictionary again(std::string("ALG.SOURCE#16=") + source);
        output.RestoreState(again, report);
        EXPECT_EQ(output.Values().source, 0);
    }
    ExpectARowForEveryMember(kAnalogTable);
}

TEST_F(Cards, DigitalPointsAreReadWrittenAndNamed) {
    CDigitalIO board(context), card(context);
    EXPECT_EQ(CodeOf([&] { board.NumberOfPoints(); }), code::kNotInitialised);
    EXPECT_EQ(CodeOf([&] { board.SetAlias(9, "x"); }), code::kNotInitialised);
    EXPECT_EQ(CodeOf([&] { board.GetIWriteImportDef(); }), code::kNotInitialised);
    EXPECT_EQ(CodeOf([&] { board.Initialize(15); }), code::kOutOfRange);
    board.Initialize(0);
    card.Initialize(4);
    EXPECT_EQ(board.NumberOfPoints(), 8);
    EXPECT_EQ(card.NumberOfPoints(), 24);
    Dictionary file(
        "DIO.1#4=PRINT\r\nDIO.ALIAS.1#4= Print "
        "\r\nDIO.24#4=OUTPUT\r\nDIO.ALIAS.24#4=Horn\r\nDIO.2#4=DANCE\r\n");
    card.RestoreState(file, report);
    EXPECT_EQ(card.PointDefinition(1), "PRINT");
    EXPECT_EQ(card.PointDefinition(2), "OFF");
    EXPECT_EQ(card.PointDefinitionCommand(1), "DIO.1#4=PRINT");
    const std::string lines = Sent(card, "1.00.");
    EXPECT_TRUE(
        lines.starts_with("DIO.1#4=PRINT\r\nDIO.ALIAS.1#4=Print\r\nDIO.2#4=OFF\r\nDIO.ALIAS.2#4=\r\n"));
    EXPECT_TRUE(lines.ends_with("DIO.24#4=OUTPUT\r\nDIO.ALIAS.24#4=Horn\r\n"));
    EXPECT_EQ(card.GetIWriteImportDef(),
              "DIOCRD4 : constant integer := 4;\r\nPrint    : constant integer := 1;\r\n"
              "Horn     : constant integer := 24;\r\n");
    EXPECT_EQ(board.GetIWriteImportDef(), "");
    EXPECT_EQ(CodeOf([&] { board.SetAlias(9, "x"); }), code::kOutOfRange);
    EXPECT_EQ(CodeOf([&] { board.SetAlias(1, "1x"); }), code::kAliasRefused);
    EXPECT_EQ(CodeOf([&] { board.SetPointDefinition(1, "DANCE"); }), code::kOutOfRange);
    card.SetAlias(2, "Bell");
    EXPECT_TRUE(card.IsDirty() && card.IsValid() && !board.IsDirty());
    card.ReloadDefaults();
    EXPECT_EQ(card.StoreState().find("PRINT"), std::string::npos);
    ExpectARowForEveryMember(kCardDigitalTable);
}

TEST_F(Cards, FieldbusCardHasTwoFormsOfByteSwap) {
    CFieldbusCard card(context);
    card.Initialize(1);
    struct Row {
        const char *version, *value, *swap;
        bool cb2 = false;
    };
    for (const Row& row :
         {Row{"3.06.", "NONE", ""}, Row{"3.07.", "NONE", "NO"}, Row{"3.08.", "WORD", "YES"},
          Row{"3.09.", "NONE", "NONE"}, Row{"3.10.", "WORD", "WORD"}, Row{"2.00.", "WORD", "YES", true},
          Row{"3.09.", "WORD", "WORD", true}, Row{"3.11.", "NONE", ""}, Row{"3.11.", "NONE", "NONE", true},
          Row{"3.08.", "NONE", "NO", true}}) {
        Dictionary file(std::string("FB.BYTESWAP#1=") + row.value);
        card.RestoreState(file, report);
        const std::string expected =
            *row.swap == 0 ? "" : std::string("FB.SIZE#1=8\r\nFB.BYTESWAP#1=") + row.swap + "\r\n";
        EXPECT_EQ(Sent(card, row.version, row.cb2), expected) << row.version << row.value;
    }
    struct Read {
        const char *value, *swap;
    };
    for (const Read& row :
         {Read{"NO", "NONE"}, Read{"YES", "BYTE"}, Read{"BOTH", "BOTH"}, Read{"MAYBE", "NONE"}}) {
        Dictionary file(std::string("FB.BYTESWAP#1=") + row.value);
        card.RestoreState(file, report);
        EXPECT_EQ(card.Values().swapByte.View(), row.swap) << row.value;
    }
}

TEST_F(Cards, FieldbusCardsComeAndGoWithTheirLines) {
    CFieldbusCards cards(context);
    cards.Initialize();
    Dictionary file("FB.SIZE#3=64\r\nFB.BYTESWAP#15=BYTE\r\n");
    cards.RestoreState(file, report);
    EXPECT_TRUE(cards.Exists(3));
    EXPECT_FALSE(cards.Exists(1) || cards.Exists(15));
    EXPECT_FALSE(cards.IsDirty());
    EXPECT_EQ(cards.StoreState(), "FB.SIZE#3=64\r\nFB.BYTESWAP#3=NONE\r\n");
    EXPECT_EQ(cards.GetPrintOutput(),
              "Fieldbus Cards\r\nFieldbus Card #3\r\n  Size: 64 bytes\r\n  Byte Swap: None\r\n");

    // Any whole number is a size.
    EXPECT_TRUE(cards.Take({{"FB.SIZE#3", std::nullopt, "2048"}}, Section::Check::Strict).empty());
    EXPECT_EQ(cards.BrokenRules().Count(), 0u);
    EXPECT_TRUE(cards.Take({{"FB.SIZE#3", std::nullopt, "64"}}, Section::Check::Strict).empty());
    const auto before = cards.State();
    EXPECT_TRUE(cards.Take(cards.Adding(7), Section::Check::Strict).empty());
    const auto removing = cards.Removing(3);
    EXPECT_TRUE(cards.Take(removing, Section::Check::None).empty());
    EXPECT_TRUE(cards.Exists(7) && !cards.Exists(3) && cards.IsDirty());
    const ChangeSet changes = Difference(before, cards.State());
    cards.Take(changes.Inverse().Changes(), Section::Check::None);
    EXPECT_EQ(cards.State(), before);
    EXPECT_FALSE(cards.IsDirty());
    cards.Take(changes.Changes(), Section::Check::None);
    EXPECT_TRUE(cards.Exists(7) && !cards.Exists(3));
}

}  // namespace
}  // namespace calyx::test
