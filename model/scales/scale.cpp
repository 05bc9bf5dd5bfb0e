#include "model/scales/scale.h"

#include <algorithm>

#include "model/scales/scale_source.h"

namespace calyx {

using namespace scale_kind;

namespace {

constexpr const char* kKindRange = "1 to 8";
constexpr const char* kNumberRange = "1 to 32";
constexpr int kHeading = 3410;  // {1} number, {2} kind
constexpr int kSourceLabel = 3002;
constexpr std::size_t kKindRow = 0, kSourceRow = 1;

std::string Suffix(int number) {
    return "#" + std::to_string(number);
}

// "4/15/2027"
std::string ShortDate(Date date) {
    if (date.Empty()) return {};
    return std::to_string(date.month) + "/" + std::to_string(date.day) + "/" + std::to_string(date.year);
}

PortInput InputsIn(const Dictionary& lines) {
    return [&lines](int port) {
        const Dictionary::Entry* entry = lines.Peek("EDP.INPUT" + Suffix(port));
        return entry == nullptr ? std::string() : std::string(Trim(entry->value));
    };
}

}  // namespace

void CScale::CheckNumber(int scaleNumber) const {
    if (scaleNumber >= 1 && scaleNumber <= kScaleCount) return;
    Fail(code::kOutOfRange, "Initialize", {std::to_string(scaleNumber), kNumberRange});
}

void CScale::Initialize(int scaleNumber) {
    CheckNumber(scaleNumber);
    Begin(scaleNumber, Suffix(scaleNumber));
}

void CScale::InitializeLike(const CScale& other, int scaleNumber) {
    CheckNumber(scaleNumber);
    BeginLike(other, scaleNumber, Suffix(scaleNumber));
}

std::int32_t CScale::ScaleType() const {
    Need("ScaleType");
    return Values().kind;
}

void CScale::SetScaleType(std::int32_t kind) {
    Need("ScaleType");
    ScaleFields& fields = Fields();
    if (!IsKind(kind)) Fail(code::kOutOfRange, "ScaleType", {std::to_string(kind), kKindRange});
    const bool assigned = std::any_of(fields.sources.begin(), fields.sources.end(),
                                      [](std::int32_t source) { return source != 0; });
    if (assigned && fields.kind != kProgrammable) Fail(code::kKindRefused, "ScaleType");
    ChangeKind(fields, kind);
}

std::string CScale::KindName() const {
    return DisplayText(Parameters(), kKindRow);
}

std::int32_t CScale::Components(int place) const {
    Need("Components");
    const ScaleFields& fields = Values();
    if (place < 1 || place > fields.sourceCount) {
        Fail(code::kOutOfRange, "Components",
             {std::to_string(place), "1 to " + std::to_string(fields.sourceCount)});
    }
    return fields.sources[static_cast<std::size_t>(place - 1)];
}

void CScale::AddComponent(std::int32_t source) {
    Need("AddComponent");
    ScaleFields& fields = Fields();
    const std::int32_t most = MaxSources(fields.kind);
    if (fields.sourceCount >= most) {
        Fail(code::kOutOfRange, "AddComponent",
             {std::to_string(fields.sourceCount + 1), "0 to " + std::to_string(most)});
    }
    fields.sources[static_cast<std::size_t>(fields.sourceCount++)] = source;
}

void CScale::RemoveComponent(std::int32_t source) {
    Need("RemoveComponent");
    ScaleFields& fields = Fields();
    const auto end = fields.sources.begin() + fields.sourceCount;
    const auto found = std::find(fields.sources.begin(), end, source);
    if (found == end || fields.kind == kProgrammable) {
        Fail(code::kOutOfRange, "RemoveComponent", {std::to_string(source), SourceEntries(fields)});
    }
    *std::move(found + 1, end, found) = 0;
    --fields.sourceCount;
}

std::size_t CScale::RowOf(std::string_view stem, std::string_view operation) const {
    Need(operation);
    const RowItem<ScaleFields>& item = Parameters();
    for (std::size_t row = 0; row < item.RowCount(); ++row) {
        if (item.Info(row).stem == stem) return row;
    }
    Fail(code::kOutOfRange, operation, {stem, "SC."});
}

std::string CScale::Command(std::string_view stem) const {
    const std::size_t row = RowOf(stem, "Command");
    return Parameters().Text(row);
}

void CScale::SetCommand(std::string_view stem, std::string_view text) {
    const std::size_t row = RowOf(stem, "SetCommand");
    RowItem<ScaleFields>& item = Parameters();
    const RowInfo& info = item.Info(row);
    const CTextList* list = info.IsHeldToList() ? item.List(row) : nullptr;
    RowItem<ScaleFields> changed = item;
    const bool taken = (list == nullptr || list->ValidateItem(Trim(text))) && info.more.use == Use::Line &&
                       changed.Take(row, text) == Taken::Whole;
    if (!taken) Fail(code::kOutOfRange, "SetCommand", {text, info.stem});
    const std::int32_t kind = changed.fields.kind;
    if (kind != item.fields.kind) {
        ChangeKind(changed.fields, kind);
        changed.Take(row, text);
    }
    item.fields = changed.fields;
}

std::string CScale::GetCalibrationValues(bool allParameters) const {
    Need("GetCalibrationValues");
    return Lines(allParameters ? Target::Everything() : Context().target.Gated(), LinePart::Calibration);
}

void CScale::AppendPrinted(std::string& out, std::size_t row) const {
    const RowItem<ScaleFields>& item = Parameters();
    const bool date = item.Info(row).kind == ValueKind::Date;
    const std::string value = date ? ShortDate(Values().maxWeightDate) : DisplayText(item, row);
    out.append("  ").append(Context().texts.Text(item.Info(row).more.label)).append(":");
    if (!value.empty()) out.append(" ").append(value);
    out.append("\r\n");
}

std::string CScale::GetPrintOutput() const {
    Need("GetPrintOutput");
    const RowItem<ScaleFields>& item = Parameters();
    if (Values().kind == kNone) return {};
    const ResourceTexts& texts = Context().texts;
    std::string out = texts.Format(kHeading, {std::to_string(Number()), KindName()}) + "\r\n";
    out.append("  ").append(texts.Text(kSourceLabel)).append(": ").append(SourceEntries(Values()));
    out.append("\r\n");
    std::vector<bool> printed(item.RowCount(), false);
    printed[kSourceRow] = true;
    item.EachLine([&](std::size_t row, Gate, bool met) {
        if (met && !printed[row]) AppendPrinted(out, row);
        printed[row] = printed[row] || met;
    });
    for (std::size_t row = 0; row < item.RowCount(); ++row) {
        if (item.Info(row).more.use == Use::ReadOnly) AppendPrinted(out, row);
    }
    return out;
}

std::string CScale::GetIWriteImportDef() const {
    Need("GetIWriteImportDef");
    const std::string_view alias = Values().alias.Trimmed();
    if (alias.empty()) return {};
    return std::string(alias) + " : constant integer := " + std::to_string(Number()) + ";\r\n";
}

bool CScale::SendToIndicator(ILineSender& sender, IDownload& download) const {
    Need("SendToIndicator");
    return SendLines(GetTextOutput(false), sender, download);
}

bool CScale::SendCalibrationToIndicator(ILineSender& sender, IDownload& download) const {
    Need("SendCalibrationToIndicator");
    return SendLines(GetCalibrationValues(false), sender, download);
}

void CScale::RestoreState(const ScaleFields& stored) {
    Need("RestoreState");
    const int number = Number();
    Fields() = stored;
    Fields().number = number;
}

void CScale::RestoreState(Dictionary& lines, ReadReport& report) {
    Need("RestoreState");
    RowItem<ScaleFields>& item = Parameters();
    const Dictionary::Entry* source = lines.Peek(item.Key(kSourceRow));
    const std::int32_t kind = source == nullptr ? kNone : KindOfSource(source->value, InputsIn(lines));
    if (kind == kNone) {
        PassOver(lines, report);
    } else {
        item.ReloadDefaults();
        item.fields.kind = kind;
        item.Restore(lines, report);
    }
    item.MarkSaved();
}

void CScale::PassOver(Dictionary& lines, ReadReport& report) {
    RowItem<ScaleFields>& item = Parameters();
    item.Take(kSourceRow, "NONE");
    for (std::size_t row = kSourceRow; row < item.RowCount(); ++row) {
        const Dictionary::Entry* entry = lines.Find(item.Key(row));
        if (entry == nullptr) continue;
        if (row != kSourceRow) {
            if (item.Info(row).more.use != Use::ReadOnly) detail::ReportUnwritten(report, *entry);
        } else if (Trim(entry->value) != "NONE") {
            report.Add({ReadNote::Kind::NotUnderstood, report.Section(), std::string(entry->key),
                        std::string(entry->value), "NONE", entry->line,
                        WhyNotConfigured(entry->value, lines)});
        }
    }
}

// Of a source that could be one on a serial port; of others the value itself is the fault.
std::string CScale::WhyNotConfigured(std::string_view source, const Dictionary& lines) const {
    constexpr int kNoInput = 42002, kOtherInput = 42003, kNoPort = 42004;  // {1} port, {2} input type
    const auto entries = Split(Trim(source), ',');
    if (entries[0] != "S" || entries.size() > static_cast<std::size_t>(kMostSources) + 1) return {};
    const auto port = entries.size() > 1 ? ReadInteger(entries[1]) : std::nullopt;
    const ResourceTexts& texts = Context().texts;
    if (!port) return texts.Text(kNoPort);
    const std::string input = InputsIn(lines)(port->value);
    return texts.Format(input.empty() ? kNoInput : kOtherInput, {std::to_string(port->value), input});
}

}  // namespace calyx
