// Cells to platforms, platforms to the system, and what is wrong between them.

#include <gtest/gtest.h>

#include "model/junctionboxes/junction_boxes.h"
#include "tests/support/model_fixture.h"

namespace calyx::test {
namespace {

class Assignment : public testing::Test {
  protected:
    TestContext context{CALYX_DATA_DIR};
    CJunctionBoxes boxes{context};
    CJunctionBox& Box() { return boxes.Box(3); }

    void Read(const std::string& lines) {
        Dictionary file(lines);
        ReadReport report;
        boxes.RestoreState(file, report, {3});
    }
    void SetUp() override { Read(""); }
    std::string Cells(std::size_t platform) { return Box().Values().platformCells[platform - 1]; }
    // The keys of the broken rules.
    std::string Broken() {
        std::string keys;
        for (const BrokenRule& rule : boxes.BrokenRules()) {
            EXPECT_EQ(rule.item, 3);
            keys += rule.key + " ";
        }
        return keys;
    }
};

TEST_F(Assignment, ACellBelongsToOnePlatformAtMost) {
    for (const int cell : {4, 1, 2}) Box().AssignLoadCellToPlatform(cell, 1);
    Box().AssignLoadCellToPlatform(1, 1);
    EXPECT_EQ(Cells(1), "1,2,4");
    Box().AssignLoadCellToPlatform(2, 3);
    EXPECT_EQ(Cells(1), "1,4");
    EXPECT_EQ(Cells(3), "2");
    Box().MoveLoadCell(4, 1, 3);
    EXPECT_EQ(Cells(1), "1");
    EXPECT_EQ(Cells(3), "2,4");
    Box().UnassignLoadCellFromPlatform(2, 3);
    Box().UnassignLoadCellFromPlatform(7, 3);
    EXPECT_EQ(Cells(3), "4");
    EXPECT_EQ(Box().PlatformOf(4), 3);
    EXPECT_FALSE(Box().LoadCellUsed(2));
    EXPECT_EQ(Box().PlatformLoadCells(3), std::vector{4});
}

TEST_F(Assignment, NumbersBeyondTheLimitsAreRefusedAndNothingChanges) {
    Box().AssignLoadCellToPlatform(1, 1);
    const auto refuses = [](auto&& operation) {
        try {
            operation();
        } catch (const Error& error) {
            return error.Code() == code::kOutOfRange;
        }
        return false;
    };
    // The configuration 8/0/0/0 has connectors for eight cells.
    EXPECT_TRUE(refuses([&] { Box().AssignLoadCellToPlatform(9, 1); }));
    EXPECT_TRUE(refuses([&] { Box().AssignLoadCellToPlatform(0, 1); }));
    EXPECT_TRUE(refuses([&] { Box().AssignLoadCellToPlatform(1, 5); }));
    EXPECT_TRUE(refuses([&] { Box().MoveLoadCell(2, 1, 2); }));
    EXPECT_TRUE(refuses([&] { Box().MoveLoadCell(1, 1, 0); }));
    EXPECT_TRUE(refuses([&] { Box().AssignPlatformToSystem(5); }));
    EXPECT_TRUE(refuses([&] { Box().AssignPlatformToSystem(1, 2); }));
    EXPECT_TRUE(refuses([&] { Box().LoadCellConnector(17); }));
    EXPECT_EQ(Cells(1), "1");

    CJunctionBox raw(context);
    EXPECT_THROW(raw.AssignPlatformToSystem(1), Error);
    EXPECT_THROW(raw.Initialize(33), Error);
}

TEST_F(Assignment, ConnectorsFollowTheHardwareConfiguration) {
    EXPECT_EQ(Box().AllowedLoadCells().size(), 8u);
    Read("SJ.CONFIG#3=4/4/0/0\r\n");
    EXPECT_EQ(Box().LoadCellConnector(4), "1.4");
    EXPECT_EQ(Box().LoadCellConnector(5), "2.1");
    EXPECT_EQ(Box().LoadCellConnector(9), "");
    Read("SJ.CONFIG#3=8/8/0/0\r\n");
    EXPECT_EQ(Box().AllowedLoadCells().size(), 16u);
    EXPECT_EQ(Box().LoadCellConnector(16), "2.8");
}

TEST_F(Assignment, WhatIsValid) {
    const struct {
        const char* lines;
        bool platform1, system;
        const char* broken;
    } rows[] = {
        {"", false, false, ""},
        {"SJ.PLAT.CELLS.1#3=1,2\r\nSJ.SYS.PLATS.1#3=1\r\n", true, true, ""},
        {"SJ.PLAT.CELLS.1#3=1,2\r\n", true, false, ""},
        {"SJ.PLAT.CELLS.1#3=1,x\r\nSJ.SYS.PLATS.1#3=1\r\n", false, false, "SJ.PLAT.CELLS.1#3 "},
        {"SJ.PLAT.CELLS.1#3=1,1\r\n", false, false, "SJ.PLAT.CELLS.1#3 "},
        {"SJ.PLAT.CELLS.1#3=17\r\n", false, false, "SJ.PLAT.CELLS.1#3 "},
        {"SJ.PLAT.CELLS.1#3=9\r\n", false, false, "SJ.PLAT.CELLS.1#3 "},
        {"SJ.PLAT.CELLS.1#3=1\r\nSJ.PLAT.CELLS.2#3=1,2\r\n", false, false, "SJ.PLAT.CELLS.2#3 "},
        {"SJ.PLAT.CELLS.1#3=1\r\nSJ.SYS.PLATS.1#3=1,2\r\n", true, false, "SJ.SYS.PLATS.1#3 "},
        {"SJ.PLAT.CELLS.1#3=1\r\nSJ.SYS.PLATS.1#3=1,5\r\n", true, false, "SJ.SYS.PLATS.1#3 "},
        {"SJ.LC.TRIM.16#3=x\r\nSJ.DIAG.ZR.%THRH#3=101\r\n", false, false,
         "SJ.LC.TRIM.16#3 SJ.DIAG.ZR.%THRH#3 "},
    };
    for (const auto& row : rows) {
        Read(row.lines);
        EXPECT_EQ(Box().IsPlatformValid(1), row.platform1) << row.lines;
        EXPECT_EQ(Box().IsSystemValid(), row.system) << row.lines;
        EXPECT_EQ(Broken(), row.broken) << row.lines;
    }
}

TEST_F(Assignment, PlatformsOfTheSystem) {
    Box().AssignPlatformToSystem(3);
    Box().AssignPlatformToSystem(1);
    EXPECT_EQ(Box().SystemPlatforms(), (std::vector{1, 3}));
    EXPECT_TRUE(Box().IsPlatformUsedInSystem(3));
    Box().UnAssignPlatformFromSystem(3);
    EXPECT_FALSE(Box().IsPlatformUsedInSystem(3));
    EXPECT_EQ(Box().Values().systemPlatforms, "1");
}

}  // namespace
}  // namespace calyx::test
