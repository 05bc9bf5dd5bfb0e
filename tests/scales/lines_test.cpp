// The lines of whole configurations: by version, as printed, for programs, and those of the samples.

#include "tests/scales/scales_fixture.h"
#include "tests/support/golden.h"

namespace calyx::test {
namespace {

// One scale of every kind, and of every input range.
const char* const kOneOfEach =
    "SC.SRC#1=A,1,2\r\nSC.SPLIT#1=2RANGE\r\nSC.ALIAS#1=Hopper\r\nSC.MOTBAND#1=OFF\r\n"
    "SC.NUMWEIGH#1=17\r\nSC.MAX_WEIGHT#1=812.5\r\nSC.MAX_DATE#1=4/5/2027\r\n"
    "SC.SRC#2=S,5\r\nSC.SRC#3=T,1,4\r\nSC.SRC#4=S,3.2\r\nSC.SPLIT#4=3INTVL\r\n"
    "SC.SRC#5=P,5\r\nSC.ALIAS#5=\r\nSC.SRC#6=B,1\r\nSC.SRC#7=B,2\r\nSC.INPRNG#7=20MA\r\n"
    "SC.SRC#8=B,3\r\nSC.INPRNG#8=THERM\r\nSC.SRC#9=S,6\r\n";

TEST_F(ScalesTest, LinesByVersion) {
    Read(kOneOfEach);
    ExpectGolden("scales-versions.txt", VersionMatrix(scales));
}

TEST_F(ScalesTest, CalibrationByVersion) {
    struct CalibrationOf : CScales {
        explicit CalibrationOf(const CScales& all) : CScales(all) {}
        void AppendText(std::string& out, const Target& target) const override {
            AppendCalibration(out, target);
        }
    };
    Read("SC.SRC#1=A,1\r\n");
    ExpectGolden("scales-calibration-versions.txt", VersionMatrix(CalibrationOf(scales)));
}

TEST_F(ScalesTest, TheFile) {
    Read(kOneOfEach);
    ExpectGolden("scales-file.txt", scales.StoreState());
}

TEST_F(ScalesTest, ThePrintedListing) {
    EXPECT_EQ(scales.GetPrintOutput(), "");
    Read(kOneOfEach);
    ExpectGolden("scales-print.txt", scales.GetPrintOutput());
}

TEST_F(ScalesTest, AFreshConfigurationHasNothingButEmptySources) {
    std::string expected;
    for (int number = 1; number <= 32; ++number) expected += "SC.SRC#" + std::to_string(number) + "=NONE\r\n";
    EXPECT_EQ(scales.StoreState(), expected);
    EXPECT_EQ(scales.GetTextOutput(false), expected);
    EXPECT_EQ(scales.GetCalibrationValues(true), "");
}

TEST_F(ScalesTest, AliasesBecomeConstants) {
    EXPECT_EQ(scales.GetIWriteImportDef(), "-- Scale Aliases\r\n");
    Read("SC.SRC#2=A,1\r\nSC.SRC#9=A,2\r\nSC.ALIAS#9= Bin \r\nSC.SRC#10=A,3\r\nSC.ALIAS#10=\r\n");
    EXPECT_EQ(scales.GetIWriteImportDef(),
              "-- Scale Aliases\r\nScale2 : constant integer := 2;\r\nBin : constant integer := 9;\r\n");
}

TEST_F(ScalesTest, StatisticsAreReadAndNeverWritten) {
    Read(kOneOfEach);
    EXPECT_EQ(scales.Scale(1).Values().maxWeightDate, (Date{2027, 4, 5}));
    EXPECT_EQ(scales.StoreState().find("MAX_"), std::string::npos);
    EXPECT_TRUE(report.Empty());  // nothing is lost: the indicator keeps them
    Read("SC.SRC#1=A,1\r\nSC.MAX_DATE#1=31/12/2027\r\n");
    EXPECT_TRUE(scales.Scale(1).Values().maxWeightDate.Empty());
}

class Samples : public ScalesTest, public testing::WithParamInterface<const char*> {};

TEST_P(Samples, EveryScaleLineComesBack) {
    const std::string text = ReadFile(std::string(CALYX_DATA_DIR) + "/samples/" + GetParam());
    Dictionary file(text);
    scales.RestoreState(file, report);
    EXPECT_TRUE(report.Empty());
    const auto written = ReadLines(scales.StoreState());
    std::size_t lines = 0;
    for (KeyValue line : ReadLines(text)) {
        if (!line.key.starts_with("SC.")) continue;
        ++lines;
        // The point of a multiplier is always written.
        if (line.key == "SC.SEC.MULT#1" && line.value == "1000") line.value = "1000.";
        EXPECT_NE(std::find(written.begin(), written.end(), line), written.end())
            << line.key << "=" << line.value;
    }
    EXPECT_GT(lines, 20u);
    EXPECT_EQ(scales.Validate([&](int port) {
        const auto* entry = file.Peek("EDP.INPUT#" + std::to_string(port));
        return entry == nullptr ? std::string() : std::string(entry->value);
    }),
              "");
}

INSTANTIATE_TEST_SUITE_P(Scales, Samples,
                         testing::Values("batching-plant.mrn", "checkweigher-line.mrn", "silo.mrn",
                                         "truck-scale.mrn"));

}  // namespace
}  // namespace calyx::test
