#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "model/language/row.h"

namespace calyx {

// One print format: what is printed, where, and on which page. Headers have a text only and the audit
// format has a port only; their other values are held and have no lines.
struct TicketFields {
    static constexpr std::size_t kLongest = 1000;  // characters of the text
    static constexpr int kMostPort = 32, kMostLines = 150, kMostChars = 132, kPrinterTypes = 20;

    std::string text;             // in the indicator's token language, without blanks at the end
    std::int32_t portNumber = 3;  // serial port that prints it
    std::int32_t linesPerPage = 40;
    std::int32_t charsPerLine = 40;
    std::int32_t printerType = 2;

    friend bool operator==(const TicketFields&, const TicketFields&) = default;
};

inline constexpr int kTicketFormats = 31;
inline constexpr int kFirstAuxiliary = 11;  // auxiliary format n is format 10 + n
inline constexpr int kAuxiliaries = 20;
inline constexpr int kAuditFormat = 31;

// Firmware that knows twenty auxiliary formats; before it there is one, whose keys have no number.
inline constexpr Gate kManyAuxiliaries = Since("3.01.");

// One table a format, in order. Behind the stems of auxiliary formats 2 to 20 stands "#n".
extern const std::array<RowTable<TicketFields>, kTicketFormats> kTicketTables;
// Auxiliary format 1 under its older keys, "AUXFMT.FMT".
extern const RowTable<TicketFields> kOlderAuxiliaryTable;

// The text that a format (1 to 31) starts with.
std::string_view DefaultTicketText(int format);

}  // namespace calyx
