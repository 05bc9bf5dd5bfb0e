#include "sim/simulator.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "sim/text.h"

namespace calyx::sim {

namespace {

constexpr std::string_view kDefaults =
    "CFGPWD=0\r\n"
    "SPPWD=0\r\n"
    "CONSNUM=0\r\n"
    "CONSTUP=0\r\n"
    "DSPRATE=200\r\n"
    "UID=1\r\n"
    "KYBDLK=OFF\r\n"
    "ZERONLY=OFF\r\n"
    "GRAVADJ=OFF\r\n"
    "ALERT.SERV=0.0.0.0\r\n";

constexpr char kStx = 2;
constexpr char kEtx = 3;

// "#" and a number from 1 to the highest item, or nothing where the command has no items.
bool IsItem(std::string_view text, unsigned highest) {
    if (highest == 0 || text.empty()) return highest == 0 && text.empty();
    if (text.front() != '#') return false;
    unsigned item = 0;
    const auto [end, error] = std::from_chars(text.data() + 1, text.data() + text.size(), item);
    return error == std::errc() && end == text.data() + text.size() && item >= 1 && item <= highest;
}

}  // namespace

struct Simulator::Command {
    std::string_view word;
    unsigned items;  // the highest item number of "word#number"; 0: the word alone
    std::string (Simulator::*run)();
};

const Simulator::Command Simulator::kCommands[] = {
    {"VERSION", 0, &Simulator::AnswerVersion},   {"KNIX", 0, &Simulator::AnswerSetupMode},
    {"DUMPALL", 0, &Simulator::AnswerDump},      {"WDGT.CLR", 0, &Simulator::ClearWidgets},
    {"DB.DELALL", 0, &Simulator::ClearDatabase}, {"SJ.DOWNLOAD", 32, &Simulator::DownloadJunctionBoxes},
};

Simulator::Simulator(SimulatorOptions options)
    : options_(std::move(options)), reader_(options_.address != 0) {
    if (VersionNumber().empty() || options_.version.find_first_of("\r\n") != std::string::npos) {
        throw std::invalid_argument(
            "the version text begins with the version number and is one line, for example \"" +
            SimulatorOptions{}.version + "\"");
    }
    if (options_.address < 0 || options_.address > 255)
        throw std::invalid_argument("a bus address is a number from 1 to 255");
    for (const auto& fault : options_.faults) AddFault(fault);
    if (auto kept = options_.stateFile.empty() ? std::nullopt : Store::Load(options_.stateFile)) {
        store_ = std::move(*kept);
    } else {
        store_.TakeLines(options_.content.empty() ? kDefaults : options_.content);
    }
    if (!options_.hardware.empty()) store_.Set("HARDWARE", options_.hardware);
    store_.Remove("VERSION");  // the firmware's own; DumpText() puts it first
    if (!options_.stateFile.empty()) store_.Save(options_.stateFile);
    savedChanges_ = store_.Changes();
}

void Simulator::NewConnection() {
    reader_.Reset();
}

Reply Simulator::Exchange(std::string_view& bytes) {
    if (!reader_.Take(bytes)) return {};
    return AnswerRaw(reader_.Line(), reader_.TooLong());
}

std::string Simulator::Receive(std::string_view bytes) {
    std::string answers;
    while (!bytes.empty()) answers += Exchange(bytes).bytes;
    return answers;
}

void Simulator::AddFault(std::string_view spec) {
    faults_.push_back(MakeFault(spec));
}

void Simulator::ForgetReceived() {
    received_.clear();
    keptBytes_ = 0;
    receivedCount_ = 0;
}

void Simulator::Record(std::string_view line) {
    const auto cost = [](const std::string& kept) { return kept.size() + kLineCost; };
    ++receivedCount_;
    received_.emplace_back(line);
    keptBytes_ += cost(received_.back());
    while (keptBytes_ > options_.receivedBytes) {
        keptBytes_ -= cost(received_.front());
        received_.pop_front();
    }
}

// On a bus, what is for others is not heard.
Reply Simulator::AnswerRaw(std::string_view raw, bool tooLong) {
    std::string_view line = raw;
    if (options_.address != 0) {
        const bool own = raw.size() >= 2 && raw[0] == kStx &&
                         static_cast<unsigned char>(raw[1]) == static_cast<unsigned char>(options_.address);
        if (!own) return {};
        line.remove_prefix(2);
    }
    Reply reply = AnswerLine(line, tooLong);
    reply.bytes = OnTheWire(reply, raw);
    return reply;
}

Reply Simulator::AnswerLine(std::string_view line, bool tooLong) {
    Record(line);
    Reply reply;
    if (line.empty()) return reply;
    const bool taken = std::any_of(faults_.begin(), faults_.end(),
                                   [&](const auto& fault) { return fault->TakeLine(line, reply); });
    if (!taken) reply.bytes = tooLong ? std::string(kRefused) : Handle(line);
    for (const auto& fault : faults_) fault->ChangeReply(line, reply);
    return reply;
}

std::string Simulator::OnTheWire(const Reply& reply, std::string_view raw) const {
    std::string wire = reply.stray;
    if (reply.echo) wire.append(raw).append(options_.address != 0 ? "\r" : "\r\n");
    if (options_.address == 0) return wire + reply.bytes;
    return wire + Framed(reply.bytes, reply.address != 0 ? reply.address : options_.address);
}

// Each line in a frame of its own: STX, address, text, ETX, CR.
std::string Simulator::Framed(std::string_view text, int address) const {
    std::string frames;
    while (!text.empty()) {
        const auto end = std::min(text.find('\r'), text.size());
        frames.append({kStx, static_cast<char>(address)}).append(text.substr(0, end)).append({kEtx, '\r'});
        text.remove_prefix(std::min(end + 2, text.size()));  // behind its CR LF
    }
    return frames;
}

Unasked Simulator::Streams() const {
    for (const auto& fault : faults_) {
        Unasked streamed = fault->Streams();
        if (streamed.everyMs > 0) return streamed;
    }
    return {};
}

std::string Simulator::Handle(std::string_view line) {
    const auto equals = line.find('=');
    if (equals != std::string_view::npos)
        return SetParameter(line.substr(0, equals), line.substr(equals + 1));
    if (options_.setupMode) {
        if (auto answer = loadCells_.Answer(store_, line)) return *answer;
    }
    const auto* command = FindCommand(line);
    return command != nullptr ? (this->*command->run)() : AnswerParameter(line);
}

const Simulator::Command* Simulator::FindCommand(std::string_view line) {
    const auto* found =
        std::find_if(std::begin(kCommands), std::end(kCommands), [line](const Command& command) {
            return BeginsNoCase(line, command.word) &&
                   IsItem(line.substr(command.word.size()), command.items);
        });
    return found == std::end(kCommands) ? nullptr : found;
}

// A command is no parameter: VERSION above all belongs to the firmware.
std::string Simulator::SetParameter(std::string_view key, std::string_view value) {
    const bool known = !options_.knows || options_.knows(key);
    const bool stored =
        known && Store::IsPlausibleKey(key) && FindCommand(key) == nullptr && store_.Set(key, value);
    return std::string(stored ? kAccepted : kRefused);
}

std::string Simulator::AnswerParameter(std::string_view key) const {
    if (const auto* value = store_.Find(key)) return UpperCase(key) + "=" + *value + "\r\n";
    if (const auto value = LoadCells::Initial(key)) return UpperCase(key) + "=" + *value + "\r\n";
    return std::string(kRefused);
}

std::string_view Simulator::VersionNumber() const {
    return std::string_view(options_.version).substr(0, options_.version.find(' '));
}

std::string Simulator::DumpText() const {
    std::string dump = "VERSION=" + std::string(VersionNumber()) + "\r\n" + store_.Text();
    for (int line = 1; line <= options_.fillLines; ++line) {
        dump.append("FILL.")
            .append(std::to_string(line))
            .append("=0123456789012345678901234567890123456789\r\n");
    }
    return dump;
}

std::string Simulator::AnswerVersion() {
    return options_.version + "\r\n";
}

std::string Simulator::AnswerSetupMode() {
    return std::string(options_.setupMode ? kAccepted : kRefused);
}

std::string Simulator::AnswerDump() {
    return DumpText();
}

std::string Simulator::ClearWidgets() {
    store_.RemoveKeysBeginning("WDGT#");
    return std::string(kAccepted);
}

std::string Simulator::ClearDatabase() {
    store_.RemoveKeysBeginning("DB.");
    return std::string(kAccepted);
}

std::string Simulator::DownloadJunctionBoxes() {
    return std::string(kAccepted);
}

bool Simulator::StateUnsaved() const {
    return !options_.stateFile.empty() && store_.Changes() != savedChanges_;
}

void Simulator::SaveState() {
    if (!StateUnsaved()) return;
    store_.Save(options_.stateFile);
    savedChanges_ = store_.Changes();
}

}  // namespace calyx::sim
