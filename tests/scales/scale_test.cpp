// One scale: its operations and their errors.

#include "model/scales/scale_codecs.h"
#include "tests/scales/scales_fixture.h"

namespace calyx::test {
namespace {

using namespace scale_kind;

// The error number that an operation raises, 0 for none.
template <class Operation>
int ErrorOf(Operation&& operation) {
    try {
        operation();
    } catch (const Error& error) {
        EXPECT_TRUE(error.Source().starts_with("Calyx.CScale")) << error.Source();
        EXPECT_FALSE(error.Source().ends_with("Parameters")) << "not the operation's name";
        return error.Code();
    }
    return 0;
}

TEST_F(ScalesTest, BeforeInitializeEverythingIsRefused) {
    CScale scale(context);
    EXPECT_EQ(ErrorOf([&] { scale.SetScaleType(2); }), code::kNotInitialised);
    EXPECT_EQ(ErrorOf([&] { scale.AddComponent(1); }), code::kNotInitialised);
    EXPECT_EQ(ErrorOf([&] { scale.GetTextOutput(true); }), code::kNotInitialised);
    EXPECT_EQ(ErrorOf([&] { scale.GetPrintOutput(); }), code::kNotInitialised);
    EXPECT_EQ(ErrorOf([&] { scale.Initialize(33); }), code::kOutOfRange);
    EXPECT_EQ(ErrorOf([&] { scales.Scale(0); }), code::kOutOfRange);
    scale.Initialize(32);
    EXPECT_EQ(scale.GetTextOutput(true), "SC.SRC#32=NONE\r\n");
    EXPECT_EQ(scale.GetCalibrationValues(true), "");
    EXPECT_FALSE(scale.IsDirty());
}

TEST_F(ScalesTest, TheKindDecidesHowManySources) {
    CScale& scale = scales.Scale(6);
    for (const std::int32_t kind : {1, 2, 4}) {
        scale.SetScaleType(kind);
        for (int source = 1; source <= 32; ++source) scale.AddComponent(source);
        EXPECT_EQ(ErrorOf([&] { scale.AddComponent(33); }), code::kOutOfRange);
        EXPECT_EQ(ErrorOf([&] { scale.SetScaleType(kind); }), code::kKindRefused);
        for (int source = 1; source <= 32; ++source) scale.RemoveComponent(source);
        EXPECT_EQ(ErrorOf([&] { scale.RemoveComponent(1); }), code::kOutOfRange);
    }
    for (const std::int32_t kind : {3, 5, 7, 8}) {
        scale.SetScaleType(kind);
        scale.AddComponent(103);
        EXPECT_EQ(ErrorOf([&] { scale.AddComponent(1); }), code::kOutOfRange);
        EXPECT_EQ(scale.Components(1), 103);
        scale.RemoveComponent(103);
        EXPECT_EQ(ErrorOf([&] { scale.Components(1); }), code::kOutOfRange);
    }
    scale.SetScaleType(6);
    EXPECT_EQ(scale.ComponentCount(), 1);
    EXPECT_EQ(scale.Command("SRC"), "P,6");
    EXPECT_EQ(ErrorOf([&] { scale.RemoveComponent(6); }), code::kOutOfRange);
    scale.SetScaleType(2);  // leaves its own source without asking
    EXPECT_EQ(scale.Command("SRC"), "A,");
    for (const std::int32_t kind : {0, 9, -1}) {
        EXPECT_EQ(ErrorOf([&] { scale.SetScaleType(kind); }), code::kOutOfRange) << kind;
    }
}

TEST_F(ScalesTest, AnotherKindBringsItsGraduationsAndCalibration) {
    CScale& scale = scales.Scale(1);
    scale.SetScaleType(kAnalogInput);
    EXPECT_EQ(scale.Values().grads, 1000);
    EXPECT_EQ(scale.GetCalibrationValues(true).substr(0, 56),
              "SC.WVAL#1=5.0\r\nSC.LC.CD#1=33229\r\nSC.LC.CW#1=63840\r\nSC.LC");
    EXPECT_TRUE(scale.IsDirty());
    scale.SetScaleType(kTotal);
    EXPECT_EQ(scale.Values().grads, 10000);
    EXPECT_EQ(scale.Command("WVAL") + scale.Command("LC.CD") + scale.Command("LC.CW"), "000");
    scale.SetCommand("ALIAS", "Bin");
    scale.SetCommand("SRC", "B,3");
    EXPECT_EQ(scale.Command("SRC") + " " + scale.Command("GRADS") + " " + scale.Command("WVAL"),
              "B,3 1000 5.0");
    scale.SetCommand("GRADS", "2000");
    scale.SetCommand("SRC", "B,4");
    EXPECT_EQ(scale.Command("SRC") + " " + scale.Command("GRADS"), "B,4 2000");
    scale.SetCommand("SRC", "NONE");
    EXPECT_EQ(scale.GetIWriteImportDef(), "");
    EXPECT_TRUE(scale.IsValid());
}

TEST_F(ScalesTest, ParametersByNameAndTheirCopyForADialog) {
    CScale& scale = scales.Scale(2);
    scale.SetScaleType(kAnalog);
    const ScaleFields kept = scale.StoreState();
    const CScale copy = scale.Clone();
    scale.SetCommand("PRI.UNITS", "KG");
    scale.SetCommand("MOTBAND", "OFF");
    EXPECT_EQ(scale.Pri_UnitsCommand(), "KG");
    EXPECT_TRUE(scale.IsValid());
    scale.Parameters().fields.zeroRange = -1;
    EXPECT_FALSE(scale.IsValid());
    Dictionary lines("sc.grads#2=5\r\n");
    EXPECT_EQ(
        CScale::FindParameter(lines, "SC.GRADS#2", "7") + CScale::FindParameter(lines, "SC.GRADS#3", "7"),
        "57");
    EXPECT_EQ(scale.Command("MOTBAND"), "0D");
    EXPECT_EQ(copy.Pri_UnitsCommand(), "LB");
    EXPECT_EQ(scale.Pri_DecimalPointCommand() + scale.AnalogInputRangeCommand() + scale.SplitValueCommand(),
              "888888810VOFF");
    EXPECT_EQ(ErrorOf([&] { scale.SetCommand("PRI.UNITS", "STONE"); }), code::kOutOfRange);
    EXPECT_EQ(ErrorOf([&] { scale.SetCommand("NUMWEIGH", "1"); }), code::kOutOfRange);
    EXPECT_EQ(ErrorOf([&] { scale.Command("NOSUCH"); }), code::kOutOfRange);
    scale.RestoreState(kept);
    EXPECT_EQ(scale.Values(), copy.Values());
}

TEST(ScaleValues, BandsAndMultipliersHaveTheirOwnForms) {
    const auto band = [](float value, const Target& target) {
        std::string text;
        kBand<float>.write(text, value, target);
        return text;
    };
    const Target v300{.version = VersionBit("3.00.")}, v301{.version = VersionBit("3.01.")};
    EXPECT_EQ(band(0, v300), "OFF");
    EXPECT_EQ(band(0.5f, v300), "0.5D");
    EXPECT_EQ(band(0, v301), "0D");
    EXPECT_EQ(band(0, Target::Everything()), "0D");
    EXPECT_EQ(band(0, {.version = VersionBit("3.00."), .cb2 = true}), "0D");
    EXPECT_EQ(band(0, {.version = VersionBit("3.11.")}), "OFF");

    std::int16_t divisions = 7;
    EXPECT_EQ(kBand<std::int16_t>.take(divisions, "OFF"), Taken::Whole);
    EXPECT_EQ(divisions, 0);
    EXPECT_EQ(kBand<std::int16_t>.take(divisions, " 3D "), Taken::Whole);
    EXPECT_EQ(kBand<std::int16_t>.take(divisions, "32768D"), Taken::Not);
    EXPECT_EQ(divisions, 3);

    struct Row {
        const char* text;
        const char* written;
        Taken taken;
    };
    for (const Row& row :
         {Row{"0.453592", ".453592", Taken::Whole}, Row{".453592", ".453592", Taken::Whole},
          Row{"2.20462", "2.20462", Taken::Whole}, Row{"1", "1.", Taken::Whole},
          Row{"1.", "1.", Taken::Whole}, Row{"1000", "1000.", Taken::Whole}, Row{"0", "0", Taken::Whole},
          Row{"-0.5", "-.5", Taken::Whole}, Row{"0.45359237", ".4535924", Taken::Part},
          Row{"10.00001", "10.00001", Taken::Whole}, Row{"0.00000001", "0", Taken::Part},
          Row{"100.5kg", "100.5", Taken::Part}}) {
        float value = 0;
        EXPECT_EQ(kMultiplier.take(value, row.text), row.taken) << row.text;
        std::string text;
        kMultiplier.write(text, value, Target::Everything());
        EXPECT_EQ(text, row.written) << row.text;
    }
}

}  // namespace
}  // namespace calyx::test
