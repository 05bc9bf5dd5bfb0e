#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "model/language/section.h"
#include "model/tickets/ticket_fields.h"

namespace calyx {

// The 31 print formats: tickets, headers, truck register, alert, auxiliary formats and audit trail. Texts
// are stored and sent as typed; the indicator interprets their tokens.
//
// Formats are numbered 1 to 31. Errors: 10006 everything before Initialize, 10002 a format or value out of
// range, 10001 a text of more than 1000 characters. Reading a file never fails on a value.
class CTickets : public Section {
  public:
    explicit CTickets(const ModelContext& context);

    std::string_view Name() const override { return "tickets"; }
    int Title() const override { return 2123; }
    void Initialize() override;
    using Section::Items;
    std::vector<Item*> Items() override;  // one a format
    void RestoreState(Dictionary& lines, ReadReport& report) override;
    // Reads auxiliary format 1 to 20 under its numbered keys.
    void RestoreAuxiliaryFormat(Dictionary& lines, ReadReport& report, int auxiliary);
    void AppendText(std::string& out, const Target& target) const override;

    // The default text of the format; port, page and printer stay.
    void ReloadDefaults(int format);

    const std::string& TicketFormat(int format) const { return At(format, "TicketFormat").text; }
    int PortNumber(int format) const { return At(format, "PortNumber").portNumber; }
    int LinesPerPage(int format) const { return At(format, "LinesPerPage").linesPerPage; }
    int CharsPerLine(int format) const { return At(format, "CharsPerLine").charsPerLine; }
    int PrinterType(int format) const { return At(format, "PrinterType").printerType; }
    void SetTicketFormat(int format, std::string_view text);  // one line
    void SetPortNumber(int format, int port);                 // 1 to 32
    void SetLinesPerPage(int format, int lines);              // 1 to 150
    void SetCharsPerLine(int format, int chars);              // 1 to 132
    void SetPrinterType(int format, int type);                // 1 to 20

    // What is known of the printer types, 1 to 20: name, proposed page and text.
    int PrinterTypeCount() const;
    std::string PrinterTypeText(int type) const;
    int DefaultCharsPerLine(int type) const;
    int DefaultLinesPerPage(int type) const;
    std::string DefaultFormat(int type) const;  // empty for every type

    // Whether the installed hardware has a serial port of this number.
    using PortExists = std::function<bool(int port)>;
    // Formats whose port does not exist; headers have none.
    void CheckPorts(const PortExists& exists, CBrokenRules& rules) const;
    // The same as text, "format|key|what is wrong" each.
    std::vector<std::string> Validate(const PortExists& exists) const;

  private:
    void NeedInitialised(const char* operation) const;
    [[noreturn]] void Fail(int code, const char* operation,
                           std::initializer_list<std::string_view> words = {}) const;
    void NeedWithin(int value, int most, const char* operation) const;
    const TicketFields& At(int format, const char* operation) const;
    TicketFields& At(int format, const char* operation);
    void SetNumber(int format, std::int32_t TicketFields::*number, int value, int most,
                   const char* operation);
    RowItem<TicketFields> OlderAuxiliary() const;
    void RestoreFirstAuxiliary(Dictionary& lines, ReadReport& report);

    std::vector<RowItem<TicketFields>> formats_;
    bool initialised_ = false;
};

}  // namespace calyx
