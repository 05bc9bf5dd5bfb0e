#include "model/hardware/hardware.h"

#include <gtest/gtest.h>

#include <functional>

#include "model/language/error.h"
#include "tests/support/model_fixture.h"

namespace calyx::test {
namespace {

class Hardware : public testing::Test {
  protected:
    TestContext context{CALYX_DATA_DIR};
    CHardware hardware{context};
    ReadReport report;

    void SetUp() override { hardware.Initialize(); }
    void Read(const std::string& lines) {
        hardware.Initialize();
        Dictionary file(lines);
        hardware.RestoreState(file, report);
    }
};

using Numbers = std::vector<int>;

TEST_F(Hardware, BeforeInitializeEveryOperationIsRefused) {
    CHardware fresh(context);
    CMemoryCard card(context);
    Dictionary lines("HARDWARE=1,0,0,0,0,0,0,0,0,0,0,0,0,0");
    const std::pair<const char*, std::function<void()>> operations[] = {
        {"CHardware.AddNewCard", [&] { fresh.AddNewCard(1, 1); }},
        {"CHardware.CardType", [&] { fresh.CardType(1); }},
        {"CHardware.CommPort", [&] { fresh.CommPort(1); }},
        {"CHardware.DigitalIO", [&] { fresh.DigitalIO(0); }},
        {"CHardware.RestoreState", [&] { fresh.RestoreState(lines, report); }},
        {"CHardware.StoreState", [&] { fresh.StoreState(); }},
        {"CHardware.GetTextOutput", [&] { fresh.GetTextOutput(true); }},
        {"CHardware.GetPrintOutput", [&] { fresh.GetPrintOutput(); }},
        {"CHardware.UpdateFromIndicator", [&] { fresh.UpdateFromIndicator(""); }},
        {"CMemoryCard.RestoreState", [&] { card.RestoreState(lines, report); }},
        {"CMemoryCard.StoreState", [&] { card.StoreState(); }},
        {"CMemoryCard.Schemas", [&] { card.Schemas(); }},
        {"CMemoryCard.Add", [&] { card.Add("Truck"); }},
    };
    for (const auto& [source, operation] : operations) {
        try {
            operation();
            ADD_FAILURE() << source;
        } catch (const Error& error) {
            EXPECT_EQ(error.Code(), code::kNotInitialised) << source;
            EXPECT_EQ(error.Source(), std::string("Calyx.") + source);
        }
    }
}

TEST_F(Hardware, ANewBoardHasItsOwnPortsAndPoints) {
    EXPECT_EQ(hardware.CommPorts(), (Numbers{1, 2, 3, 4}));
    EXPECT_EQ(hardware.DigitalIOs(), Numbers{0});
    EXPECT_TRUE(hardware.AnalogOutputs().empty());
    EXPECT_FALSE(hardware.ExpansionBoardPresent());
    EXPECT_EQ(hardware.GetTextOutput(true), "HARDWARE=0,0,0,0,0,0,0,0,0,0,0,0,0,0\r\n");
    EXPECT_EQ(hardware.BrokenRules().Count(), 0u);
}

TEST_F(Hardware, CardsBringTheirObjects) {
    struct Row {
        int slot, code;
        Numbers ports, analog, digital;
    };
    const Row rows[] = {
        {1, 1, {5, 6}, {}, {}}, {14, 1, {31, 32}, {}, {}}, {2, 17, {}, {2, 16}, {}},
        {5, 4, {}, {5}, {}},    {9, 5, {}, {}, {9}},       {3, 7, {}, {}, {}},
        {3, 14, {}, {}, {}},    {3, 18, {}, {}, {}},       {3, 2, {}, {}, {}},
    };
    for (const Row& row : rows) {
        hardware.Initialize();
        hardware.AddNewCard(row.slot, row.code);
        Numbers ports{1, 2, 3, 4}, digital{0};
        ports.insert(ports.end(), row.ports.begin(), row.ports.end());
        digital.insert(digital.end(), row.digital.begin(), row.digital.end());
        EXPECT_EQ(hardware.CommPorts(), ports) << row.code;
        EXPECT_EQ(hardware.AnalogOutputs(), row.analog) << row.code;
        EXPECT_EQ(hardware.DigitalIOs(), digital) << row.code;
        EXPECT_EQ(hardware.CardType(row.slot), row.code == 14 ? card::kEmptySlot : row.code);
        hardware.RemoveExistingCard(row.slot);
        EXPECT_EQ(
            hardware.CommPorts().size() + hardware.AnalogOutputs().size() + hardware.DigitalIOs().size(), 5u);
    }
    EXPECT_THROW(hardware.AddNewCard(0, 1), Error);
    EXPECT_THROW(hardware.AddNewCard(15, 1), Error);
    EXPECT_THROW(hardware.CommPort(5), Error);
}

TEST_F(Hardware, TheLineIsReadWholeOrNotAtAll) {
    Read("HARDWARE=1,0,0,0,4,0,0,14,0,0,0,0,0,0\r\nEDP.ALIAS#5=Gate\r\nALG.MAX#5=77\r\nEDP.ALIAS#9=Lost\r\n");
    EXPECT_EQ(hardware.CommPorts(), (Numbers{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(hardware.CommPort(5).Values().alias.View(), "Gate");
    EXPECT_EQ(hardware.AnalogOutput(5).Values().maximum, 77);
    EXPECT_EQ(hardware.CardType(8), 14);  // stays, and brings nothing
    EXPECT_EQ(hardware.GetTextOutput(false), "HARDWARE=1,0,0,0,4,0,0,14,0,0,0,0,0,0\r\n");
    EXPECT_FALSE(hardware.IsDirty());
    const std::string state = hardware.StoreState();
    Read(state);
    EXPECT_EQ(hardware.StoreState(), state);
    for (const char* line : {"HARDWARE=1,0,0,0,0,0,0,0,0,0,0,0,0", "HARDWARE="}) {
        Read(line);
        EXPECT_FALSE(hardware.ExpansionBoardPresent()) << line;
    }
    Read("HARDWARE=1,x,0,0,0,0,0,0,0,0,0,0,0,0");  // what is no number is an empty slot
    EXPECT_EQ(hardware.GetTextOutput(true), "HARDWARE=1,0,0,0,0,0,0,0,0,0,0,0,0,0\r\n");
}

TEST_F(Hardware, StateHasEveryObjectInItsOrder) {
    hardware.AddNewCard(3, card::kDigitalIO);
    hardware.AddNewCard(1, card::kDualSerial);
    hardware.AddNewCard(2, card::kDualAnalogOutput);
    std::string order;
    for (const KeyValue& line : ReadLines(hardware.StoreState())) {
        const bool first = line.key == "HARDWARE" || line.key.starts_with("EDP.ALIAS") ||
                           line.key.starts_with("STR.POS") || line.key.starts_with("ALG.ALIAS") ||
                           line.key.starts_with("DIO.1#");
        if (first)
            order +=
                line.key.substr(0, 3) + line.key.substr(std::min(line.key.find('#'), line.key.size())) + " ";
    }
    EXPECT_EQ(order,
              "HAR EDP#1 STR#1 EDP#2 STR#2 EDP#3 STR#3 EDP#4 STR#4 EDP#5 STR#5 EDP#6 STR#6 ALG#2 ALG#16 "
              "DIO#0 DIO#3 ");
}

TEST_F(Hardware, ACardChangeIsOneStepThatUndoTakesBackWhole) {
    Read("HARDWARE=1,0,0,0,0,0,0,0,0,0,0,0,0,0\r\nEDP.ALIAS#5=Gate\r\nEDP.BAUD#6=1200\r\n");
    const auto before = hardware.State();
    const std::string without = hardware.HardwareWith(1, card::kEmptySlot);
    EXPECT_TRUE(hardware.Take({{"HARDWARE", std::nullopt, without}}, Section::Check::Strict).empty());
    EXPECT_EQ(hardware.CommPorts().size(), 4u);
    EXPECT_TRUE(hardware.IsDirty());
    const ChangeSet changes = Difference(before, hardware.State());
    hardware.Take(changes.Inverse().Changes(), Section::Check::None);
    EXPECT_EQ(hardware.State(), before);
    EXPECT_FALSE(hardware.IsDirty());
    hardware.Take(changes.Changes(), Section::Check::None);
    EXPECT_EQ(hardware.CommPorts().size(), 4u);
    // A card that is put back starts from its defaults.
    hardware.AddNewCard(1, card::kDualSerial);
    EXPECT_EQ(hardware.CommPort(5).Values().alias.View(), "Port5");
    // The channel that a single and a dual card share goes on as it is.
    hardware.AddNewCard(2, card::kAnalogOutput);
    hardware.AnalogOutput(2).SetAlias("Level");
    hardware.AddNewCard(2, card::kDualAnalogOutput);
    EXPECT_EQ(hardware.AnalogOutput(2).Values().alias.View(), "Level");
    EXPECT_FALSE(hardware.Take({{"HARDWARE", std::nullopt, "1,2,3"}}, Section::Check::Strict).empty());
    EXPECT_FALSE(hardware.Take({{"EDP.BAUD#9", std::nullopt, "9600"}}, Section::Check::Strict).empty());
}

TEST_F(Hardware, CopiesAreIndependent) {
    CHardware copy = hardware;
    copy.AddNewCard(1, card::kDualSerial);
    copy.CommPort(1).SetAlias("Other");
    EXPECT_EQ(hardware.CommPorts().size(), 4u);
    EXPECT_EQ(hardware.CommPort(1).Values().alias.View(), "Port1");
    EXPECT_FALSE(hardware.IsDirty());
}

TEST_F(Hardware, WhatTheLinesCannotHoldIsAFinding) {
    struct Row {
        const char *key, *value, *broken;
    };
    Read("HARDWARE=4,0,0,0,0,0,0,0,0,0,0,0,0,0\r\n");
    for (const Row& row : {Row{"EDP.STREAM#1", "CONT", "EDP.STREAM#1"}, Row{"STR.ZERO#2", "C", "STR.ZERO#2"},
                           Row{"ALG.ZERO#1", "0", "ALG.ZERO#1"}, Row{"ALG.MAX#1", "0", "ALG.MAX#1"},
                           Row{"DIO.ALIAS.3#0", "Horn", "DIO.3#0"}}) {
        CHardware changed = hardware;
        EXPECT_TRUE(changed.Take({{row.key, std::nullopt, row.value}}, Section::Check::Strict).empty())
            << row.key;
        const CBrokenRules rules = changed.BrokenRules();
        ASSERT_EQ(rules.Count(), 1u) << row.key;
        EXPECT_EQ(rules.begin()->key, row.broken);
    }
}

TEST_F(Hardware, LiveCardsAreCompared) {
    hardware.AddNewCard(2, 5);
    EXPECT_EQ(hardware.ValidateLiveHardware().Count(), 0u);  // nothing was reported
    hardware.UpdateFromIndicator("0,5,1,0,0,0,0,0,0,0,0,0,0,0");
    EXPECT_EQ(hardware.LiveCardType(3), 1);
    const CBrokenRules rules = hardware.ValidateLiveHardware();
    ASSERT_EQ(rules.Count(), 1u);
    EXPECT_EQ(rules.begin()->item, 3);
    EXPECT_TRUE(hardware.DiffersFromLive(3) && !hardware.DiffersFromLive(2));
    hardware.UpdateFromIndicator("");
    EXPECT_FALSE(hardware.HasLiveCards() || hardware.DiffersFromLive(3));
}

TEST_F(Hardware, ImportBlocksStandInTheirOrder) {
    hardware.AddNewCard(1, card::kDigitalIO);
    hardware.DigitalIO(1).SetAlias(2, "Horn");
    for (int port = 2; port <= 4; ++port) hardware.CommPort(port).SetAlias("");
    EXPECT_EQ(
        hardware.GetIWriteImportDef(),
        "-- Serial Port Aliases\r\nPort1    : constant integer := 1;\r\n-- Analog Output Card Aliases\r\n"
        "-- Digital I/O Aliases\r\nDIOCRD1 : constant integer := 1;\r\nHorn     : constant integer := 2;\r\n"
        "-- Database Type Definitions and Field Aliases\r\n");
}

}  // namespace
}  // namespace calyx::test
