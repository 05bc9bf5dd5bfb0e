// Lists, reference, printed listing and import file.

#include <gtest/gtest.h>

#include "cli/json.h"
#include "cli/text.h"
#include "tests/cli/cli_fixture.h"

namespace calyx::cli {
namespace {

class Listings : public CliTest {
  protected:
    void SetUp() override { ASSERT_EQ(Run("new ~a.mrn").code, 0); }
};

TEST_F(Listings, ListsHaveFourFieldsALine) {
    EXPECT_EQ(Out("lists gen.decfmt"),
              "GEN.DECFMT\tDOT\tDot (1.5)\tdefault\nGEN.DECFMT\tCOMMA\tComma (1,5)\t\n");
    std::size_t defaults = 0;
    std::string last;
    ForEachLine(Out("lists"), [&](std::string_view line) {
        const auto fields = Split(line, '\t');
        ASSERT_EQ(fields.size(), 4u) << line;
        EXPECT_FALSE(fields[1].empty() || fields[2].starts_with('#')) << line;
        defaults += fields[3] == "default" ? 1 : 0;
    });
    std::size_t lists = 0;
    for (const Json& entry : Json::parse(Out("lists --json"))) {
        if (entry.at("list") != last) ++lists;
        last = entry.at("list");
    }
    EXPECT_EQ(defaults, lists);
}

TEST_F(Listings, ReferenceInTheDocumentsIsThatOfTheTables) {
    EXPECT_EQ(Out("keys --markdown"), FileStore().Read(std::string(CALYX_SOURCE_DIR) + "/docs/parameters.md"))
        << "write it anew: calyx-cli keys --markdown > docs/parameters.md";
}

TEST_F(Listings, KeysAreFoundByPatternAndLabel) {
    Expect({
        {"keys uid", 0, "UID  Unit ID\n", ""},
        {"keys contact.name?", 0, "CONTACT.NAME3", ""},
        {"keys gravity", 0, "GRAVADJ", ""},
        {"keys nosuch*", 1, "", "no parameter fits nosuch*"},
    });
    EXPECT_EQ(Json::parse(Out("keys CONTACT.* --json")).size(), 11u);
    // Every line of a file that has rows is in the reference.
    const Json all = Json::parse(Out("keys --json"));
    for (const Json& line : Json::parse(Out("text ~a.mrn --json"))) {
        std::string key = line.at("key");
        if (key.find('#') != std::string::npos) key = key.substr(0, key.rfind('#')) + "#n";
        const bool found =
            std::any_of(all.begin(), all.end(), [&](const Json& p) { return p.at("key") == key; });
        EXPECT_TRUE(found) << line;
    }
}

TEST_F(Listings, PatternsOfKeys) {
    for (const auto& [key, pattern, fits] : {
             std::tuple{"SC.GRADS#12", "sc.grads#12", true},
             {"SC.GRADS#12", "SC.*", true},
             {"SC.GRADS#12", "*#1?", true},
             {"SC.GRADS#12", "*#?", false},
             {"SC.GRADS#12", "*A*S*2", true},
             {"SC.GRADS#12", "SC.GRADS#1", false},
             {"SC.GRADS#12", "", false},
             {"SC.GRADS#12", "**", true},
             {"", "*", true},
             {"", "?", false},
         }) {
        EXPECT_EQ(FitsPattern(key, pattern), fits) << key << ' ' << pattern;
    }
}

TEST_F(Listings, PrintedListingAsTextJsonAndPage) {
    ASSERT_EQ(Run({"set", File("a.mrn"), "CONTACT.COMPANY=<Gru\xDF & Co>", "TRUCK=MODE1", "SC.SRC#1=A,1",
                   "SC.ALIAS#1=Gate"})
                  .code,
              0);
    const std::string text = Out("print ~a.mrn");
    EXPECT_TRUE(text.starts_with("General\n  ")) << text;
    EXPECT_TRUE(Contains(text, "  Truck mode: Mode 1: two weighings\n") && Contains(text, "Alias: Gate\n"))
        << text;
    EXPECT_FALSE(Contains(text, "\r"));

    std::string again;
    for (const Json& row : Json::parse(Out("print ~a.mrn --json"))) {
        again += "  " + row.at("label").get<std::string>() + ": " + row.at("value").get<std::string>() + "\n";
    }
    EXPECT_TRUE(Contains(again, "  Truck mode: Mode 1: two weighings\n  Time format: 12 hours\n")) << again;

    Expect({{"print ~a.mrn --html ~a.html", 0, "", ""}});
    const std::string page = Read("a.html");
    EXPECT_TRUE(Contains(page, "<h2>Scales</h2>") && Contains(page, "<td>Gate</td>")) << page;
    EXPECT_TRUE(Contains(page, "<td>&lt;Gru\xC3\x9F &amp; Co&gt;</td>"));
}

TEST_F(Listings, ScrivoWritesTheImportFile) {
    ASSERT_EQ(Run({"set", File("a.mrn"), "SC.SRC#2=A,1", "SC.ALIAS#2=Gate"}).code, 0);
    Expect({{"scrivo ~a.mrn --output ~a.txt", 0, "", ""}});
    EXPECT_TRUE(
        Contains(Read("a.txt"), "-- Used with Calyx Configuration File\r\n-- " + File("a.mrn") + "\r\n"));
    EXPECT_TRUE(Contains(Read("a.txt"), "Gate : constant integer := 2;\r\n"));
}

}  // namespace
}  // namespace calyx::cli
