// The link over real sockets, on this machine only.

#include "comm/download.h"
#include "comm/transport_factory.h"
#include "comm/upload.h"
#include "sim/tcp_server.h"
#include "tests/comm/scripted_link.h"

namespace calyx::test {
namespace {

// A link over TCP with the waits cut down to what a loopback needs.
struct TcpLink {
    TestContext context{CALYX_DATA_DIR};
    SteadyClock clock;
    TransportFactory factory{context.texts, clock};
    MemorySettings store;
    CancelFlag cancel{false};
    std::unique_ptr<CIndicatorComm> link;

    explicit TcpLink(std::uint16_t port, const std::string& host = "127.0.0.1") {
        store.settings.method = comm_method::kTcp;
        store.settings.host = host;
        store.settings.tcpPort = port;
        store.settings.delayMs = 25;
        link = std::make_unique<CIndicatorComm>(LinkParts{factory, clock, store, context.texts, cancel, {}});
    }
};

TEST(Loopback, ADownloadComesBackByUpload) {
    sim::TcpSimulator simulator({.version = "V3.09.04 MERRIN"});
    TcpLink test(simulator.Port());
    test.link->Connect();
    EXPECT_EQ(test.link->ReadVersion(test.context.target), "V3.09.04 MERRIN");
    EXPECT_EQ(test.context.target.prefix, "3.09.");

    CIndicator document(test.context);
    document.LoadText(ReadFile(std::string(CALYX_DATA_DIR) + "/samples/truck-scale.mrn"), "sample");
    const DownloadOptions options{.mask = download_option::kUsual | download_option::chkCalibration};
    IDownloadEvents quiet;
    CDownload download(*test.link, test.cancel, quiet);
    const DownloadReport sent = download.Run(document, options, test.context.target.Gated());
    EXPECT_EQ(sent.end, DownloadReport::End::Complete);
    EXPECT_EQ(sent.accepted, sent.total);
    EXPECT_GT(sent.total, 150);

    IUploadEvents silent;
    const UploadReport read = Upload(*test.link, test.context, silent);
    ASSERT_EQ(read.end, UploadReport::End::Complete);
    EXPECT_EQ(read.text, simulator.Snapshot().dump);
    const auto held = ReadLines(read.text);
    std::size_t parameters = 0;
    for (const std::string& line : SendingOrder(document, options, test.context.target.Gated())) {
        for (const KeyValue& parameter : ReadLines(line)) {
            EXPECT_EQ(std::count(held.begin(), held.end(), parameter), 1) << line;
            ++parameters;
        }
    }
    EXPECT_GT(parameters, 150u);
}

TEST(Loopback, FaultsOfTheWire) {
    sim::TcpSimulator simulator({.faults = {"split", "garbage"}});
    TcpLink test(simulator.Port());
    test.link->Connect();
    EXPECT_EQ(test.link->Send("UID=GATE", 5000).attempts, 1);
    simulator.AddFault("drop:1");
    test.link->SendData("UID=GATE", 5000);
    EXPECT_EQ(Raised([&] { test.link->GetData("DUMPALL"); }).Code(), code::kLink);
    EXPECT_FALSE(test.link->Connected());
    EXPECT_EQ(test.link->Send("UID=GATE", 5000).result, SendResult::Lost);
}

TEST(Loopback, WhatCannotBeReachedIsSaidInWords) {
    std::uint16_t freed = 0;
    {
        sim::TcpSimulator simulator({});
        freed = simulator.Port();
    }
    for (const auto* host : {"127.0.0.1", "no host name"}) {
        TcpLink test(freed, host);
        const Error error = Raised([&] { test.link->Connect(); });
        EXPECT_EQ(error.Code(), code::kLink);
        EXPECT_EQ(error.Source(), "Calyx.CIndicatorComm.ConnectTCPIP");
        EXPECT_EQ(error.Chain(), std::vector<std::string>{"Calyx.CIndicatorComm.Connect"});
        EXPECT_FALSE(test.link->Connected());
    }
    TcpLink serial(freed);
    serial.store.settings.method = 0;
    EXPECT_EQ(Raised([&] { serial.link->Connect(); }).Source(), "Calyx.CIndicatorComm.Connect");
}

TEST(Loopback, CancelEndsConnecting) {
    sim::TcpSimulator simulator({});
    TcpLink test(simulator.Port());
    test.cancel = true;
    EXPECT_EQ(Raised([&] { test.link->Connect(); }).Code(), code::kLink);
    EXPECT_EQ(simulator.Snapshot().receivedCount, 0u);
}

// Far more than the system's buffers hold: writing must neither block nor lose a byte once it is read.
TEST(Loopback, AnEndThatDoesNotReadBlocksNothing) {
    asio::io_context context;
    asio::ip::tcp::acceptor acceptor(context, {asio::ip::address_v4::loopback(), 0});
    TcpLink test(0);
    const auto transport =
        test.factory.MakeTcp("127.0.0.1", acceptor.local_endpoint().port(), [] { return true; });
    auto peer = acceptor.accept();
    const std::string block(8u << 20, 'x');
    transport->Write(block);
    transport->Write("end");
    std::string read;
    std::array<char, 65536> chunk{};
    peer.non_blocking(true);
    while (transport->IsOpen() && read.size() < block.size() + 3) {
        std::error_code nothingYet;
        read.append(chunk.data(), peer.read_some(asio::buffer(chunk), nothingYet));
        transport->Wait(0);
    }
    EXPECT_EQ(read, block + "end");
    peer.close();
    while (transport->IsOpen()) transport->Wait(1000);
    EXPECT_EQ(transport->Read(), "");
}

}  // namespace
}  // namespace calyx::test
