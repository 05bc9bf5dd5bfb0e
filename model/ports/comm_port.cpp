#include "model/ports/comm_port.h"

#include "model/validation/validate.h"

namespace calyx {

namespace {

constexpr int kLastPort = 32;
constexpr const char* kByteRange = "0 to 255";

}  // namespace

void CCommPort::CheckNumber(int portNumber) const {
    if (portNumber >= 1 && portNumber <= kLastPort) return;
    Fail(code::kOutOfRange, "Initialize", {std::to_string(portNumber), "1 to 32"});
}

void CCommPort::Initialize(int portNumber) {
    CheckNumber(portNumber);
    Begin(portNumber, "#" + std::to_string(portNumber));
    stream_.Initialize(portNumber);
}

void CCommPort::InitializeLike(const CCommPort& other, int portNumber) {
    CheckNumber(portNumber);
    BeginLike(other, portNumber, "#" + std::to_string(portNumber));
    stream_.InitializeLike(other.stream_, portNumber);
}

void CCommPort::ReloadDefaults() {
    Parameters().ReloadDefaults();
    Fields().baudRate.Assign("9600");
    stream_.Parameters().ReloadDefaults();
}

std::string CCommPort::KeyOf(std::string_view stem) const {
    return std::string(kPortTable.prefix) + std::string(stem) + "#" + std::to_string(PortNumber());
}

void CCommPort::SetAddress(int address) {
    PortFields& fields = Fields();
    if (address < 0 || address > 255)
        Fail(code::kOutOfRange, "Address", {std::to_string(address), kByteRange});
    fields.address = address;
}

void CCommPort::SetEOL(int delay) {
    PortFields& fields = Fields();
    if (delay < 0 || delay > 255) Fail(code::kOutOfRange, "EOL", {std::to_string(delay), kByteRange});
    fields.endOfLineDelay = delay;
}

void CCommPort::SetAlias(std::string_view alias) {
    PortFields& fields = Fields();
    if (alias.size() > 8) Fail(code::kTextTooLong, "Alias");
    if (!alias.empty() && !modValidate::ValidateAlias(alias)) Fail(code::kAliasRefused, "Alias");
    fields.alias.Assign(alias);
}

void CCommPort::RestoreState(Dictionary& lines, ReadReport& report) {
    RowObject::RestoreState(lines, report);
    stream_.RestoreState(lines, report);
}

bool CCommPort::SendToIndicator(ILineSender& sender, IDownload& download, bool inputFirst) const {
    if (inputFirst && !SendLines(InputTypeCommand() + "=" + InputType(), sender, download)) return false;
    if (!SendLines(GetTextOutput(false), sender, download)) return false;
    return !Values().UsesStreamDefinition() || SendLines(stream_.GetTextOutput(false), sender, download);
}

void CCommPort::AppendSent(std::string& out, const Target& target) const {
    Parameters().Append(out, target);
    if (Values().UsesStreamDefinition()) stream_.Parameters().Append(out, target);
}

std::string CCommPort::GetIWriteImportDef() const {
    const auto& alias = Values().alias;
    if (alias.Trimmed().empty()) return {};
    return alias.Padded() + " : constant integer := " + std::to_string(PortNumber()) + ";\r\n";
}

}  // namespace calyx
