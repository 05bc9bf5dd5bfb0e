// SendData: attempts, answers, faults of the other end.

#include "tests/comm/scripted_link.h"

namespace calyx::test {
namespace {

using namespace std::string_literals;
using enum SendResult;

constexpr const char* kCommand = "EDP.ALIAS#1=OK";  // its echo must not be taken for an answer

void Silent(Wire&, const std::string&) {}

Wire::Device Then(std::size_t silent, const std::string& answer) {
    return [=](Wire& wire, const std::string&) {
        if (wire.lines.size() > silent) wire.Answer(answer);
    };
}

void EchoThenOk(Wire& wire, const std::string& line) {
    wire.Answer(line + "\r\n");
    wire.Answer("OK\r\n", 30);
}

void InBytes(Wire& wire, const std::string&) {
    for (const char c : "OK\r\n"s) {
        wire.Answer({c}, 5 * static_cast<std::int64_t>(wire.arriving.size() + 1));
    }
}

void Hangup(Wire& wire, const std::string&) {
    wire.open = false;
}

TEST(SendData, BehavesAsTheOtherEndDoes) {
    struct Case {
        const char* name;
        int method;
        Wire::Device device;
        SendResult result;
        int sends;
    };
    const Case cases[] = {
        {"answers OK", 2, Always("OK\r\n"), Accepted, 1},
        {"refuses", 2, Always("??\r\n"), Refused, 1},
        {"silent twice, then OK", 2, Then(2, "OK\r\n"), Accepted, 3},
        {"silent", 2, Silent, NoAnswer, 6},
        {"late, but within the time of the next attempt", 2,
         [](Wire& wire, const std::string&) { wire.Answer("OK\r\n", 150); }, Accepted, 2},
        {"split into bytes", 2, InBytes, Accepted, 1},
        {"echo, then OK", 2, EchoThenOk, Accepted, 1},
        {"echo only", 2, [](Wire& wire, const std::string& line) { wire.Answer(line + "\r\n"); }, NoAnswer,
         6},
        {"closes instead of answering", 2, Hangup, Lost, 1},
        {"plain serial", 0, Always("OK\r"), Accepted, 1},
        {"serial with detected settings", 3, Always("??\r"), Refused, 1},
        {"own address", 1, Always("\x02\x01OK\x03\r"s), Accepted, 1},
        {"another's address", 1, Always("\x02\x02OK\x03\r"s), NoAnswer, 6},
        {"no frame in addressed mode", 1, Always("OK\r\n"), NoAnswer, 6},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        ScriptedLink test(c.method);
        test.Connect();
        test.wire.device = c.device;
        const SendReport report = test.link->Send(kCommand, 100);
        EXPECT_EQ(report.result, c.result);
        EXPECT_EQ(report.attempts, c.sends);
        EXPECT_EQ(test.wire.lines, std::vector<std::string>(static_cast<std::size_t>(c.sends),
                                                            (c.method == 1 ? "\x02\x01"s : ""s) + kCommand));
        EXPECT_EQ(test.link->Connected(), c.result != Lost);
    }
}

TEST(SendData, SilenceTakesSixTimesTheTimeAndTellsSo) {
    ScriptedLink test;
    test.Connect();
    test.wire.device = Silent;
    const auto start = test.wire.clock.now;
    EXPECT_FALSE(test.link->SendData("UID=1", 10'000));
    EXPECT_EQ(test.wire.clock.now - start, 60'000);
    EXPECT_EQ(test.events.Count("UID=1"), 6u);
    EXPECT_EQ(test.events.Count("received"), 6u);
    EXPECT_EQ(test.events.told[1], "waiting");
    // Only in the second half of each attempt, on every poll.
    EXPECT_EQ(test.events.Count("waiting"), 6u * 10'000 / 2 / 20);
}

TEST(SendData, AnswersOfTheLastLineAreNotTaken) {
    ScriptedLink test;
    test.Connect();
    test.wire.device = [](Wire& wire, const std::string& line) {
        if (line == "A=1" && wire.lines.size() == 1) wire.Answer("OK\r\n", 650);
    };
    EXPECT_FALSE(test.link->SendData("A=1", 100));
    test.wire.clock.now += 100;
    EXPECT_FALSE(test.link->SendData("B=1", 100));
}

// Two lines in one would get two answers, and the second one would be the next command's.
TEST(SendData, ACommandIsOneLine) {
    ScriptedLink test;
    test.Connect();
    for (const auto* command : {"A=1\rB=2", "A=1\r\nB=2\r\n", "A=1\nB=2", "A=1\r\r"}) {
        EXPECT_EQ(Raised([&] { test.link->Send(command, 100); }).Code(), code::kLink);
        EXPECT_EQ(Raised([&] { test.link->GetData(command); }).Code(), code::kLink);
    }
    EXPECT_TRUE(test.wire.lines.empty());
    EXPECT_TRUE(test.link->SendData("A=1\r\n", 100));
}

TEST(SendData, CancelEndsTheCallAtOnce) {
    ScriptedLink test;
    test.Connect();
    test.wire.device = Silent;
    test.events.pollsLeft = 3;
    EXPECT_EQ(test.link->Send("A=1", 10'000).result, Cancelled);
    EXPECT_EQ(test.wire.lines.size(), 1u);
    test.cancel = true;
    const SendReport report = test.link->Send("A=1", 10'000);
    EXPECT_EQ(report.result, Cancelled);
    EXPECT_EQ(report.attempts, 0);
    EXPECT_TRUE(test.link->Connected());
}

// A window may close the wire from the event after an attempt.
TEST(SendData, NoAttemptIsMadeOnAClosedWire) {
    struct Closer : ILinkEvents {
        CIndicatorComm* link = nullptr;
        void ReceivedResponse() override { link->Disconnect(); }
    } closer;
    ScriptedLink test;
    test.Connect();
    test.wire.device = Silent;
    closer.link = test.link.get();
    const LinkObserver observer(*test.link, closer);
    const SendReport report = test.link->Send("A=1", 100);
    EXPECT_EQ(report.result, Lost);
    EXPECT_EQ(report.attempts, 1);
    EXPECT_EQ(test.events.Count("A=1"), 1u);
}

TEST(SendData, OneOperationAtATimeAndDisconnectEndsIt) {
    struct Meddler : ILinkEvents {
        CIndicatorComm* link = nullptr;
        int code = 0;
        void CancelSendData(bool&) override {
            code = Raised([this] { link->SendData("B=1", 100); }).Code();
            link->Disconnect();
        }
    } meddler;
    ScriptedLink test;
    test.Connect();
    test.wire.device = Silent;
    meddler.link = test.link.get();
    const LinkObserver observer(*test.link, meddler);
    EXPECT_EQ(test.link->Send("A=1", 10'000).result, Lost);
    EXPECT_EQ(meddler.code, code::kLink);
    EXPECT_EQ(test.wire.lines, std::vector<std::string>{"A=1"});
    EXPECT_EQ(test.events.Count("disconnected"), 1u);
    EXPECT_EQ(test.link->Send("A=1", 10'000).attempts, 0);
}

}  // namespace
}  // namespace calyx::test
