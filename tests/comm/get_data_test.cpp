// GetData and what is built on it: waits, pacing, version, checks, upload.

#include "comm/link_texts.h"
#include "comm/upload.h"
#include "tests/comm/scripted_link.h"

namespace calyx::test {
namespace {

using namespace std::string_literals;

// Answers in pieces, each so many milliseconds after the last.
Wire::Device Pieces(int count, int gapMs) {
    return [=](Wire& wire, const std::string&) {
        for (int i = 1; i <= count; ++i) wire.Answer("A=" + std::to_string(i) + "\r\n", i * gapMs);
    };
}

TEST(GetData, EndsWhenAWholeWaitBroughtNothing) {
    struct Case {
        int method;
        const char* baud;
        int waitMs;
    };
    // Over TCP 20 units of 100 ms; at 300 baud ten.
    for (const Case& c : {Case{2, "9600", 2000}, {3, "300", 500}, {0, "300", 1000}, {0, "19200", 100}}) {
        SCOPED_TRACE(testing::Message() << "method " << c.method << ", " << c.baud);
        ScriptedLink test(c.method);
        test.store.settings.baud = c.baud;
        test.Connect();
        test.wire.device = Pieces(5, c.waitMs - 10);
        EXPECT_EQ(test.link->GetData("DUMPALL").value().size(), 25u);
        test.wire.device = Pieces(5, c.waitMs + 10);
        const auto start = test.wire.clock.now;
        EXPECT_EQ(test.link->GetData("DUMPALL"), "");
        EXPECT_EQ(test.wire.clock.now - start, c.waitMs);
    }
}

TEST(GetData, AnAnswerOfOneLineNeedsNoSilenceBehindIt) {
    struct Case {
        const char *command, *reply;
        bool atOnce;
    };
    const Case cases[] = {
        {"WDGT.CLR", "OK\r\n", true},
        {"NOSUCH", "??\r\n", true},
        {"UID", "UID=7\r\n", true},
        {"uid\r", "uid\r\nUID=7\r\n", true},
        {"UID", "UID", false},
        {"UI", "UID=7\r\n", false},
        {"DUMPALL", "UID=OK\r\n", false},
        {"VERSION", "V3.10.02 MERRIN\r\n", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.command) + ": " + c.reply);
        ScriptedLink test;
        test.Connect();
        test.wire.device = Always(c.reply);
        const auto start = test.wire.clock.now;
        EXPECT_TRUE(test.link->GetAnswer(c.command));
        EXPECT_EQ(test.wire.clock.now - start < 100, c.atOnce);
    }
}

TEST(GetData, ReceivingIsToldOnEverySecondPoll) {
    ScriptedLink test;
    test.Connect();
    test.wire.device = Pieces(5, 50);
    EXPECT_TRUE(test.link->GetData("DUMPALL"));
    // Five polls with a piece each and one without.
    EXPECT_EQ(test.events.told, (std::vector<std::string>{"10", "20", "25"}));
}

TEST(GetData, CancelAndALostLink) {
    ScriptedLink test;
    test.Connect();
    test.wire.device = Pieces(5, 50);
    test.events.pollsLeft = 4;
    EXPECT_EQ(test.link->GetData("DUMPALL"), std::nullopt);
    test.cancel = true;
    EXPECT_EQ(test.link->GetData("DUMPALL"), std::nullopt);
    test.cancel = false;

    test.wire.device = [](Wire& wire, const std::string&) {
        wire.Answer("A=1\r\n");
        wire.open = false;
    };
    const Error lost = Raised([&] { test.link->GetData("DUMPALL"); });
    EXPECT_EQ(lost.Number(), 0x80043201u);
    EXPECT_EQ(lost.Source(), "Calyx.CIndicatorComm.GetData");
    EXPECT_FALSE(test.link->Connected());
    EXPECT_EQ(test.events.Count("disconnected"), 1u);
    EXPECT_EQ(Raised([&] { test.link->GetData("DUMPALL"); }).Code(), code::kLink);
}

TEST(GetData, VersionReplyDecidesTheTargetVersion) {
    struct Case {
        std::string verifying, asked;  // the answers while connecting and to a question of its own
        const char* prefix;            // nothing: an error, and the target stays as it was
        bool cb2;
    };
    const Case cases[] = {
        {"V3.10.02 MERRIN\r\n", "", "3.10.", false},
        {"V2.08.01 CB2 MERRIN\r\n", "", "2.08.", true},
        {"VERSION\r\nV1.05.00 MERRIN\r\n", "??\r\n", "1.05.", false},
        {"\x7f\xfe@#V3.09.00 MERRIN\r\n", "", "3.09.", false},
        {"ready\r\nV3.04.00 MERRIN\r\n", "", "3.04.", false},
        {"MERRIN\r\n", "V3.05.00 MERRIN\r\n", "3.05.", false},
        {"MERRIN\r\n", "", nullptr, true},
        {"MERRIN\r\n", "??\r\n", nullptr, true},
        {"MERRIN\r\n", "MERRIN READY\r\n", nullptr, true},
    };
    for (const Case& c : cases) {
        ScriptedLink test;
        test.wire.device = [&](Wire& wire, const std::string& line) {
            if (line == "VERSION") wire.Answer(c.verifying);
        };
        test.link->Connect();
        test.wire.device = Always(c.asked);
        TargetVersion target{.prefix = "2.00.", .cb2 = true};
        if (c.prefix != nullptr) {
            test.link->ReadVersion(target);
        } else {
            const Error error = Raised([&] { test.link->ReadVersion(target); });
            EXPECT_EQ(error.Code(), code::kLink);
            EXPECT_EQ(error.Description(), test.context.texts.Text(link_text::kNoVersion));
        }
        EXPECT_EQ(target.prefix, c.prefix == nullptr ? "2.00." : c.prefix) << c.verifying << c.asked;
        EXPECT_EQ(target.cb2, c.cb2) << c.verifying << c.asked;
    }
    ScriptedLink addressed(comm_method::kAddressed);
    addressed.wire.device = Always("\x02\x02V1.00.00\x03\r\x02\x01V3.08.00 MERRIN\x03\r"s);
    addressed.link->Connect();
    TargetVersion target;
    EXPECT_EQ(addressed.link->ReadVersion(target), "V3.08.00 MERRIN");
}

// A dump of which half is still to come; one of its lines ends like an answer.
void LongDump(Wire& wire, const std::string& line) {
    if (line != "DUMPALL") return wire.Answer("??\r\n");
    for (int i = 1; i <= 40; ++i) wire.Answer("A=OK\r\n", 30 * i);
}

TEST(GetData, TheRestOfACancelledReplyIsNoAnswerToTheNextCommand) {
    for (const bool send : {true, false}) {
        ScriptedLink test;
        test.Connect();
        test.wire.device = LongDump;
        test.events.pollsLeft = 4;
        EXPECT_EQ(test.link->GetData("DUMPALL"), std::nullopt);
        EXPECT_FALSE(test.wire.arriving.empty());
        if (send) {
            EXPECT_EQ(test.link->Send("B=1", 100).result, SendResult::Refused);
        } else {
            EXPECT_FALSE(test.link->CheckForStreaming());
            EXPECT_EQ(test.link->GetData("B"), "??\r\n");
        }
    }
    // It is waited for no longer than two seconds, and the wait can be cancelled.
    ScriptedLink test;
    test.Connect();
    test.wire.device = [](Wire& wire, const std::string& line) {
        for (int i = 1; line == "DUMPALL" && i <= 400; ++i) wire.Answer("A=1\r\n", 20 * i);
    };
    test.events.pollsLeft = 4;
    EXPECT_EQ(test.link->GetData("DUMPALL"), std::nullopt);
    const auto start = test.wire.clock.now;
    test.events.pollsLeft = 10;
    EXPECT_EQ(test.link->Send("B=1", 100).result, SendResult::Cancelled);
    EXPECT_LE(test.wire.clock.now - start, 11 * 20);
    EXPECT_EQ(test.wire.lines, std::vector<std::string>{"DUMPALL"});
    EXPECT_EQ(test.link->Send("B=1", 100).result, SendResult::NoAnswer);
    EXPECT_LE(test.wire.clock.now - start, 11 * 20 + 2000 + 6 * 100);
}

TEST(Checks, StreamingSetupModeAndBus) {
    ScriptedLink test;
    EXPECT_FALSE(test.link->CheckForSetupMode());
    EXPECT_FALSE(test.link->CheckForBusEnabled());
    EXPECT_FALSE(test.link->CheckForStreaming());  // on a wire of its own
    EXPECT_FALSE(test.wire.open);
    test.Connect();
    EXPECT_TRUE(test.link->CheckForSetupMode());
    EXPECT_EQ(test.wire.lines.back(), "KNIX");
    test.wire.device = Always("??\r\n");
    EXPECT_FALSE(test.link->CheckForSetupMode());
    EXPECT_FALSE(test.link->CheckForBusEnabled());  // two characters say nothing
    test.wire.device = Always("\r\nR01\r\n");
    EXPECT_TRUE(test.link->CheckForBusEnabled());
    test.wire.Answer("12.5 lb\r\n", 60);
    EXPECT_TRUE(test.link->CheckForStreaming());
    EXPECT_TRUE(test.link->Connected());
}

TEST(Upload, AsksForSetupModeOnlyWhereTheFirmwareNeedsIt) {
    struct Case {
        const char* prefix;
        bool cb2;
        bool setupMode;
        UploadReport::End end;
        std::vector<std::string> lines;
    };
    using enum UploadReport::End;
    const Case cases[] = {
        {"3.06.", false, false, Complete, {"DUMPALL"}},
        {"3.05.", false, true, Complete, {"KNIX", "DUMPALL"}},
        {"3.05.", true, false, NotInSetupMode, {"KNIX"}},
        {"9.99.", false, true, Complete, {"KNIX", "DUMPALL"}},
    };
    for (const Case& c : cases) {
        ScriptedLink test;
        test.Connect();
        test.wire.device = [&](Wire& wire, const std::string& line) {
            wire.Answer(line != "KNIX" ? "UID=1\r\nTRUCK=OFF\r\n" : c.setupMode ? "OK\r\n" : "??\r\n");
        };
        IUploadEvents quiet;
        test.context.target = {c.prefix, c.cb2};
        const auto report = Upload(*test.link, test.context, quiet);
        EXPECT_EQ(report.end, c.end) << c.prefix;
        EXPECT_EQ(test.wire.lines, c.lines) << c.prefix;
        EXPECT_EQ(report.text, c.end == Complete ? "UID=1\r\nTRUCK=OFF\r\n" : "");
        EXPECT_EQ(report.notice.empty(), c.end == Complete);
    }
}

TEST(Upload, WhatIsNoConfigurationReplacesNothing) {
    using enum UploadReport::End;
    const std::pair<std::string, UploadReport::End> cases[] = {
        {"", NoDump},
        {"??\r\n", NoDump},
        {"G = 12.5 lb\r\nN=1\r\n", NoDump},
        {"VERSION=V1.00.00\r\n", Complete},
        {"UID=1\r\nNOSUCH=1\r\n", Complete},
        {"UID=1\r", Complete},
        {"UID=1\r\nTRUCK=MO", Incomplete},
        {"UID=1", Incomplete},
    };
    for (const auto& [answer, end] : cases) {
        ScriptedLink test;
        test.Connect();
        test.wire.device = Always(answer);
        IUploadEvents quiet;
        const UploadReport report = Upload(*test.link, test.context, quiet);
        EXPECT_EQ(report.end, end) << answer;
        EXPECT_EQ(report.text, end == Complete ? answer : "");
        EXPECT_EQ(report.notice.empty(), end == Complete);
    }
    ScriptedLink streaming;
    streaming.Connect();
    streaming.wire.Answer("12.5 lb\r\n", 10);
    IUploadEvents quiet;
    EXPECT_EQ(Upload(*streaming.link, streaming.context, quiet).end, UploadReport::End::Streaming);
    EXPECT_TRUE(streaming.wire.lines.empty());

    MemoryFiles files;
    files.full = true;
    EXPECT_EQ(Raised([&] { WriteUpload(files, streaming.context.texts, "a.mrn", "UID=1"); }).Code(),
              code::kFileNotWritten);
}

}  // namespace
}  // namespace calyx::test
