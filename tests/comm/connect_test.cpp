// Connect: verification, detection, addresses, events and the communication log.

#include <filesystem>

#include "comm/detection.h"
#include "comm/link_texts.h"
#include "tests/comm/scripted_link.h"

namespace calyx::test {
namespace {

using namespace std::string_literals;
using Texts = std::vector<std::string>;

// Answers VERSION like an indicator, but only on the wire that was opened with these settings.
Wire::Device IndicatorAt(const std::string& settings) {
    return [settings](Wire& wire, const std::string& line) {
        if (line == "VERSION" && wire.opened.back() == settings) wire.Answer("V3.10.02 merrin\r\n");
    };
}

TEST(Connect, OverTcp) {
    ScriptedLink test;
    test.wire.device = IndicatorAt("128.1.1.1:10001");
    test.link->Connect();
    EXPECT_TRUE(test.link->Connected());
    EXPECT_EQ(test.wire.lines, (Texts{"", "VERSION"}));
    EXPECT_EQ(test.events.told, Texts{"TCP/IP:128.1.1.1:10001"});
    EXPECT_EQ(test.store.stores, 1);
    test.link->Disconnect();
    EXPECT_FALSE(test.link->Connected());
    EXPECT_EQ(test.events.told.back(), "disconnected");

    test.wire.device = Always("V3.10.02 OTHER\r\n");
    const Error error = Raised([&] { test.link->Connect(); });
    EXPECT_EQ(error.Number(), 0x80043201u);
    EXPECT_TRUE(error.Description().starts_with("Verify Failure!")) << error.Description();
    EXPECT_EQ(test.events.told.back(), "disconnected");
    EXPECT_FALSE(test.wire.open);
}

TEST(Connect, TheWholeIdentificationLineIsWaitedFor) {
    ScriptedLink test;
    test.wire.device = [](Wire& wire, const std::string& line) {
        if (line != "VERSION") return;
        wire.Answer("MERRIN V3.");
        wire.Answer("OK\r\n", 40);
    };
    test.link->Connect();
    test.wire.device = nullptr;
    EXPECT_FALSE(test.link->SendData("UID=1", 100));
}

TEST(Connect, DetectionKnowsHowLongItCanStillTake) {
    const int last = DetectionTimeLeft("300,N,8,1");
    EXPECT_EQ(last, 100 + 2500 + 5000);
    EXPECT_EQ(DetectionTimeLeft("300,O,7,1"), 2 * last);
    EXPECT_EQ(DetectionTimeLeft("9600,O,7,1"), DetectionTimeLeft("9600,E,7,1") - (100 + 375 + 750));
    EXPECT_EQ(DetectionTimeLeft("4800,N,8,2"), DetectionTimeLeft("9600,E,7,1"));  // none of the thirty
}

TEST(Connect, AnIndicatorThatIsThereSaysSo) {
    ScriptedLink test;
    EXPECT_FALSE(test.link->StillAnswers());
    test.Connect();
    test.wire.device = IndicatorAt("128.1.1.1:10001");
    EXPECT_TRUE(test.link->StillAnswers());
    test.wire.device = [](Wire& wire, const std::string&) { wire.Answer("OK\r\n"); };
    EXPECT_FALSE(test.link->StillAnswers());
    const auto before = test.wire.clock.now;
    test.wire.device = nullptr;
    EXPECT_FALSE(test.link->StillAnswers());
    EXPECT_EQ(test.wire.clock.now - before, 2000);
    test.wire.open = false;
    EXPECT_FALSE(test.link->StillAnswers());
}

// The waits of a silent line: the look for streaming, the lone CR, VERSION.
TEST(Connect, SlowLinesGetTheirTime) {
    for (const auto& [baud, factor] : {std::pair{"300", 10.0},
                                       {"600", 7.0},
                                       {"1200", 3.0},
                                       {"2400", 2.0},
                                       {"4800", 1.5},
                                       {"9600", 1.5},
                                       {"19200", 1.0}}) {
        ScriptedLink test(0);
        test.store.settings.baud = baud;
        const auto start = test.wire.clock.now;
        EXPECT_EQ(Raised([&] { test.link->Connect(); }).Code(), code::kLink);
        EXPECT_EQ(test.wire.clock.now - start, 100 + static_cast<int>(factor * (250 + 500))) << baud;
        EXPECT_FALSE(test.wire.open);
        EXPECT_EQ(test.store.stores, 0);
    }
}

TEST(Connect, ASmallDelayLeavesTimeForTheVersionOverTcp) {
    ScriptedLink test;
    test.store.settings.delayMs = 1;
    test.wire.device = [](Wire& wire, const std::string& line) {
        if (line == "VERSION") wire.Answer("MERRIN\r\n", 450);
    };
    test.link->Connect();
    test.wire.device = [](Wire& wire, const std::string&) { wire.Answer("V3.07.00 MERRIN\r\n", 450); };
    EXPECT_EQ(test.link->ReadVersion(test.context.target), "V3.07.00 MERRIN");
}

TEST(Connect, DetectionTriesThirtyPairs) {
    ScriptedLink test(comm_method::kDetect);
    EXPECT_EQ(Raised([&] { test.link->Connect(); }).Code(), code::kLink);
    ASSERT_EQ(test.events.tried.size(), 30u);
    EXPECT_EQ(test.events.tried[0], "9600,E,7,1");
    EXPECT_EQ(test.events.tried[1], "9600,O,7,1");
    EXPECT_EQ(test.events.tried[2], "9600,N,8,1");
    EXPECT_EQ(test.events.tried[15], "4800,E,7,1");
    EXPECT_EQ(test.events.tried[29], "300,N,8,1");
    EXPECT_EQ(test.wire.opened.front(), "57600,N,8,1");

    test.wire.device = IndicatorAt("4800,O,7,1");
    test.link->Connect();
    EXPECT_TRUE(test.link->Connected());
    EXPECT_EQ(test.wire.opened.back(), "4800,O,7,1");
    EXPECT_EQ(test.link->CurrentSettings(), "4800,O,7,1");
    EXPECT_EQ(test.store.settings.parity, "O");
    EXPECT_EQ(test.events.told.back(), "COM1:4800,O,7,1");
}

// Adapters know fewer rates and framings than detection tries.
TEST(Connect, DetectionPassesOverWhatThePortRefuses) {
    ScriptedLink test(comm_method::kDetect);
    test.wire.refuses = [](const std::string& settings) {
        return settings.find(",7,") != std::string::npos || settings.starts_with("57600");
    };
    test.wire.device = IndicatorAt("38400,N,8,1");
    test.link->Connect();
    EXPECT_EQ(test.events.told.back(), "COM1:38400,N,8,1");
    EXPECT_EQ(test.events.tried.size(), 3u) << "9600, 19200 and 38400, each without parity";
}

TEST(Connect, DetectionStopsOnCancelAndOnStreaming) {
    ScriptedLink cancelled(comm_method::kDetect);
    cancelled.events.pollsLeft = 100;
    EXPECT_EQ(Raised([&] { cancelled.link->Connect(); }).Code(), code::kLink);
    EXPECT_LT(cancelled.events.tried.size(), 5u);
    EXPECT_FALSE(cancelled.wire.open);

    ScriptedLink streaming(comm_method::kDetect);
    for (int i = 0; i < 200; ++i) streaming.wire.Answer("12.5 lb\r\n", i * 50);
    const Error error = Raised([&] { streaming.link->Connect(); });
    EXPECT_EQ(error.Description(), streaming.context.texts.Text(1030));
    EXPECT_EQ(streaming.events.told, Texts{"streaming"});
    EXPECT_EQ(streaming.wire.lines, Texts{});
}

TEST(Connect, AddressedModeHearsOnlyItsOwnAddress) {
    ScriptedLink test(comm_method::kAddressed);
    test.link->SetAddress(5);
    test.wire.device = Always("\x02\x06V3.10.02 MERRIN\x03\r"s);
    EXPECT_EQ(Raised([&] { test.link->Connect(); }).Code(), code::kLink);
    EXPECT_EQ(test.wire.lines.back(), "\x02\x05VERSION"s);
    test.wire.device = Always("\x02\x05V3.10.02 MERRIN\x03\r"s);
    test.link->Connect();
    EXPECT_TRUE(test.link->Connected());
}

TEST(Connect, AddressesRunFromOneTo255) {
    ScriptedLink test(comm_method::kAddressed);
    for (const int good : {1, 255}) {
        test.link->SetAddress(good);
        EXPECT_EQ(test.link->Address(), good);
    }
    for (const int bad : {0, 256, 65537}) {
        const Error error = Raised([&] { test.link->SetAddress(bad); });
        EXPECT_EQ(error.Number(), 0x80042712u);
        EXPECT_NE(error.Description().find(std::to_string(bad)), std::string::npos);
        EXPECT_EQ(test.link->Address(), 255);
    }
}

TEST(Connect, EveryTextOfTheLinkIsThere) {
    const TestContext context{CALYX_DATA_DIR};
    for (int number = link_text::kUnreachable; number <= link_text::kPortBusy; ++number) {
        EXPECT_TRUE(context.texts.Has(number)) << number;
    }
}

TEST(Connect, EveryConnectionStartsAFreshLog) {
    const std::string path = testing::TempDir() + "calyx_commlog_test.txt";
    {
        ScriptedLink test(comm_method::kTcp, path);
        test.Connect();
        test.Connect();
        EXPECT_TRUE(test.link->SendData("UID=1", 100));
        test.wire.device = nullptr;  // silence stands in the log as well
        EXPECT_EQ(test.link->GetData("UID"), "");
        EXPECT_EQ(test.link->LogTrouble(), "");
    }
    EXPECT_EQ(ReadFile(path),
              "OUT:VERSION\r\nIN:V3.10.02 MERRIN\r\nOUT:UID=1\r\nIN:OK\r\nOUT:UID\r\nIN:\r\n");
    std::filesystem::remove(path);

    ScriptedLink nowhere(comm_method::kTcp, path + "/no/such/folder");
    nowhere.Connect();
    EXPECT_TRUE(nowhere.link->SendData("UID=1", 100));
    EXPECT_NE(nowhere.link->LogTrouble(), "");
}

}  // namespace
}  // namespace calyx::test
