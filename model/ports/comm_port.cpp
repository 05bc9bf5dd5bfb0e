#include "model/ports/comm_port.h"

#include "model/validation/validate.h"

namespace calyx {

namespace {

constexpr int kLastPort = 32;
constexpr const char* kByteRange = "0 to 255";

// Passes lines on and notes whether all were accepted.
class Watched : public ILineSender {
  public:
    explicit Watched(ILineSender& sender) : sender_(sender) {}
    bool SendLine(std::string_view line) override {
        const bool accepted = sender_.SendLine(line);
        all_ = all_ && accepted;
        return accepted;
    }
    bool AllAccepted() const { return all_; }

  private:
    ILineSender& sender_;
    bool all_ = true;
};

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
    Need("ReloadDefaults");
    Parameters().ReloadDefaults();
    Fields().baudRate.Assign("9600");
    stream_.Parameters().ReloadDefaults();
}

std::string CCommPort::KeyOf(std::string_view stem) const {
    return std::string(kPortTable.prefix) + std::string(stem) + "#" + std::to_string(PortNumber());
}

void CCommPort::SetAddress(int address) {
    PortFields& fields = Fields("Address");
    if (address < 0 || address > 255)
        Fail(code::kOutOfRange, "Address", {std::to_string(address), kByteRange});
    fields.address = address;
}

void CCommPort::SetEOL(int delay) {
    PortFields& fields = Fields("EOL");
    if (delay < 0 || delay > 255) Fail(code::kOutOfRange, "EOL", {std::to_string(delay), kByteRange});
    fields.endOfLineDelay = delay;
}

void CCommPort::SetAlias(std::string_view alias) {
    PortFields& fields = Fields("Alias");
    if (alias.size() > 8) Fail(code::kTextTooLong, "Alias");
    if (!alias.empty() && !modValidate::ValidateAlias(alias)) Fail(code::kAliasRefused, "Alias");
    fields.alias.Assign(alias);
}

void CCommPort::RestoreState(Dictionary& lines, ReadReport& report) {
    RowObject::RestoreState(lines, report);
    stream_.RestoreState(lines, report);
}

bool CCommPort::SendToIndicator(ILineSender& sender, IDownload& download, bool inputFirst) const {
    Need("SendToIndicator");
    if (inputFirst && !SendLines(InputTypeCommand() + "=" + InputType(), sender, download)) return false;
    Watched lines(sender);
    if (!SendLines(GetTextOutput(false), lines, download)) return false;
    const bool goesOn = lines.AllAccepted() && Values().UsesStreamDefinition();
    return !goesOn || SendLines(stream_.GetTextOutput(false), sender, download);
}

void CCommPort::AppendSent(std::string& out, const Target& target) const {
    Parameters().Append(out, target);
    if (Values().UsesStreamDefinition()) stream_.Parameters().Append(out, target);
}

std::string CCommPort::GetIWriteImportDef() const {
    Need("GetIWriteImportDef");
    const auto& alias = Values().alias;
    if (alias.Trimmed().empty()) return {};
    return alias.Padded() + " : constant integer := " + std::to_string(PortNumber()) + ";\r\n";
}

}  // namespace calyx
