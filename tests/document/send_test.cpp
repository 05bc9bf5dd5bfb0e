// What goes to an indicator, step by step.

#include <gtest/gtest.h>

#include "model/document/send_steps.h"
#include "tests/support/model_fixture.h"

namespace calyx::test {
namespace {

constexpr Target kNewest{};

TEST(SendSteps, EveryLineOfASampleGoesOnceOrIsWithheldForAReason) {
    const TestContext context{CALYX_DATA_DIR};
    CIndicator document(context);
    document.LoadText(ReadFile(std::string(CALYX_DATA_DIR) + "/samples/silo.mrn"), "silo");
    std::string sent;
    for (int step = 0; step <= static_cast<int>(SendStep::Database); ++step) {
        sent += LinesOf(document, static_cast<SendStep>(step), kNewest);
    }
    const auto lines = ReadLines(sent);
    const auto all = document.Lines();
    for (const KeyValue& line : all) {
        // VERSION and HARDWARE are the indicator's own, IMAGE is not known to 3.10.
        // The stream definition is port 1's alone.
        const bool ofStream = line.key.starts_with("STR.") || line.key.starts_with("EDP.SFMT");
        const bool stays = line.key == "VERSION" || line.key == "HARDWARE" || line.key == "IMAGE" ||
                           (ofStream && !line.key.ends_with("#1"));
        // A scale of several ranges has lines that stand twice.
        EXPECT_EQ(std::count(lines.begin(), lines.end(), line),
                  stays ? 0 : std::count(all.begin(), all.end(), line))
            << line.key;
    }
}

TEST(SendSteps, CalibrationIsApart) {
    const TestContext context{CALYX_DATA_DIR};
    CIndicator document(context);
    document.LoadText(
        "SC.SRC#1=A,1\r\nSC.GRADS#1=5000\r\nSC.WVAL#1=10\r\nSC.WLIN.F1#1=3\r\nSC.NUMWEIGH#1=7\r\n", "f");
    const std::string scales = LinesOf(document, SendStep::Scales, kNewest);
    EXPECT_NE(scales.find("SC.GRADS#1=5000\r\n"), std::string::npos);
    for (const char* apart : {"SC.WVAL", "SC.LC.", "SC.WLIN", "SC.NUMWEIGH"}) {
        EXPECT_EQ(scales.find(apart), std::string::npos) << apart;
    }
    const std::string calibration = LinesOf(document, SendStep::Calibration, kNewest);
    EXPECT_TRUE(calibration.starts_with("SC.WVAL#1=10\r\nSC.LC.CD#1=0\r\n"));
    EXPECT_EQ(calibration.find("SC.GRADS"), std::string::npos);
}

TEST(SendSteps, JunctionBoxesOnlyWithAPortForThem) {
    const TestContext context{CALYX_DATA_DIR};
    CIndicator document(context);
    document.LoadText("SJ.CONFIG#3=8/0/0/0\r\nEDP.INPUT#3=CMD\r\n", "f");
    EXPECT_EQ(LinesOf(document, SendStep::Vexals, kNewest), "");
    document.LoadText(
        "SJ.CONFIG#3=8/0/0/0\r\nHARDWARE=0,0,0,1,0,0,0,0,0,0,0,0,0,0\r\nedp.input#12= "
        "VEXAL\r\nEDP.INPUT#3=VEXAL\r\n",
        "f");
    const std::string boxes = LinesOf(document, SendStep::Vexals, kNewest);
    EXPECT_TRUE(boxes.starts_with("SJ.CONFIG#3=8/0/0/0\r\n"));
    EXPECT_NE(boxes.find("\r\nSJ.CONFIG#12=8/0/0/0\r\n"), std::string::npos);
    EXPECT_EQ(VexalPorts(document), (std::vector<int>{3, 12}));
}

TEST(SendSteps, OlderFirmwareGetsOneHundredAndTwentyEightWidgets) {
    const TestContext context{CALYX_DATA_DIR};
    CIndicator document(context);
    std::string body;
    for (int i = 1; i <= 130; ++i) body += "WDGT#" + std::to_string(i) + "=1,2,1,1\r\n";
    document.LoadText(body, "f");
    const auto count = [&](const Target& target) {
        const std::string text = LinesOf(document, SendStep::Widgets, target);
        EXPECT_TRUE(text.starts_with("WDGT.CLR\r\nWDGT#1="));
        return ReadLines(text).size();
    };
    EXPECT_EQ(count({.version = VersionBit("3.00.")}), 128u);
    EXPECT_EQ(count({.version = VersionBit("3.05.")}), 130u);
    EXPECT_EQ(count({.version = VersionBit("2.08."), .cb2 = true}), 130u);
}

}  // namespace
}  // namespace calyx::test
