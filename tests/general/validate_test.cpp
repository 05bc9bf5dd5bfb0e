// The shared rules for names and addresses.

#include "model/validation/validate.h"

#include <gtest/gtest.h>

namespace calyx {
namespace {

TEST(Validate, Alias) {
    for (const char* good : {"_1", "Scale1", "a", "A_b_9", "Whiles", "_while", "_"})
        EXPECT_TRUE(modValidate::ValidateAlias(good)) << good;
    // Reserved words in any case; "\xC4pfel": an accented capital passes as a letter and fails as a
    // character.
    for (const char* bad : {"", "1A", "WHILE", "while", "Datetime", "elsif", "nine_char", "a b", "a-b",
                            "\xC4pfel", "a\xE4", "-a", " a"}) {
        EXPECT_FALSE(modValidate::ValidateAlias(bad)) << bad;
    }
}

TEST(Validate, Email) {
    for (const char* good : {"a@b.de", "bridge@fenland.example", "a.b-c_d@x.y.z"})
        EXPECT_FALSE(modValidate::EmailIsInvalid(good)) << good;
    for (const char* bad :
         {"", "a@b.d", "abcdef", "ab@cdef", "ab.cdef", "a b@c.de", "\"a\"@c.de", "a@b..de", "a@@b.de",
          "@bcd.ef", "abc@.de", "abcd@ef.", "a.b@cdef", ".a@b.de", "a.@b.de", "a,b@c.de", "a@b.d|e"}) {
        EXPECT_TRUE(modValidate::EmailIsInvalid(bad)) << bad;
    }
}

TEST(Validate, IpAddress) {
    for (const char* good : {"0.0.0.0", " 10.20.0.5 ", "255.255.255.255", "001.2.3.4"})
        EXPECT_TRUE(modValidate::IsValidIP(good)) << good;
    for (const char* bad : {"", "0.0.0.", "1.2.3.", "1.2.3.4.", "1.2.3.4.5", "1.2.3.256", "1..3.456",
                            "a.b.c.d", "1.2.3.-4", "1.2.3.0004"}) {
        EXPECT_FALSE(modValidate::IsValidIP(bad)) << bad;
    }
}

}  // namespace
}  // namespace calyx
