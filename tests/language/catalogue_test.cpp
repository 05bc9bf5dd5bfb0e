// Resource texts, value lists and the list catalogue.

#include <gtest/gtest.h>

#include "model/language/list_catalogue.h"
#include "tests/support/model_fixture.h"

namespace calyx {
namespace {

TEST(Texts, ASecondLanguageFallsBackTextByText) {
    ResourceTexts texts;
    texts.Read("# comment\n1=one\r\n2=two {1} and {2}{3}\n3=a\\nb\nnot a number=x\n");
    texts.Read("1=eins");
    EXPECT_EQ(texts.Text(1), "eins");
    EXPECT_EQ(texts.Format(2, {"A", "B"}), "two A and B{3}");
    EXPECT_EQ(texts.Text(3), "a\nb");
    EXPECT_EQ(texts.Text(99), "#99");
    EXPECT_EQ(texts.Count(), 3u);
}

TEST(TextList, LooksUpBothWays) {
    ResourceTexts texts;
    texts.Read("10=Off\n11=Mode 1\n");
    CTextList list;
    list.Load(texts, "10,11", "OFF,MODE1", ',');
    EXPECT_EQ(*list.Item("MODE1"), "Mode 1");
    EXPECT_EQ(*list.Key("Off"), "OFF");
    EXPECT_EQ(list.Item("mode1"), nullptr);
    EXPECT_EQ(list.TabDelimitedList(), "Off\tMode 1");
    EXPECT_EQ(list.Default(), "OFF");
    EXPECT_EQ(ValidateTextListItem(" MODE1 ", list, "OFF"), " MODE1 ");
    EXPECT_EQ(ValidateTextListItem("MODE 1", list, "OFF"), "OFF");
    list.ManualLoad("x;y", "1;2", ';');
    EXPECT_EQ(list.Count(), 2u);
    EXPECT_EQ(*list.Item("2"), "y");
}

TEST(Catalogue, TheProgramsOwnIsWhole) {
    const test::TestContext context{CALYX_DATA_DIR};
    EXPECT_GT(context.lists.Names().size(), 60u);
    for (const std::string& name : context.lists.Names()) {
        const CTextList& list = *context.lists.List(name);
        for (const auto& entry : list) {
            EXPECT_FALSE(entry.text.starts_with('#')) << name << " " << entry.key;
            EXPECT_EQ(*list.Key(entry.text), entry.key) << name << ": two entries are shown alike";
        }
    }
    EXPECT_EQ(context.lists.List("GEN.NONE"), nullptr);
}

TEST(Catalogue, DefectsNameTheirLine) {
    const ResourceTexts texts;
    for (const char* defect :
         {"[A]\ntexts=1,2\nkeys=X\ndefault=X\n", "[A]\ntexts=1\nkeys=X\ndefault=Y\n",
          "[A]\ntexts=1\nkeys=X\ndefault=X\n[A]\ntexts=1\nkeys=X\ndefault=X\n", "[A]\nwords=X\n", "keys=X\n",
          "[]\ntexts=1\nkeys=X\ndefault=X\n", "[A]\ntexts=1,2\nkeys=X,X\ndefault=X\n"}) {
        ListCatalogue catalogue;
        try {
            catalogue.Read(defect, texts);
            ADD_FAILURE() << defect;
        } catch (const std::runtime_error& error) {
            EXPECT_NE(std::string(error.what()).find("line "), std::string::npos);
        }
    }
}

}  // namespace
}  // namespace calyx
