// The parameter dictionary.

#include "model/language/dictionary.h"

#include <gtest/gtest.h>

#include <random>

#include "model/language/text.h"

namespace calyx {
namespace {

TEST(Dictionary, SplitsAtTheFirstEqualsAndAnyLineEnd) {
    Dictionary lines("A=1\r\nb= x=y \nC=\rD=4\r\r\n\r\nno key\r\n=empty\nE=5");
    EXPECT_EQ(lines.FindParameter("a", "-"), "1");
    EXPECT_EQ(lines.FindParameter("B", "-"), " x=y ");
    EXPECT_EQ(lines.FindParameter("C", "-"), "");
    EXPECT_EQ(lines.FindParameter("D", "-"), "4");
    EXPECT_EQ(lines.FindParameter("E", "-"), "5");
    EXPECT_EQ(lines.FindParameter("F", "-"), "-");
    ASSERT_EQ(lines.TextLines().size(), 2u);
    EXPECT_EQ(lines.TextLines()[0].text, "no key");
    EXPECT_EQ(lines.Entries().size(), 5u);
}

TEST(Dictionary, TheFirstOccurrenceWinsInAnyCase) {
    Dictionary lines("KEY=1\nkey=2\nOther=3\nKeY=4\n");
    EXPECT_EQ(lines.FindParameter("kEy", ""), "1");
    ASSERT_EQ(lines.Duplicates().size(), 2u);
    EXPECT_EQ(lines.Duplicates()[1].value, "4");
    EXPECT_EQ(lines.Duplicates()[1].line, 4u);
    EXPECT_FALSE(lines.Peek("OTHER")->asked);
    lines.Find("OTHER");
    EXPECT_TRUE(lines.Peek("other")->asked);
}

// Against a plain search, over many generated files.
TEST(Dictionary, FindsWhatAPlainSearchFinds) {
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        std::string text;
        std::vector<std::string> keys;
        for (int i = 0; i < 60; ++i) {
            std::string key(random() % 20, ' ');
            for (char& c : key) c = "aAbB.#19\xE4\xC4"[random() % 10];
            keys.push_back(key);
            text += key + "=" + std::to_string(i) + (random() % 2 ? "\r\n" : "\n");
        }
        Dictionary lines(text);
        for (const std::string& key : keys) {
            std::size_t first = 0;
            while (!EqualNoCase(keys[first], key)) ++first;
            EXPECT_EQ(lines.FindParameter(key, "none"), key.empty() ? "none" : std::to_string(first)) << key;
        }
    }
}

}  // namespace
}  // namespace calyx
