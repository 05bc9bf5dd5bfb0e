// The link against a bare client, and against the wire itself.
//   calyx-bench-link [--lines N] [--rounds N]

#include <CLI/CLI.hpp>
#include <array>
#include <asio.hpp>
#include <chrono>
#include <filesystem>
#include <iostream>

#include "bench/generator.h"
#include "bench/measure.h"
#include "comm/download.h"
#include "comm/safe_send.h"
#include "comm/transport_factory.h"
#include "model/language/text.h"
#include "platform/file_store.h"
#include "sim/pty_simulator.h"
#include "sim/tcp_server.h"
#include "tests/support/model_fixture.h"

namespace {

using namespace calyx;
using namespace calyx::bench;

constexpr double kClientAim = 1.5;  // times the bare client's time
constexpr double kWireAim = 1.05;   // times the bytes' own time
constexpr int kBitsOfByte = 10;     // start, eight data bits, stop
constexpr int kDelayMs = 100;       // as the program's setting is at first

struct Settings : ILinkSettingsStore {
    LinkSettings settings;
    LinkSettings Load() override { return settings; }
    void Store(const LinkSettings&) override {}
};

struct Client {
    test::TestContext& context;
    SteadyClock clock{};
    TransportFactory factory{context.texts, clock};
    Settings store{};
    CancelFlag cancel{false};
    IDownloadEvents quiet{};
    std::unique_ptr<CIndicatorComm> link{};

    void Connect() {
        store.settings.delayMs = kDelayMs;
        link = std::make_unique<CIndicatorComm>(LinkParts{factory, clock, store, context.texts, cancel, {}});
        link->Connect();
    }
    void ConnectTcp(std::uint16_t port) {
        store.settings.method = comm_method::kTcp;
        store.settings.host = "127.0.0.1";
        store.settings.tcpPort = port;
        Connect();
    }
    void ConnectSerial(const std::string& port, int baud) {
        store.settings.method = 0;
        store.settings.port = port;
        store.settings.baud = std::to_string(baud);
        Connect();
    }
    void Download(const std::string& lines) {
        CDownload download(*link, cancel, quiet);
        const DownloadReport report =
            download.RunSteps({{.status = "lines", .lines = lines}}, {}, context.texts);
        if (report.accepted != report.total) throw std::runtime_error("not every line was accepted");
    }
};

// Nothing but a socket that waits for each answer.
class BareClient {
  public:
    explicit BareClient(std::uint16_t port) : socket_(io_) {
        socket_.connect({asio::ip::address_v4::loopback(), port});
        socket_.set_option(asio::ip::tcp::no_delay(true));
    }
    void Send(std::string_view line) {
        std::string text(line);
        text += '\r';
        asio::write(socket_, asio::buffer(text));
        std::string answer;
        std::array<char, 256> chunk{};
        while (answer.find("OK\r") == std::string::npos) {
            answer.append(chunk.data(), socket_.read_some(asio::buffer(chunk)));
            if (answer.find("??\r") != std::string::npos) throw std::runtime_error("refused: " + text);
        }
    }

  private:
    asio::io_context io_;
    asio::ip::tcp::socket socket_;
};

// The same on a serial line, whatever the time of its bytes.
class BareSerialClient {
  public:
    explicit BareSerialClient(const std::string& path) : port_(io_, path) {}
    void Send(std::string_view line) {
        std::string text(line);
        text += '\r';
        asio::write(port_, asio::buffer(text));
        std::string answer;
        std::array<char, 256> chunk{};
        while (answer.find("OK\r") == std::string::npos)
            answer.append(chunk.data(), port_.read_some(asio::buffer(chunk)));
    }

  private:
    asio::io_context io_;
    asio::serial_port port_;
};

double Seconds(const std::function<void()>& run) {
    const auto start = std::chrono::steady_clock::now();
    run();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

std::string Verdict(double ratio, double aim) {
    return ratio <= aim ? "met" : "missed";
}

// The first lines of the full-size configuration, each once.
std::string Lines(std::size_t count) {
    std::string lines;
    ForEachLine(FullSizeBody(), [&](std::string_view line) {
        // The version is the firmware's own and is never sent.
        if (count == 0 || line.find('=') == std::string_view::npos || line.starts_with("VERSION=")) return;
        lines.append(line).append("\r\n");
        --count;
    });
    return lines;
}

std::size_t CountOf(const std::string& lines) {
    return ReadLines(lines).size();
}

void AgainstABareClient(test::TestContext& context, std::size_t count, int rounds) {
    const std::string lines = Lines(count);
    sim::TcpSimulator simulator({});
    Client client{context};
    std::unique_ptr<BareClient> bare;
    // One indicator has one host at a time: each contender connects and leaves outside its time.
    const auto times =
        Interleaved({{.name = "bare client",
                      .run = [&] { ForEachLine(lines, [&](std::string_view line) { bare->Send(line); }); },
                      .prepare = [&] { bare = std::make_unique<BareClient>(simulator.Port()); },
                      .clean = [&] { bare.reset(); }},
                     {.name = "download",
                      .run = [&] { client.Download(lines); },
                      .prepare = [&] { client.ConnectTcp(simulator.Port()); },
                      .clean = [&] { client.link->Disconnect(); }}},
                    rounds);
    const double ratio = times[1].median / times[0].median;
    Table table("A download of " + std::to_string(CountOf(lines)) + " lines over TCP on this machine",
                {"", "time", "lines a second", "times the bare client", "aim", ""});
    const auto rate = [&](const Time& time) {
        return Fixed(static_cast<double>(CountOf(lines)) * 1e6 / time.median, 0);
    };
    table.Row({"bare stop-and-wait client", Microseconds(times[0].median), rate(times[0]), "", "", ""});
    table.Row({"download", Microseconds(times[1].median), rate(times[1]), Fixed(ratio, 2),
               "within " + Fixed(kClientAim, 1), Verdict(ratio, kClientAim)});
    table.Print();
    std::cout << std::flush;
}

void AgainstTheWire(test::TestContext& context) {
    Table table(
        "A download over a serial line that carries bytes at its rate",
        {"", "lines", "bytes", "on the wire", "bare client", "download", "times the wire", "aim", ""});
    for (const auto& [baud, count] : {std::pair(9600, 200u), std::pair(115200, 1000u)}) {
        const std::string lines = Lines(count);
        sim::PtySimulator simulator({}, {.settings = std::to_string(baud) + ",N,8,1", .paced = true});
        Client client{context};
        client.ConnectSerial(simulator.Path(), baud);
        std::size_t bytes = 0;
        ForEachLine(lines, [&](std::string_view line) {
            bytes += line.size() + 1 + std::string_view("OK\r\n").size();
        });
        // The question for setup mode is not among them.
        const double wire = static_cast<double>(bytes) * kBitsOfByte / baud;
        const double took = Seconds([&] { client.Download(lines); });
        client.link->Disconnect();
        // The rate is still set as the link left it.
        BareSerialClient bare(simulator.Path());
        const double least =
            Seconds([&] { ForEachLine(lines, [&](std::string_view line) { bare.Send(line); }); });
        const double ratio = took / wire;
        table.Row({std::to_string(baud) + " baud", std::to_string(CountOf(lines)), std::to_string(bytes),
                   Fixed(wire, 3) + " s", Fixed(least, 3) + " s", Fixed(took, 3) + " s", Fixed(ratio, 3),
                   "within " + Fixed(kWireAim, 2), Verdict(ratio, kWireAim)});
    }
    table.Print();
    std::cout << "The bare client waits for the same bytes: what it takes beyond them is this machine's.\n";
}

// Everything that changed-only takes: reading the indicator, the backup, ten lines, reading them back.
struct Changed {
    double reading = 0, sending = 0;
};
Changed SendChanged(Client& client, const CIndicator& document, const std::string& folder,
                    std::size_t changes) {
    IUploadEvents silent;
    CSafeSend sending(*client.link, client.context, client.cancel, client.quiet, silent,
                      {folder, folder + "send.journal"});
    Changed took;
    took.reading = Seconds([&] { sending.Prepare("bench"); });
    const DownloadOptions options{.mask = download_option::chkBase | download_option::chkSetpoints};
    took.sending = Seconds([&] {
        const SafeSendReport report = sending.Send(sending.Preview(document, options), options, "bench");
        if (!report.Success() || report.counts.sent != changes)
            throw std::runtime_error("not the changed lines went: " + report.InWords(client.context.texts));
    });
    return took;
}

void ChangedOnly(test::TestContext& context) {
    constexpr int kBaud = 115200;
    constexpr std::size_t kChanges = 10;
    const std::string folder = std::filesystem::temp_directory_path().string() + "/calyx-bench-link/";
    std::filesystem::create_directories(folder);
    FileStore disk;
    context.files = &disk;
    CIndicator document(context);
    std::string body = "HARDWARE=0,0,0,0,0,0,0,0,0,0,0,0,0,0\r\n";
    for (int scale = 1; scale <= 32; ++scale)
        body += "SC.SRC#" + std::to_string(scale) + "=P," + std::to_string(scale) + "\r\n";
    for (int setpoint = 1; setpoint <= 100; ++setpoint)
        body += "SP.KIND#" + std::to_string(setpoint) + "=GROSS\r\n";
    document.LoadText(body, "bench");
    const DownloadOptions options{.mask = download_option::chkBase | download_option::chkSetpoints};
    std::string all;
    for (const std::string& line : SendingOrder(document, options, context.target.Gated()))
        all += line + "\r\n";

    Table table(
        "Only what changed: " + std::to_string(kChanges) + " lines of " + std::to_string(CountOf(all)),
        {"", "full download", "reading first", "sending and reading back", "together"});
    const auto measure = [&](const std::string& name, Client& client) {
        const double full = Seconds([&] { client.Download(all); });
        std::size_t changed = 0;
        std::string other;
        for (const KeyValue& line : ReadLines(all)) {
            if (line.key.starts_with("SP.VALUE#") && changed < kChanges && ++changed > 0)
                other += line.key + "=77\r\n";
        }
        if (changed != kChanges) throw std::runtime_error("there are not enough lines to change");
        client.Download(other);
        const Changed took = SendChanged(client, document, folder, kChanges);
        table.Row({name, Fixed(full, 3) + " s", Fixed(took.reading, 3) + " s", Fixed(took.sending, 3) + " s",
                   Fixed(took.reading + took.sending, 3) + " s"});
    };
    {
        sim::TcpSimulator simulator({.content = "; empty"});
        Client client{context};
        client.ConnectTcp(simulator.Port());
        measure("TCP on this machine", client);
    }
    {
        sim::PtySimulator simulator({.content = "; empty"},
                                    {.settings = std::to_string(kBaud) + ",N,8,1", .paced = true});
        Client client{context};
        client.ConnectSerial(simulator.Path(), kBaud);
        measure(std::to_string(kBaud) + " baud", client);
    }
    table.Print();
    std::cout << "Reading ends with the reception wait: " << kDelayMs * 20 << " ms of silence over TCP, "
              << kDelayMs << " ms on this serial line.\n";
    std::filesystem::remove_all(folder);
}

}  // namespace

int main(int count, char** arguments) {
    CLI::App app("The link against a bare client, and against the wire itself");
    std::size_t lines = 3000;
    int rounds = 11;
    app.add_option("--lines", lines, "lines of a download over TCP")->check(CLI::Range(100, 7000));
    app.add_option("--rounds", rounds, "rounds of the comparison with the bare client")
        ->check(CLI::Range(3, 1000));
    CLI11_PARSE(app, count, arguments);
    try {
        test::TestContext context(CALYX_DATA_DIR);
        AgainstABareClient(context, lines, rounds);
        AgainstTheWire(context);
        ChangedOnly(context);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "calyx-bench-link: " << error.what() << '\n';
        return 1;
    }
}
