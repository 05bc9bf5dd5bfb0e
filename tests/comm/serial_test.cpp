// Serial lines over pseudo-terminals of this machine: settings, detection, addresses, whole downloads.

#include "comm/serial/port_settings.h"

#include "comm/download.h"
#include "comm/serial/opening.h"
#include "comm/stream_simulator.h"
#include "comm/transport_factory.h"
#include "comm/upload.h"
#include "sim/pty_simulator.h"
#include "tests/comm/scripted_link.h"

namespace calyx::test {
namespace {

struct SerialLink {
    TestContext context{CALYX_DATA_DIR};
    SteadyClock clock;
    TransportFactory factory{context.texts, clock};
    MemorySettings store;
    CancelFlag cancel{false};
    Recorder events;
    std::unique_ptr<CIndicatorComm> link;

    SerialLink(const std::string& port, const std::string& settings, int method = 0) {
        const auto fields = Split(settings, ',');
        store.settings.method = method;
        store.settings.port = port;
        store.settings.baud = fields[0];
        store.settings.parity = fields[1];
        store.settings.dataBits = fields[2];
        store.settings.stopBits = fields[3];
        store.settings.delayMs = 25;
        link = std::make_unique<CIndicatorComm>(LinkParts{factory, clock, store, context.texts, cancel, {}});
        link->AddObserver(events);
    }
    // A busy machine may leave the answer out for longer than the link waits: then once more.
    void Connect() {
        for (int left = 20;; --left) {
            try {
                return link->Connect();
            } catch (const Error&) {
                if (left == 0) throw;
            }
        }
    }
};

class Serial : public ::testing::Test {
  protected:
    void SetUp() override {
        if (!sim::HasPseudoTerminals()) GTEST_SKIP() << "this system has no pseudo-terminals";
    }
};

TEST(PortSettings, AreReadStrictly) {
    using enum PortSettings::Parity;
    EXPECT_EQ(ReadPortSettings("9600,N,8,1"), (PortSettings{9600, None, 8, 1}));
    EXPECT_EQ(ReadPortSettings(" 57600 , even , 7 , 2 "), (PortSettings{57600, Even, 7, 2}));
    EXPECT_EQ(ReadPortSettings("300,O,7,1")->parity, Odd);
    for (const auto* wrong :
         {"", "9600", "9600,8,N,1", "9600,N,9,1", "9600,N,8,3", "0,N,8,1", "9600,X,8,1", "1e4,N,8,1"})
        EXPECT_FALSE(ReadPortSettings(wrong)) << wrong;
}

TEST_F(Serial, ADownloadComesBackByUpload) {
    sim::PtySimulator simulator({}, {.settings = "115200,N,8,1"});
    SerialLink test(simulator.Path(), "115200,N,8,1");
    test.Connect();
    EXPECT_EQ(test.link->ReadVersion(test.context.target), "V3.10.02 MERRIN");
    EXPECT_EQ(test.store.stores, 1);
    EXPECT_EQ(test.events.told.back(), simulator.Path() + ":115200,N,8,1");
    CIndicator document(test.context);
    document.LoadText(ReadFile(std::string(CALYX_DATA_DIR) + "/samples/truck-scale.mrn"), "sample");
    IDownloadEvents quiet;
    CDownload download(*test.link, test.cancel, quiet);
    const DownloadReport sent = download.Run(document, {}, test.context.target.Gated());
    EXPECT_EQ(sent.accepted, sent.total);
    EXPECT_FALSE(test.link->CheckForBusEnabled());
    // A pause in the dump ends it, and on a busy machine one may come.
    IUploadEvents silent;
    std::string read;
    for (int left = 20; left > 0 && read != simulator.Snapshot().dump; --left)
        read = Upload(*test.link, test.context, silent).text;
    EXPECT_EQ(read, simulator.Snapshot().dump);
    test.link->Disconnect();
    EXPECT_EQ(test.events.told.back(), "disconnected");
}

TEST_F(Serial, OnlyTheRightRateAndParityAreUnderstood) {
    for (const auto* set : {"19200,N,8,1", "19200,O,7,1"}) {
        sim::PtySimulator simulator({}, {.settings = set});
        for (const auto* tried : {"19200,N,8,1", "19200,E,7,1", "19200,O,7,1"}) {
            SerialLink test(simulator.Path(), tried);
            test.store.settings.searchText = "merrin";
            const bool fits = std::string_view(set) == tried;
            try {
                fits ? test.Connect() : test.link->Connect();
                EXPECT_TRUE(fits) << set << " by " << tried;
            } catch (const Error& error) {
                EXPECT_FALSE(fits) << set << " by " << tried << ": " << error.Description();
                EXPECT_EQ(error.Code(), code::kLink);
            }
        }
    }
}

TEST_F(Serial, DetectionFindsTheSettingsAndKeepsThem) {
    sim::PtySimulator simulator({}, {.settings = "9600,O,7,1"});
    SerialLink test(simulator.Path(), "300,N,8,1");
    ASSERT_TRUE(test.link->AutoDetect());
    EXPECT_EQ(test.events.tried, (std::vector<std::string>{"9600,E,7,1", "9600,O,7,1"}));
    EXPECT_FALSE(test.link->Connected());
    EXPECT_EQ(test.link->CurrentSettings(), "9600,O,7,1");
    EXPECT_EQ(test.store.settings.baud, "9600");
    EXPECT_EQ(test.link->CommMethod(), 0);
    test.link->Connect();  // with what was found
    EXPECT_TRUE(test.link->Connected());
    EXPECT_TRUE(test.link->CheckCommMethod());

    // Stored settings first: no other pair is tried.
    SerialLink again(simulator.Path(), "9600,O,7,1", comm_method::kDetect);
    test.link->Disconnect();
    again.store.settings.storedFirst = true;
    again.link->Connect();
    EXPECT_EQ(again.events.tried, std::vector<std::string>{"9600,O,7,1"});
}

TEST_F(Serial, EveryAddressGoesThroughEightBits) {
    for (const int address : {3, 10, 13, 17, 255}) {
        SCOPED_TRACE(address);
        sim::PtySimulator simulator({.address = address}, {.settings = "38400,N,8,1"});
        SerialLink test(simulator.Path(), "38400,N,8,1", comm_method::kAddressed);
        test.store.settings.address = address;
        // Waits are ended by the answer, so that they may be long.
        constexpr int kLongMs = 60'000;
        test.store.settings.delayMs = kLongMs;
        test.link->SetAddress(address);
        test.Connect();
        EXPECT_EQ(test.link->Send("UID=BUS", kLongMs).attempts, 1);
        EXPECT_EQ(test.link->GetLine("UID"), "UID=BUS\r");
    }
}

TEST_F(Serial, StreamingIsFoundAndDetectionEnds) {
    sim::PtySimulator simulator({.faults = {"stream:20"}}, {.settings = "9600,N,8,1"});
    SerialLink test(simulator.Path(), "9600,N,8,1");
    EXPECT_TRUE(test.link->CheckForStreaming());
    EXPECT_FALSE(test.link->AutoDetect());
    EXPECT_TRUE(test.link->IsStreaming());
    EXPECT_EQ(test.events.Count("streaming"), 1u);
    EXPECT_TRUE(test.events.tried.empty());
}

TEST_F(Serial, WhatCannotBeOpenedIsSaidInWords) {
    sim::PtySimulator simulator({}, {.settings = "9600,N,8,1"});
    SerialLink holds(simulator.Path(), "9600,N,8,1");
    holds.Connect();
    struct Case {
        std::string port, settings;
        int text;
    };
    sim::PtySimulator free({}, {.settings = "9600,N,8,1"});
    const Case cases[] = {{"no-such-port", "9600,N,8,1", 9622},
                          {free.Path(), "12345,N,8,1", 9620},      // no rate of this system
                          {simulator.Path(), "9600,N,8,1", 9619},  // in use
                          {simulator.Path(), "9600,N,9,1", 9613}};
    for (const Case& c : cases) {
        SerialLink test(c.port, c.settings);
        const Error error = Raised([&] { test.link->Connect(); });
        EXPECT_EQ(error.Code(), code::kLink);
        const std::string text = test.context.texts.Text(c.text);
        EXPECT_EQ(error.Description().substr(error.Description().size() - 20), text.substr(text.size() - 20));
        EXPECT_FALSE(test.link->Connected());
    }
}

TEST(SerialPort, OneThatIsNotThereIsSaidInWords) {
    SerialLink test("no-such-port", "9600,N,8,1");
    const Error error = Raised([&] { test.link->Connect(); });
    EXPECT_EQ(error.Code(), code::kLink);
    EXPECT_TRUE(error.Description().starts_with("This computer has no serial port ")) << error.Description();
    EXPECT_EQ(error.Description().find(".."), std::string::npos) << error.Description();
    EXPECT_NE(error.Description().find("no-such-port"), std::string::npos) << error.Description();
    EXPECT_FALSE(test.link->Connected());
}

// A driver that knows fewer settings than there are.
TEST(SerialPort, TheSettingThatIsRefusedIsNamed) {
    using Refused = serial::Opening::Refused;
    const auto refused = std::make_error_code(std::errc::invalid_argument);
    const auto driver = [&](const PortSettings& asked) {
        return asked.baud > 115'200 || asked.dataBits == 7 ? refused : std::error_code();
    };
    const TestContext context{CALYX_DATA_DIR};
    const struct {
        const char* settings;
        Refused what;
        const char* words;
    } cases[] = {{"9600,O,8,2", Refused::Nothing, ""},
                 {"230400,N,8,1", Refused::Rate, "does not take 230400 baud"},
                 {"9600,E,7,1", Refused::Framing, "does not take the framing E,7,1"},
                 {"230400,E,7,1", Refused::Rate, "does not take 230400 baud"}};
    for (const auto& c : cases) {
        const serial::Opening opening = serial::ApplySettings(*ReadPortSettings(c.settings), driver);
        EXPECT_EQ(opening.refused, c.what) << c.settings;
        if (c.what == Refused::Nothing) continue;
        try {
            serial::FailOpening(context.texts, "COM7", c.settings, opening);
        } catch (const SettingsRefused& error) {
            EXPECT_NE(error.Description().find(c.words), std::string::npos) << error.Description();
        }
    }
    const auto gone = serial::ApplySettings({}, [&](const PortSettings&) { return refused; });
    EXPECT_EQ(gone.refused, Refused::Port) << "nothing goes: no other settings are asked for";
}

// The other end of the line is pulled out while an answer is awaited.
TEST_F(Serial, ALineThatEndsIsLost) {
    auto simulator = std::make_unique<sim::PtySimulator>(sim::SimulatorOptions{});
    SerialLink test(simulator->Path(), "9600,N,8,1");
    test.Connect();
    simulator.reset();
    EXPECT_EQ(test.link->Send("UID=1", 5000).result, SendResult::Lost);
    EXPECT_FALSE(test.link->Connected());
}

TEST(StreamSimulator, SendsItsWeightsInTurn) {
    ScriptedLink test;
    std::string written;
    test.wire.device = [&](Wire&, const std::string& line) { written += line + "|"; };
    StreamSimulator simulator(test.factory, test.wire.clock);
    StreamFields stream;
    stream.format = "<P><W7.><CR>";
    simulator.Set(stream, {{.value = 10}, {.value = 20}});
    simulator.Start("COM7", "9600,N,8,1", 100);
    EXPECT_EQ(test.wire.opened.back(), "9600,N,8,1");
    const std::string first = simulator.Poll();
    EXPECT_FALSE(first.empty());
    EXPECT_EQ(simulator.Poll(), "");  // not due yet
    EXPECT_EQ(simulator.UntilNext(), 100);
    test.wire.clock.now += 100;
    const std::string second = simulator.Poll();
    EXPECT_NE(first, second);
    test.wire.clock.now += 1000;  // missed ones are not made up for
    EXPECT_EQ(simulator.Poll(), first);
    EXPECT_EQ(simulator.Poll(), "");
    test.wire.open = false;
    test.wire.clock.now += 1000;
    EXPECT_EQ(simulator.Poll(), "");
    EXPECT_FALSE(simulator.IsRunning());
}

}  // namespace
}  // namespace calyx::test
