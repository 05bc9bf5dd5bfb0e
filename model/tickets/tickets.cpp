#include "model/tickets/tickets.h"

#include <array>
#include <utility>

#include "model/language/error.h"

namespace calyx {

namespace {

constexpr int kNoSuchPort = 5091;  // {1} format, {2} port
constexpr int kOneLineText = 5092;
constexpr int kNumbersUpTo = 5093;  // {1} greatest

// The page that is proposed for a printer type.
struct Page {
    int chars, lines;
};
constexpr std::array<Page, TicketFields::kPrinterTypes> kPages{{
    {80, 60}, {40, 40}, {40, 40}, {40, 40}, {40, 40},  // 1 to 5
    {40, 30}, {40, 40}, {35, 40}, {40, 40}, {40, 35}, {40, 35}, {80, 60}, {80, 60},
    {50, 20}, {40, 30}, {40, 35}, {42, 40}, {42, 40}, {42, 40}, {42, 40},
}};

std::string Suffix(int format) {
    const bool numbered = format > kFirstAuxiliary && format < kAuditFormat;
    return numbered ? "#" + std::to_string(format - kFirstAuxiliary + 1) : std::string();
}

}  // namespace

CTickets::CTickets(const ModelContext& context) : Section(context) {
    formats_.reserve(kTicketFormats);
    for (int format = 1; format <= kTicketFormats; ++format) {
        const auto& table = kTicketTables[static_cast<std::size_t>(format - 1)];
        formats_.emplace_back(table, context, format, Suffix(format));
    }
}

void CTickets::Initialize() {
    initialised_ = true;
    Section::Initialize();
}

std::vector<Item*> CTickets::Items() {
    NeedInitialised("Items");
    std::vector<Item*> items;
    items.reserve(formats_.size());
    for (auto& format : formats_) items.push_back(&format);
    return items;
}

void CTickets::RestoreState(Dictionary& lines, ReadReport& report) {
    NeedInitialised("RestoreState");
    report.Enter(std::string(Name()));
    for (auto& format : formats_) {
        if (format.Number() == kFirstAuxiliary) {
            RestoreFirstAuxiliary(lines, report);
        } else {
            format.Restore(lines, report);
        }
    }
}

void CTickets::RestoreAuxiliaryFormat(Dictionary& lines, ReadReport& report, int auxiliary) {
    NeedInitialised("RestoreAuxiliaryFormat");
    NeedWithin(auxiliary, kAuxiliaries, "RestoreAuxiliaryFormat");
    formats_[static_cast<std::size_t>(kFirstAuxiliary + auxiliary - 2)].Restore(lines, report);
}

// The older keys count when they name a port, and then all of them do.
void CTickets::RestoreFirstAuxiliary(Dictionary& lines, ReadReport& report) {
    RowItem<TicketFields>& first = formats_[kFirstAuxiliary - 1];
    RowItem<TicketFields> older = OlderAuxiliary();
    const Dictionary::Entry* port = lines.Peek("AUXFMT.PORT");
    if (port == nullptr || port->value.empty()) {
        RestoreAuxiliaryFormat(lines, report, 1);
        for (std::size_t row = 0; row < older.RowCount(); ++row) {
            if (const auto* entry = lines.Find(older.Key(row))) detail::ReportUnwritten(report, *entry);
        }
        return;
    }
    older.Restore(lines, report);
    first.fields = older.fields;
    first.MarkSaved();
    for (std::size_t row = 0; row < older.RowCount(); ++row) {
        const Dictionary::Entry* entry = lines.Find(first.Key(row));
        if (entry == nullptr || entry->value == first.Text(row)) continue;
        report.Add({ReadNote::Kind::DuplicateKey, report.Section(), std::string(entry->key),
                    std::string(entry->value), first.Text(row), entry->line});
    }
}

RowItem<TicketFields> CTickets::OlderAuxiliary() const {
    RowItem<TicketFields> older(kOlderAuxiliaryTable, Context(), kFirstAuxiliary);
    older.fields = formats_[kFirstAuxiliary - 1].fields;
    return older;
}

void CTickets::AppendText(std::string& out, const Target& target) const {
    NeedInitialised("GetTextOutput");
    for (const auto& format : formats_) {
        const bool older = format.Number() == kFirstAuxiliary && !target.Opens(kManyAuxiliaries);
        older ? OlderAuxiliary().Append(out, target) : format.Append(out, target);
    }
}

void CTickets::ReloadDefaults(int format) {
    At(format, "ReloadDefaults").text = DefaultTicketText(format);
}

void CTickets::SetTicketFormat(int format, std::string_view text) {
    constexpr const char* kOperation = "TicketFormat";
    TicketFields& fields = At(format, kOperation);
    if (text.size() > TicketFields::kLongest) Fail(code::kTextTooLong, kOperation);
    if (text.find_first_of("\r\n") != std::string_view::npos)
        Fail(code::kOutOfRange, kOperation, {text, Context().texts.Text(kOneLineText)});
    fields.text = TrimRight(text);
}

void CTickets::SetPortNumber(int format, int port) {
    SetNumber(format, &TicketFields::portNumber, port, TicketFields::kMostPort, "PortNumber");
}
void CTickets::SetLinesPerPage(int format, int lines) {
    SetNumber(format, &TicketFields::linesPerPage, lines, TicketFields::kMostLines, "LinesPerPage");
}
void CTickets::SetCharsPerLine(int format, int chars) {
    SetNumber(format, &TicketFields::charsPerLine, chars, TicketFields::kMostChars, "CharsPerLine");
}
void CTickets::SetPrinterType(int format, int type) {
    SetNumber(format, &TicketFields::printerType, type, TicketFields::kPrinterTypes, "PrinterType");
}

void CTickets::SetNumber(int format, std::int32_t TicketFields::*number, int value, int most,
                         const char* operation) {
    TicketFields& fields = At(format, operation);
    NeedWithin(value, most, operation);
    fields.*number = value;
}

int CTickets::PrinterTypeCount() const {
    NeedInitialised("PrinterTypeCount");
    return TicketFields::kPrinterTypes;
}

std::string CTickets::PrinterTypeText(int type) const {
    NeedInitialised("PrinterTypeText");
    NeedWithin(type, TicketFields::kPrinterTypes, "PrinterTypeText");
    const std::string* name = detail::NeedList("TKT.PRINTERS", Context())->Item(std::to_string(type));
    return name == nullptr ? std::string() : *name;
}

int CTickets::DefaultCharsPerLine(int type) const {
    NeedInitialised("DefaultCharsPerLine");
    NeedWithin(type, TicketFields::kPrinterTypes, "DefaultCharsPerLine");
    return kPages[static_cast<std::size_t>(type - 1)].chars;
}

int CTickets::DefaultLinesPerPage(int type) const {
    NeedInitialised("DefaultLinesPerPage");
    NeedWithin(type, TicketFields::kPrinterTypes, "DefaultLinesPerPage");
    return kPages[static_cast<std::size_t>(type - 1)].lines;
}

std::string CTickets::DefaultFormat(int type) const {
    NeedInitialised("DefaultFormat");
    NeedWithin(type, TicketFields::kPrinterTypes, "DefaultFormat");
    return {};
}

void CTickets::CheckPorts(const PortExists& exists, CBrokenRules& rules) const {
    NeedInitialised("Validate");
    for (const auto& format : formats_) {
        const std::int32_t& port = format.fields.portNumber;
        if (exists(port)) continue;
        for (std::size_t row = 0; row < format.RowCount(); ++row) {
            const void* place = format.Place(row).data();
            if (place != &port || !format.IsWritten(row)) continue;
            rules.Add({std::string(Name()), format.Number(), format.Key(row),
                       Context().texts.Format(kNoSuchPort, {ItemTitle(format), std::to_string(port)})});
        }
    }
}

std::vector<std::string> CTickets::Validate(const PortExists& exists) const {
    CBrokenRules rules;
    CheckPorts(exists, rules);
    std::vector<std::string> findings;
    for (const BrokenRule& rule : rules)
        findings.push_back(std::to_string(rule.item) + "|" + rule.key + "|" + rule.text);
    return findings;
}

void CTickets::NeedInitialised(const char* operation) const {
    if (!initialised_) Fail(code::kNotInitialised, operation);
}

void CTickets::Fail(int code, const char* operation, std::initializer_list<std::string_view> words) const {
    throw Error(code, std::string("Calyx.CTickets.") + operation, Context().texts.Format(code, words));
}

// From 1 on.
void CTickets::NeedWithin(int value, int most, const char* operation) const {
    if (value >= 1 && value <= most) return;
    Fail(code::kOutOfRange, operation,
         {std::to_string(value), Context().texts.Format(kNumbersUpTo, {std::to_string(most)})});
}

const TicketFields& CTickets::At(int format, const char* operation) const {
    NeedInitialised(operation);
    NeedWithin(format, kTicketFormats, operation);
    return formats_[static_cast<std::size_t>(format - 1)].fields;
}

TicketFields& CTickets::At(int format, const char* operation) {
    return const_cast<TicketFields&>(std::as_const(*this).At(format, operation));
}

}  // namespace calyx
