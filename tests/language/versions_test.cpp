// Firmware versions, gates and the target.

#include "model/language/versions.h"

#include <gtest/gtest.h>

namespace calyx {
namespace {

constexpr Gate kNarrow = Only({"3.05.", "3.06."});
constexpr Gate kRegword = Only({"1.05."}) | Since("2.00.");

TEST(Gates, OpenForTheirVersionsForEverythingAndForCb2) {
    struct Row {
        const char* version;
        bool cb2;
        Gate gate;
        bool opens;
    };
    const Row rows[] = {
        {"1.04.", false, kRegword, false},  {"1.05.", false, kRegword, true},
        {"1.06.", false, kRegword, false},  {"2.00.", false, kRegword, true},
        {"3.10.", false, kRegword, true},   {"3.04.", false, kNarrow, false},
        {"3.05.", false, kNarrow, true},    {"3.07.", false, kNarrow, false},
        {"3.07.", true, kNarrow, true},     {"2.04.", false, kRegword, false},
        {"3.11.", false, kRegword, false},  {"3.11.", false, Gate{}, true},
        {"", false, Gate{}, true},          {"3.10", false, kRegword, false},
        {"V3.10.", false, kRegword, false},
    };
    for (const Row& row : rows) {
        const Target target{.version = VersionBit(row.version), .cb2 = row.cb2};
        EXPECT_EQ(target.Opens(row.gate), row.opens) << row.version;
        EXPECT_TRUE(Target::Everything().Opens(row.gate));
    }
    // With the flag a value may still take the older form.
    EXPECT_FALSE((Target{.version = VersionBit("3.07."), .cb2 = true}.Knows(kNarrow)));
}

TEST(Gates, InWords) {
    EXPECT_EQ(Words(Gate{}), "all versions");
    EXPECT_EQ(Words(kRegword), "1.05, 2.00 to 3.10");
    EXPECT_EQ(Words(Only({"3.10."})), "3.10");
    EXPECT_EQ(Words(Gate{0}), "no version");
}

TEST(TargetVersion, IsReadFromTheReply) {
    struct Row {
        const char* reply;
        const char* prefix;
        bool cb2;
    };
    const Row rows[] = {
        {"V3.10.02 MERRIN\r\n", "3.10.", false},
        {"V2.08.01 CB2 MERRIN\r", "2.08.", true},
        {" V1.05.00\r ", "1.05.", false},
        {"V3.10.02", "3.10.", false},
        {"", "old.", false},
        {"??\r", "old.", false},
        {"?? CB2 1.0", "old.", false},
        {"CB2", "old.", true},
    };
    for (const Row& row : rows) {
        TargetVersion target{"old.", true};
        target.TakeReply(row.reply);
        EXPECT_EQ(target.prefix, row.prefix) << row.reply;
        EXPECT_EQ(target.cb2, row.cb2) << row.reply;
    }
}

}  // namespace
}  // namespace calyx
