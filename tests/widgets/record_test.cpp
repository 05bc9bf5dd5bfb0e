// The records of the six kinds, both ways, and the classes over them.

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "model/widgets/widget_line.h"
#include "model/widgets/widget_record.h"
#include "tests/support/members.h"
#include "tests/support/model_fixture.h"

namespace calyx::test {
namespace {

class Records : public testing::Test {
  protected:
    TestContext context{CALYX_DATA_DIR};
    std::shared_ptr<const WidgetPatterns> patterns = std::make_shared<WidgetPatterns>(context);
    WidgetLine line{patterns, 1};

    std::string Property(const std::string& name) const {
        const Item& item = line.Widget()->Properties();
        const auto row = item.Find(name);
        return row ? item.Text(*row) : "none";
    }
};

TEST_F(Records, FieldsInOrderWithTheOffsetOfTopBothWays) {
    // A value for each property, all different where they can be.
    const std::map<std::string, std::string> values{
        {"Style", "2"},         {"NumberDisplayed", "7"}, {"ScreenNumber", "20"},  {"Left", "11"},
        {"Top", "0"},           {"Width", "33"},          {"Height", "44"},        {"BorderStyle", "5"},
        {"Name", "nm"},         {"Visible", "2"},         {"Graduations", "2"},    {"Orientation", "6"},
        {"DataSource", "101"},  {"DataField", "102"},     {"DataSubField", "103"}, {"Caption", "a, b"},
        {"Justification", "3"}, {"FontSize", "8"}};
    const struct {
        WidgetKind kind;
        const char* record;
    } rows[] = {{WidgetKind::Scale, "1,2,7,20"},
                {WidgetKind::Bitmap, "2,11,14,33,44,5,2,nm,2,20"},
                {WidgetKind::Bargraph, "3,11,14,33,44,5,2,2,6,nm,101,102,103,2,20"},
                {WidgetKind::Label, "4,11,14,33,a, b,5,3,8,nm,101,102,103,2,20"},
                {WidgetKind::Numeric, "5,11,14,33,5,3,8,nm,101,102,103,2,20"},
                {WidgetKind::Symbol, "6,11,14,2,nm,101,102,103,2,20"}};
    std::set<std::string> properties;
    for (const auto& row : rows) {
        line.Fill(row.kind);
        Item& item = line.Widget()->Properties();
        for (std::size_t i = 0; i < item.RowCount(); ++i) {
            EXPECT_EQ(item.Take(i, values.at(item.Key(i))), Taken::Whole) << item.Key(i);
        }
        EXPECT_EQ(line.Widget()->Record(), row.record);

        WidgetLine read(patterns, 1);
        EXPECT_EQ(read.Take(0, row.record), Taken::Whole);
        EXPECT_EQ(read.Text(0), row.record);
        ASSERT_EQ(read.Widget()->WidgetType(), row.kind);
        for (std::size_t i = 0; i < item.RowCount(); ++i) {
            EXPECT_EQ(read.Widget()->Properties().Text(i), values.at(item.Key(i))) << item.Key(i);
            properties.insert(item.Key(i));
            for (const int text :
                 {item.Info(i).more.label, item.Info(i).more.help, item.Info(i).more.group}) {
                EXPECT_TRUE(context.texts.Has(text)) << item.Key(i) << " " << text;
            }
        }
    }
    EXPECT_EQ(properties.size(), CountMembers<WidgetFields>());
}

TEST_F(Records, FreshWidgetsReadBackAsThemselves) {
    for (const WidgetKindInfo& kind : kWidgetKinds) {
        line.Fill(kind.kind);
        const std::string record = line.Text(0);
        EXPECT_EQ(line.InitialText(0), record);
        EXPECT_EQ(line.Take(0, record), Taken::Whole) << record;
        EXPECT_EQ(line.Text(0), record);
        EXPECT_TRUE(line.Widget()->IsValid()) << record;
        EXPECT_TRUE(context.texts.Has(kind.name));
    }
}

TEST_F(Records, OddFields) {
    const struct {
        const char *read, *becomes;
        Taken taken;
    } rows[] = {
        {"4,0,14,9,,0,0,3,,1,0,0,1,1", "4,0,14,9,,0,0,3,,1,0,0,1,1", Taken::Whole},
        {"4,0,14,9,,,,,0,0,3,,1,0,0,1,1", "4,0,14,9,,,,,0,0,3,,1,0,0,1,1", Taken::Whole},
        // Captions lose the blanks at their end only, names all around them.
        {"4,0,14,9,  A, B  ,0,0,3, n ,1,0,0,1,1", "4,0,14,9,  A, B,0,0,3,n,1,0,0,1,1", Taken::Whole},
        // Visible is 1 or it is not.
        {"6,0,14,5,,1,0,0,1,1", "6,0,14,5,,1,0,0,1,1", Taken::Whole},
        {"6,0,14,5,,1,0,0,TRUE,1", "6,0,14,5,,1,0,0,2,1", Taken::Part},
        // The leading number, cut to a whole one.
        {"6, 12 ,16.9,5.5,,1,0,0,1,2x", "6,12,16,5,,1,0,0,1,2", Taken::Part},
        // Out of range or no number: the initial value.
        {"6,320,13,42,,x,0,0,1,21", "6,0,14,0,,1,0,0,1,1", Taken::Part},
        {"6,319,264,41,,1,0,0,1,0", "6,319,14,41,,1,0,0,1,1", Taken::Part},
        {"6,1,263,1,,99999999999,0,0,1,20", "6,1,263,1,,1,0,0,1,20", Taken::Part},
        {"3,0,14,32767,32768,0,3,1,0,,0,0,10000000,1,1", "3,0,14,32767,18,0,0,1,0,,1,0,0,1,1", Taken::Part},
        {"5,0,14,9,0,4,9,,-5,0,10000000,1,1", "5,0,14,9,0,0,3,,-5,0,10000000,1,1", Taken::Part},
        {"1,7,99,1", "1,0,99,1", Taken::Part},
        // So is the kind.
        {" 1 ,0,99,1", "1,0,99,1", Taken::Whole},
        {"1.9,0,99,1", "1,0,99,1", Taken::Part},
        {"1x,0,99,1", "1,0,99,1", Taken::Part},
        {"6,0,14,5,ninechars,1,0,0,1,1", "6,0,14,5,ninechar,1,0,0,1,1", Taken::Cut},
    };
    for (const auto& row : rows) {
        line.Clear();
        EXPECT_EQ(line.Take(0, row.read), row.taken) << row.read;
        EXPECT_EQ(line.Text(0), row.becomes) << row.read;
    }
}

TEST_F(Records, MalformedOnesLeaveTheWidgetAsItWas) {
    line.Take(0, "1,2,3,4");
    for (const char* record :
         {"", "0,1,1,1", "7,1,1,1", "x,1,1,1", "1,2,3", "1,2,3,4,5", "6,0,14,5,a,b,1,0,0,1,1",
          "4,0,14,9,c,0,0,3", "99999999999,1,1,1", "-1,1,1,1", "2"}) {
        EXPECT_EQ(line.Take(0, record), Taken::Not) << record;
        EXPECT_EQ(line.Text(0), "1,2,3,4") << record;
    }
}

TEST_F(Records, CaptionsHoldSixtyFourCharacters) {
    const std::string full(64, 'W');
    EXPECT_EQ(line.Take(0, "4,0,14,9," + full + "   ,0,0,3,,1,0,0,1,1"), Taken::Whole);
    EXPECT_EQ(Property("Caption"), full);
    EXPECT_EQ(line.Take(0, "4,0,14,9," + full + "X,0,0,3,,1,0,0,1,1"), Taken::Cut);
    EXPECT_EQ(Property("Caption"), full);
}

TEST_F(Records, SettersRefuseWhatIsOutOfRange) {
    CWidgetNumeric numeric(context);
    const auto code = [](auto&& operation) {
        try {
            operation();
        } catch (const Error& error) {
            return error.Code();
        }
        return 0;
    };
    EXPECT_EQ(code([&] { numeric.SetLeft(1); }), code::kNotInitialised);
    EXPECT_EQ(code([&] { static_cast<void>(numeric.WidgetNumber()); }), code::kNotInitialised);
    EXPECT_EQ(code([&] { numeric.Initialize(32768); }), code::kOutOfRange);
    numeric.Initialize(7);
    EXPECT_EQ(numeric.WidgetNumber(), 7);
    EXPECT_EQ(code([&] { numeric.SetFontSize(9); }), code::kOutOfRange);
    EXPECT_EQ(code([&] { numeric.SetJustification(-1); }), code::kOutOfRange);
    EXPECT_EQ(code([&] { numeric.SetScreenNumber(21); }), code::kOutOfRange);
    EXPECT_EQ(code([&] { numeric.SetTop(250); }), code::kOutOfRange);
    EXPECT_EQ(code([&] { numeric.SetName("a,b"); }), code::kOutOfRange);
    EXPECT_EQ(code([&] { numeric.SetName("ninechars"); }), code::kTextTooLong);
    EXPECT_FALSE(numeric.IsDirty());
    numeric.SetDataSource(0);  // only a bar graph asks for 1 and more
    numeric.SetVisible(false);
    EXPECT_TRUE(numeric.IsDirty());
    EXPECT_EQ(numeric.StoreState(), "WDGT#7=5,0,14,90,0,0,3,,0,0,0,2,1\r\n");

    CWidgetBargraph bar(context);
    bar.Initialize(1);
    EXPECT_EQ(code([&] { bar.SetDataSource(0); }), code::kOutOfRange);
    EXPECT_EQ(code([&] { bar.SetDataSubField(10000000); }), code::kOutOfRange);
    CWidgetLabel label(context);
    label.Initialize(1);
    EXPECT_EQ(code([&] { label.SetCaption(std::string(65, 'x')); }), code::kTextTooLong);
    label.SetCaption(" one, two ");
    EXPECT_EQ(label.Caption(), " one, two");
}

TEST_F(Records, TheEditorsAreaOfAWidget) {
    CWidgetBitmap bitmap(context);
    bitmap.Initialize(1);
    const WidgetArea area{10, 20, 64, 32, false};
    bitmap.SetControlToClass(area);
    EXPECT_EQ(bitmap.WidgetControl(), area);
    EXPECT_THROW(bitmap.SetControlToClass({0, 250, 1, 1, true}), Error);
    EXPECT_EQ(bitmap.WidgetControl(), area);
    EXPECT_EQ(bitmap.Copy()->Record(), bitmap.Record());

    // A symbol has a place and no size, a scale neither.
    CWidgetSymbol symbol(context);
    symbol.Initialize(1);
    WidgetArea control{1, 2, 3, 4, true};
    symbol.SetControlToClass(control);
    control = {0, 0, 7, 8, false};
    symbol.SetClassToControl(control);
    EXPECT_EQ(control, (WidgetArea{1, 2, 7, 8, true}));
    CWidgetScale scale(context);
    scale.Initialize(1);
    const std::string record = scale.Record();
    scale.SetControlToClass(area);
    EXPECT_EQ(scale.Record(), record);
}

}  // namespace
}  // namespace calyx::test
