// Lines and frames, and how an answer is heard among what arrives.

#include <gtest/gtest.h>

#include "comm/answer_judge.h"
#include "comm/framing.h"

namespace calyx::test {
namespace {

using namespace std::string_literals;

TEST(Framing, CommandsEndWithOneCr) {
    for (const auto* command : {"A=1", "A=1\r", "A=1\r\n"}) {
        EXPECT_EQ(PrepareLine(command, {}), "A=1\r");
        EXPECT_EQ(PrepareLine(command, 5), "\x02\x05"s + "A=1\r");
    }
    EXPECT_EQ(PrepareLine("\r", {}), "\r");
    EXPECT_EQ(PrepareLine("VERSION", 255), "\x02\xffVERSION\r"s);
}

TEST(Framing, RepliesAreTakenFromTheirFrames) {
    struct Case {
        const char* name;
        std::uint8_t address;
        std::string received;
        std::string text;
    };
    const Case cases[] = {
        {"own frame", 5, "\x02\x05OK\x03\r"s, "OK\r"},
        {"noise around", 5, "\x7fx\x02\x05OK\x03\r\n"s, "OK\r"},
        {"two frames", 5, "\x02\x05V=1\x03\r\x02\x05W=2\x03\r"s, "V=1\rW=2\r"},
        {"another's first", 5, "\x02\x06OK\x03\r\x02\x05??\x03\r"s, "??\r"},
        {"address that is STX", 2, "\x02\x02OK\x03\r"s, "OK\r"},
        {"address that is CR", 13, "\x02\rOK\x03\r"s, "OK\r"},
        {"address of eight bits", 255, "\x02\xffOK\x03\r"s, "OK\r"},

        {"another's only", 5, "\x02\x06OK\x03\r"s, "\x02\x06OK\x03\r"s},
        {"no end", 5, "\x02\x05OK\r"s, "\x02\x05OK\r"s},
        {"no frame", 5, "OK\r", "OK\r"},
        {"too short", 5, "\x02\x05\x03\r"s, "\x02\x05\x03\r"s},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(DeWrapString(c.received, c.address), c.text) << c.name;
        const std::string heard = c.text == c.received ? "" : c.text;
        EXPECT_EQ(ReplyText(c.received, "VERSION", c.address), heard) << c.name;
    }
}

TEST(Framing, AnExactEchoIsNoReply) {
    EXPECT_EQ(ReplyText("VERSION\rV3.10.02\r\n", "VERSION", {}), "V3.10.02\r\n");
    EXPECT_EQ(ReplyText("VERSION\r\nV3.10.02\r\n", "VERSION\r", {}), "V3.10.02\r\n");
    EXPECT_EQ(ReplyText("VERSIONS\r", "VERSION", {}), "VERSIONS\r");
    EXPECT_EQ(ReplyText("\x02\x05UID\r\x02\x05UID=1\x03\r"s, "UID", 5), "UID=1\r");
}

TEST(AnswerJudge, HearsTheAnswerAndNothingElse) {
    using enum Verdict;
    struct Case {
        const char* name;
        std::string command;
        std::string received;
        Verdict verdict;
    };
    const Case cases[] = {
        {"accepted", "UID=1", "OK\r\n", Accepted},
        {"refused", "UID=1", "??\r\n", Refused},
        {"not ended", "UID=1", "OK", None},
        {"noise before", "UID=1", "\x7f\xfe@#OK\r", Accepted},
        {"echo, accepted", "UID=1", "UID=1\rOK\r\n", Accepted},
        {"echo that ends in OK", "EDP.ALIAS#1=OK", "EDP.ALIAS#1=OK\r\n", None},
        {"echo that ends in OK, refused", "EDP.ALIAS#1=OK", "EDP.ALIAS#1=OK\r\n??\r\n", Refused},
        {"echo that ends in ??, accepted", "UID=??", "UID=??\rOK\r", Accepted},
        {"noise, then such an echo", "EDP.ALIAS#1=OK",
         "\x7f"
         "EDP.ALIAS#1=OK\r",
         None},
        {"OK inside a line", "UID=1", "LOOK OUT\r", None},
        {"lone CR", "\r", "OK\r", Accepted},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(AnswerJudge(c.command, {}).Take(c.received), c.verdict) << c.name;
        AnswerJudge byBytes(c.command, {});
        Verdict verdict = None;
        for (std::size_t i = 0; i < c.received.size() && verdict == None; ++i) {
            verdict = byBytes.Take(c.received.substr(i, 1));
        }
        EXPECT_EQ(verdict, c.verdict) << c.name << ", byte by byte";
    }
    EXPECT_EQ(AnswerJudge("UID=1", {}).Take("??\rOK\r"), Accepted);  // what came together
    EXPECT_EQ(AnswerJudge("UID=OK", 5).Take("\x02\x05UID=OK\r\x02\x05??\x03\r"s), Refused);
}

}  // namespace
}  // namespace calyx::test
