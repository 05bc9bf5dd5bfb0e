#include "model/setpoints/setpoint.h"

#include "model/validation/validate.h"

namespace calyx {

namespace {

constexpr int kHeading = 3920;           // {1} title, {2} kind
constexpr int kHeadingWithAlias = 3921;  // {3} alias

// A time of day in the long form of the listing: "6:30:00 PM".
std::string LongTime(DayTime time) {
    constexpr std::int32_t kHour = 3600, kHalfDay = 12 * kHour;
    const bool afternoon = time.seconds >= kHalfDay;
    const std::int32_t hour = time.seconds % kHalfDay / kHour;
    std::string clock;
    AppendDayTime(clock, time, DayTimeForm::HourMinuteSecond, ":");
    return std::to_string(hour == 0 ? 12 : hour) + clock.substr(2) + (afternoon ? " PM" : " AM");
}

// As the listing shows it: trips by their words, times with their parts apart.
std::string PrintedText(const CSetpoint& setpoint, std::size_t row) {
    const auto& item = setpoint.Parameters();
    const std::string_view stem = item.Info(row).stem;
    std::string text;
    if (stem == "TRIP") {
        text = item.Text(row);
    } else if (stem == "TIME") {
        text = LongTime(setpoint.Values().time);
    } else if (stem == "DURATION") {
        AppendDayTime(text, setpoint.Values().duration, DayTimeForm::HourMinuteSecond, ":");
    } else {
        text = DisplayText(item, row);
    }
    return text;
}

}  // namespace

void CSetpoint::Initialize(int setpointNumber) {
    if (setpointNumber < 1 || setpointNumber > kSetpoints) {
        Fail(code::kOutOfRange, "Initialize", {std::to_string(setpointNumber), "1 to 100"});
    }
    Begin(setpointNumber, "#" + std::to_string(setpointNumber));
}

void CSetpoint::InitializeLike(const CSetpoint& other, int setpointNumber) {
    BeginLike(other, setpointNumber, "#" + std::to_string(setpointNumber));
}

int CSetpoint::Kind() const {
    Need("Kind");
    return static_cast<int>(Values().kind);
}

void CSetpoint::SetKind(int kind) {
    Need("Kind");
    SetpointFields& fields = Fields();
    if (kind < kFirstSetpointKind || kind > kLastSetpointKind) {
        Fail(code::kOutOfRange, "Kind", {std::to_string(kind), "1 to 32"});
    }
    fields.kind = static_cast<SetpointKind>(kind);
    if (fields.IsOff()) fields.alias.Assign("");
    Parameters().Settle();
}

void CSetpoint::SetAlias(std::string_view alias) {
    Need("Alias");
    SetpointFields& fields = Fields();
    if (alias.size() > 8) Fail(code::kTextTooLong, "Alias");
    if (!alias.empty() && !modValidate::ValidateAlias(alias)) Fail(code::kAliasRefused, "Alias");
    fields.alias.Assign(alias);
}

std::string CSetpoint::GetPrintOutput() const {
    Need("GetPrintOutput");
    const auto& item = Parameters();
    const ResourceTexts& texts = Context().texts;
    const std::string title = texts.Format(item.Title(), {std::to_string(Number())});
    const std::string kind = texts.Text(KindName(Values().kind));
    const std::string_view alias = Values().alias.Trimmed();
    std::string block =
        texts.Format(alias.empty() ? kHeading : kHeadingWithAlias, {title, kind, alias}) + "\r\n";
    const std::vector<bool> written = item.WrittenRows();
    for (std::size_t i = 0; i < item.RowCount(); ++i) {
        const auto& info = item.Info(i);
        const bool inHeading = info.stem == "KIND" || info.stem == "ALIAS";
        if (!written[i] || inHeading) continue;
        const std::string value = PrintedText(*this, i);
        block.append("  ").append(texts.Text(info.more.label)).append(":");
        if (!value.empty()) block.append(" ").append(value);
        block.append("\r\n");
    }
    return block;
}

std::string CSetpoint::GetIWriteImportDef() const {
    Need("GetIWriteImportDef");
    const std::string_view alias = Values().alias.Trimmed();
    if (alias.empty()) return {};
    return std::string(alias) + " : constant integer := " + std::to_string(Number()) + ";\r\n";
}

bool CSetpoint::SendToIndicator(ILineSender& sender, IDownload& download) const {
    Need("SendToIndicator");
    return SendLines(GetTextOutput(false), sender, download);
}

}  // namespace calyx
