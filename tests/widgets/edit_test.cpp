// What an editor does with widgets: properties, copies, screens of other files.

#include <gtest/gtest.h>

#include "model/widgets/widgets.h"
#include "tests/support/model_fixture.h"

namespace calyx::test {
namespace {

class Edits : public testing::Test {
  protected:
    TestContext context{CALYX_DATA_DIR};
    CWidgets widgets{context};

    void Read(const std::string& text) {
        Dictionary lines(text);
        ReadReport report;
        widgets.RestoreState(lines, report);
    }
};

constexpr const char* kTwo =
    "WDGT#1=4,8,16,150,GROSS,0,1,3,lblA,1,0,0,1,1\r\nWDGT#2=6,20,180,5,lampA,1,2,1,1,2\r\n";

TEST_F(Edits, OnePropertyIsOneChangedLine) {
    const struct {
        int widget;
        const char *property, *text, *record;  // nullptr: nothing changes
        bool refused;
    } rows[] = {
        {1, "Left", "9", "4,9,16,150,GROSS,0,1,3,lblA,1,0,0,1,1", false},
        {1, "top", "0", "4,8,14,150,GROSS,0,1,3,lblA,1,0,0,1,1", false},
        {1, "Caption", "A, B ", "4,8,16,150,A, B,0,1,3,lblA,1,0,0,1,1", false},
        {2, "Visible", "2", "6,20,180,5,lampA,1,2,1,2,2", false},
        {2, "Style", "41", "6,20,180,41,lampA,1,2,1,1,2", false},
        {1, "BorderStyle", "9", "4,8,16,150,GROSS,9,1,3,lblA,1,0,0,1,1", false},
        {1, "Left", "8", nullptr, false},
        {1, "Left", "320", nullptr, true},
        {1, "Left", "5x", nullptr, true},
        {2, "Style", "42", nullptr, true},
        {2, "Visible", "0", nullptr, true},
        {2, "Name", "a,b", nullptr, true},
        {2, "Name", "a\nb", nullptr, true},
        {2, "Name", "ninechars", "6,20,180,5,ninechar,1,2,1,1,2", true},
    };
    Read(kTwo);
    for (const auto& row : rows) {
        const auto edit = widgets.SetProperty(row.widget, row.property, row.text);
        EXPECT_EQ(edit.refused.size(), row.refused ? 1u : 0u) << row.property << "=" << row.text;
        ASSERT_EQ(edit.changes.size(), row.record == nullptr ? 0u : 1u) << row.property << "=" << row.text;
        if (row.record == nullptr) continue;
        CWidgets edited = widgets;
        EXPECT_TRUE(edited.Take(edit.changes, Section::Check::Strict).empty()) << row.property;
        EXPECT_EQ(edited.widget(row.widget).Record(), row.record);
        EXPECT_EQ(Difference(widgets.State(), edited.State()).Count(), 1u);
    }
    EXPECT_EQ(widgets.StoreState(), kTwo);
    EXPECT_THROW(widgets.SetProperty(3, "Left", "1"), Error);
}

TEST_F(Edits, CopiesGoToAnotherScreenAndTakenNamesGetANumber) {
    Read(kTwo);
    const std::string clipboard = widgets.CopyText({2, 1});
    EXPECT_EQ(clipboard,
              "WDGT#1=6,20,180,5,lampA,1,2,1,1,2\r\nWDGT#2=4,8,16,150,GROSS,0,1,3,lblA,1,0,0,1,1\r\n");
    EXPECT_EQ(widgets.Paste(clipboard, 7), (std::vector{3, 4}));
    EXPECT_EQ(widgets.widget(3).Record(), "6,20,180,5,lampA2,1,2,1,1,7");
    EXPECT_EQ(widgets.Paste("> WDGT#9=1,2\r\nsome text\nWDGT#4=6,1,14,0,lampA2,1,0,0,1,5\n", 0),
              (std::vector{5}));
    EXPECT_EQ(widgets.widget(5).Record(), "6,1,14,0,lampA3,1,0,0,1,5");
    EXPECT_TRUE(widgets.IsValid());
    EXPECT_THROW(widgets.Paste(clipboard, 21), Error);

    // A long name makes room for its number.
    Read("WDGT#1=6,0,14,0,longname,1,0,0,1,1\r\n");
    widgets.Paste(widgets.CopyText({1}), 1);
    EXPECT_EQ(widgets.widget(2).Record(), "6,0,14,0,longnam2,1,0,0,1,1");
}

TEST_F(Edits, AScreenOfAnotherFile) {
    context.memory.files["other.mrn"] =
        std::string("[BEGIN]\r\nUID=1\r\nWDGT#9=1,2,4,3\r\n") + kTwo + "[END]";
    Read(kTwo);
    EXPECT_EQ(widgets.ImportScreen("other.mrn", 3, 1), std::vector{3});
    EXPECT_EQ(widgets.widget(3).Record(), "1,2,4,1");
    EXPECT_EQ(widgets.ImportScreen("other.mrn", 2, 5), std::vector{4});
    EXPECT_EQ(widgets.widget(4).Record(), "6,20,180,5,lampA2,1,2,1,1,5");
    EXPECT_TRUE(widgets.ImportScreen("other.mrn", 20, 1).empty());

    const auto code = [&](const char* file, int from, int to) {
        try {
            widgets.ImportScreen(file, from, to);
        } catch (const Error& error) {
            return error.Code();
        }
        return 0;
    };
    EXPECT_EQ(code("none.mrn", 1, 1), code::kFileNotFound);
    EXPECT_EQ(code("folder/", 1, 1), code::kIsFolder);
    EXPECT_EQ(code("other.mrn", 0, 1), code::kOutOfRange);
    EXPECT_EQ(code("other.mrn", 1, 21), code::kOutOfRange);
    EXPECT_EQ(widgets.WidgetCount(), 4);
}

}  // namespace
}  // namespace calyx::test
