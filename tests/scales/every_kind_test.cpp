// What holds for every parameter of every kind of scale.

#include <algorithm>

#include "tests/scales/scales_fixture.h"
#include "tests/support/members.h"
#include "tests/support/section_suite.h"

namespace calyx::test {
namespace {

struct KindCase {
    const char* name;
    const char* lines;
};
void PrintTo(const KindCase& kind, std::ostream* out) {
    *out << kind.name;
}

const SectionCase kNoCase{
    .name = "scales", .make = {}, .others = {{"SC.ROC.MULT#1", "2.5"}}};  // it is one at first

class EveryKind : public ScalesTest, public testing::WithParamInterface<KindCase> {
  protected:
    void SetUp() override { Read(GetParam().lines); }

    // Runs `check` for the rows that the scale writes, the source excepted.
    template <class Check>
    void ForEveryLine(Check&& check) {
        RowItem<ScaleFields>& item = scales.Scale(1).Parameters();
        const std::vector<bool> written = item.WrittenRows();
        for (std::size_t row = 0; row < item.RowCount(); ++row) {
            if (written[row] && item.Info(row).stem != "SRC") check(item, row);
        }
    }
};

TEST_P(EveryKind, EveryParameterIsSetWrittenReadBackAndTakenBack) {
    const CScale& scale = scales.Scale(1);
    const ScaleFields start = scale.StoreState();
    const auto before = scales.State();
    CScales read(context);
    ForEveryLine([&](const Item& item, std::size_t row) {
        const std::string key = item.Key(row), text = OtherText(kNoCase, item, row);
        EXPECT_TRUE(Set(key, text).empty()) << key << "=" << text;
        EXPECT_TRUE(scales.IsDirty()) << key;

        Dictionary file(kPorts + scales.StoreState());
        ReadReport again;
        read.RestoreState(file, again);
        EXPECT_EQ(read.Scale(1).Values(), scale.Values()) << key;
        EXPECT_TRUE(again.Empty()) << key;
        EXPECT_FALSE(read.IsDirty()) << key;

        const ChangeSet step = Difference(before, scales.State());
        scales.Take(step.Inverse().Changes(), Section::Check::None);
        EXPECT_EQ(scale.Values(), start) << key;
        EXPECT_FALSE(scales.IsDirty()) << key;
    });
}

TEST_P(EveryKind, WhatIsNotAllowedIsRefusedWhenSetAndInitialWhenRead) {
    CScales read(context);
    ForEveryLine([&](const Item& item, std::size_t row) {
        if (item.List(row) == nullptr && item.Info(row).kind == ValueKind::Text) return;
        const std::string key = item.Key(row);
        EXPECT_EQ(Set(key, "?").size(), 1u) << key;
        EXPECT_FALSE(scales.IsDirty()) << key;
        if (item.Info(row).kind == ValueKind::Switch) return;         // anything but "ON" is off
        Dictionary file(kPorts + key + "=?\r\n" + GetParam().lines);  // of two lines the first counts
        ReadReport odd;
        read.RestoreState(file, odd);
        EXPECT_EQ(odd.Count(), 1u) << key;
        EXPECT_EQ(read.Scale(1).Parameters().Text(row), item.InitialText(row)) << key;
    });
}

INSTANTIATE_TEST_SUITE_P(
    Scales, EveryKind,
    testing::Values(KindCase{"analog", "SC.SRC#1=A,1,2\r\nSC.SPLIT#1=3RANGE\r\n"},
                    KindCase{"serial", "SC.SRC#1=S,5\r\n"}, KindCase{"total", "SC.SRC#1=T,2,3\r\n"},
                    KindCase{"vexal", "SC.SRC#1=S,3.2\r\nSC.SPLIT#1=2INTVL\r\n"},
                    KindCase{"programmable", "SC.SRC#1=P,1\r\n"},
                    KindCase{"voltage", "SC.SRC#1=B,4\r\nSC.INPRNG#1=100MV\r\nSC.SPLIT#1=2RANGE\r\n"},
                    KindCase{"current", "SC.SRC#1=B,4\r\nSC.INPRNG#1=20MA\r\n"},
                    KindCase{"thermocouple", "SC.SRC#1=B,4\r\nSC.INPRNG#1=THERM\r\n"},
                    KindCase{"industrial", "SC.SRC#1=S,6\r\n"}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(ScalesTest, InitialValuesStandInTheirListsAndHaveLabelAndHelp) {
    const RowItem<ScaleFields>& item = scales.Scale(7).Parameters();
    for (std::size_t row = 0; row < item.RowCount(); ++row) {
        const More& more = item.Info(row).more;
        EXPECT_EQ(item.Text(row), item.InitialText(row)) << item.Key(row);
        EXPECT_EQ(item.Info(row).HasList(), item.List(row) != nullptr) << item.Key(row);
        if (item.List(row) != nullptr) {
            EXPECT_TRUE(item.List(row)->ValidateItem(item.Text(row))) << item.Key(row);
        }
        EXPECT_TRUE(context.texts.Has(more.label) && context.texts.Has(more.help) &&
                    context.texts.Has(more.group))
            << item.Key(row);
    }
    EXPECT_EQ(scales.BrokenRules().Count(), 0u);
    EXPECT_FALSE(scales.IsDirty());
}

TEST_F(ScalesTest, EveryMemberHasARow) {
    // Number, sources, their count and the kind stand behind the rows of kind and source, which name none.
    ExpectARowForEveryMember(kScaleTable, 3);
}

}  // namespace
}  // namespace calyx::test
