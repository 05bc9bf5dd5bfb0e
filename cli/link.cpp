#include "cli/link.h"

#include "app/link_settings_store.h"
#include "cli/documents.h"
#include "cli/exit.h"
#include "comm/detection.h"
#include "comm/link_texts.h"
#include "comm/serial/port_settings.h"
#include "model/language/text.h"

namespace calyx::cli {

namespace {

constexpr const char* kBusEnabled =
    "The Bus parameter is enabled for the communications port you are using. Please disable this parameter "
    "to "
    "connect.";

bool IsHost(std::string_view host) {
    if (host.starts_with('[')) return host.size() > 2 && host.find(']') == host.size() - 1;
    return !host.empty() && host.find_first_of(" :[]/") == std::string_view::npos;
}

// 0: it is none.
std::uint16_t PortOf(std::string_view text) {
    const bool digits =
        !text.empty() && text.size() <= 5 && text.find_first_not_of("0123456789") == std::string_view::npos;
    const int port = digits ? ReadInteger(text)->value : 0;
    return port <= 65535 ? static_cast<std::uint16_t>(port) : 0;
}

// "indicator.plant.example:10001", "[::1]:10001".
void TakeAddress(const std::string& text, LinkSettings& link) {
    const std::size_t colon = text.rfind(':');
    const bool split = colon != std::string::npos;
    const std::string host = text.substr(0, split ? colon : 0);
    link.tcpPort = split ? PortOf(std::string_view(text).substr(colon + 1)) : std::uint16_t{0};
    if (!IsHost(host) || link.tcpPort == 0) {
        throw UsageError("--tcp " + text +
                         " is not HOST:PORT, for example 192.168.0.20:10001 or [::1]:10001");
    }
    link.host = host.starts_with('[') ? host.substr(1, host.size() - 2) : host;
}

void TakeSettings(const std::string& text, LinkSettings& link) {
    const auto fields = Split(text, ',');
    if (!ReadPortSettings(text)) throw UsageError("--settings " + text + " is not like 9600,N,8,1");
    link.baud = fields[0];
    link.parity = fields[1];
    link.dataBits = fields[2];
    link.stopBits = fields[3];
}

LinkSettings StoredSettings(AppContext& app) {
    return LinkSettingsStore(app.settings, app.model.texts, [&](const Error& error) { app.Record(error); })
        .Load();
}

}  // namespace

void LinkOptions::Declare(Options& options) {
    options.Group("LINK", "LINK, the way to the indicator:");
    options.Text(tcp, "--tcp", "HOST:PORT", "over TCP/IP");
    options.Text(serial, "--serial", "DEVICE", "over a serial line, for example COM3 or /dev/ttyUSB0");
    options.Text(settings, "--settings", "9600,N,8,1",
                 "of the serial line: baud, parity, data bits, stop bits");
    options.Flag(detect, "--auto", "finds the settings of the serial line; those of --settings come first");
    options.Number(address, "--address", "N", "bus address on an addressed serial line", 1, 255);
    options.Text(search, "--search", "TEXT", "must stand in the indicator's identification");
    options.Number(delayMs, "--delay-ms", "N", "communication delay, the unit of the waits for a reply", 0,
                   60000);
    options.Text(log, "--log", "FILE", "writes all that goes over the link to this file");
}

LinkSettings LinkOptions::Resolve(const LinkSettings& stored) const {
    if (tcp && serial) throw UsageError("give --tcp or --serial, not both");
    if (!Given())
        throw UsageError("the way to the indicator is missing; give --tcp HOST:PORT or --serial DEVICE");
    const bool serialOnly = settings || detect || address;
    if (tcp && serialOnly) throw UsageError("--settings, --auto and --address are for --serial");
    if (detect && address) throw UsageError("--auto asks without a bus address; give the settings instead");
    LinkSettings link = stored;
    if (tcp) {
        TakeAddress(*tcp, link);
        link.method = comm_method::kTcp;
    } else {
        link.port = *serial;
        link.method = detect ? comm_method::kDetect : address ? comm_method::kAddressed : 0;
        link.address = address.value_or(link.address);
        if (settings) TakeSettings(*settings, link);
        link.storedFirst = link.storedFirst || settings;
    }
    if (search) link.searchText = *search;
    if (delayMs) link.delayMs = *delayMs;
    link.logging = stored.logging || log;
    return link;
}

std::string LinkOptions::LogFile(Program& program) const {
    return log ? *log : program.App().folders.userData + "commlog.txt";
}

Link::Link(Program& program, const LinkOptions& options, Own own)
    : program_(program),
      settings_(options.Resolve(StoredSettings(program.App()))),
      transports_(program.Model().texts, clock_),
      comm_({transports_, clock_, *this, program.Model().texts, program.App().cancel,
             options.LogFile(program)}),
      progress_(program.Ends()) {
    if (options.log) NeedPlace(program, *options.log);
    TellUnfinished(program, own);
}

Link::~Link() {
    Disconnect();
}

std::string Link::Connect(Bus bus) {
    try {
        comm_.Connect();
        progress_.Clear();
    } catch (const Error& error) {
        progress_.Clear();
        if (!comm_.IsStreaming()) throw;
        throw Error(error.Code(), error.Source(), program_.Model().texts.Text(link_text::kStreaming));
    }
    std::string reply = comm_.ReadVersion(program_.Model().target);
    program_.StopIfCancelled();
    WarnUnknown(program_);
    if (bus == Bus::Off && comm_.CheckForBusEnabled())
        throw Error(code::kLink, "Calyx.CIndicatorComm.CheckForBusEnabled", kBusEnabled);
    program_.StopIfCancelled();
    return reply;
}

// A minute in the dark would look like a program that hangs.
void Link::AutoDetecting(const std::string& tried, bool&) {
    if (settings_.method != comm_method::kDetect || tried == tried_) return;
    tried_ = tried;
    constexpr int kSecond = 1000;
    const int left = (DetectionTimeLeft(tried) + kSecond - 1) / kSecond;
    progress_.Live("trying " + tried + ", " + std::to_string(left) + " s left at most");
}

void Link::Disconnect() {
    try {
        if (comm_.Connected()) comm_.Disconnect();
    } catch (const Error& trouble) {
        program_.Say(trouble.Description());
    }
    if (const std::string trouble = comm_.LogTrouble(); !trouble.empty()) program_.Say(trouble);
}

}  // namespace calyx::cli
