#include "model/language/text_list.h"
#include "model/ports/port_fields.h"
#include "model/ports/port_lists.h"
#include "model/validation/validate.h"

namespace calyx {

bool PortFields::IsKeyboard() const {
    const auto input = inputType.Trimmed();
    return input == "KBDPRG" || input == "KEYBD";
}

bool PortFields::CanStream() const {
    const auto input = inputType.Trimmed();
    return !IsKeyboard() && input != "VEXAL" && input != "HIPREC" && input != "IND SC" && input != "SCALE";
}

bool PortFields::UsesStreamDefinition() const {
    const auto input = inputType.Trimmed();
    return streamFormat.Trimmed() == "CUSTOM" || input == "SCALE" || input == "IND SC";
}

namespace {

using P = PortFields;

constexpr int kTitle = 4100;
constexpr int kPort = 4101, kLine = 4102, kCommands = 4103, kStreaming = 4104;

std::string FirstEntry(int, const CTextList* list) {
    return list == nullptr ? std::string() : list->First();
}
std::string SecondEntry(int, const CTextList* list) {
    return list == nullptr || list->Count() < 2 ? FirstEntry(0, list) : std::next(list->begin())->key;
}
std::string InitialBaud(int port, const CTextList*) {
    return port == 2 ? "115200" : "9600";
}

// An alias that is too long or no identifier is refused: the port then has none.
inline constexpr Codec<FixedText<8>> kAlias{
    ValueKind::Text, 8,
    [](std::string& out, const FixedText<8>& value, const Target&) { out += value.Trimmed(); },
    [](FixedText<8>& value, std::string_view text) {
        const bool good = text.empty() || modValidate::ValidateAlias(text);
        value.Assign(good ? text : std::string_view());
        return good ? Taken::Whole : Taken::Not;
    },
    "a name of 1 to 8 letters, digits or \"_\", not beginning with a digit and no word of the Scrivo "
    "language"};

template <int Min, int Max>
inline constexpr Codec<std::int32_t> kIntegerWithin{
    ValueKind::Integer, 11, kInteger.write,
    [](std::int32_t& value, std::string_view text) {
        const auto number = ReadInteger(text);
        if (!number || number->value < Min || number->value > Max) return Taken::Not;
        value = number->value;
        return number->whole ? Taken::Whole : Taken::Part;
    },
    Min == 0 && Max == 255 ? "a whole number from 0 to 255" : ""};

// "SCALE3". Read by length: from six characters on the number behind the word, of one or two
// characters the number itself; three to five say nothing.
inline constexpr Codec<std::int32_t> kSource{ValueKind::Integer, 10,
                                             [](std::string& out, const std::int32_t& value, const Target&) {
                                                 out += "SCALE";
                                                 AppendInteger(out, value);
                                             },
                                             [](std::int32_t& value, std::string_view text) {
                                                 if (text.empty() || (text.size() > 2 && text.size() < 6))
                                                     return Taken::Not;
                                                 return kIntegerWithin<-32768, 32767>.take(
                                                     value, text.size() < 6 ? text : text.substr(5));
                                             },
                                             "SCALE and a number from 0 to 32, or 0 to 32"};

// One row a line, as a table. The order is that of the page; it is also the order of reading, in which
// the source must stand before the stream type.
// clang-format off
constexpr Row<P> kRows[] = {
    row<&P::alias, kAlias>("ALIAS", "Port{n}", {.label = 4001, .group = kPort, .help = 4201, .absentValue = "Com{n}", .absent = Absent::Value}),
    row<&P::inputType, kFixed10>("INPUT", "", {.listOf = port_list::Input, .label = 4002, .group = kPort, .help = 4202, .unknown = Unknown::First, .initialOf = SecondEntry}),
    row<&P::baudRate, kFixed10>("BAUD", "", {.listOf = port_list::Baud, .label = 4003, .group = kLine, .help = 4203, .unit = "Bd", .unknown = Unknown::First, .initialOf = InitialBaud}),
    row<&P::bits, kFixed10>("BITS", "", {.list = "COM.BITS", .label = 4004, .group = kLine, .help = 4204, .unknown = Unknown::First, .initialOf = FirstEntry}),
    row<&P::stopBits, kFixed10>("STOPBITS", "2", {.list = "COM.STOPBITS", .label = 4005, .group = kLine, .help = 4205, .unknown = Unknown::First}),
    row<&P::terminator, kFixed10>("TERMIN", "", {.list = "COM.TERM", .label = 4006, .group = kLine, .help = 4206, .unknown = Unknown::First, .initialOf = FirstEntry}),
    row<&P::endOfLineDelay, kIntegerWithin<0, 255>>("EOLDLY", "0", {.label = 4007, .group = kLine, .help = 4207, .min = 0, .max = 255}),
    row<&P::handshaking, kFixed10>("HANDSHK", "", {.listOf = port_list::Handshake, .label = 4008, .group = kLine, .help = 4208, .unknown = Unknown::First, .initialOf = FirstEntry}),
    row<&P::portType, kFixed10>("TYPE", "", {.list = "COM.TYPE", .label = 4009, .group = kLine, .help = 4209, .unknown = Unknown::First, .initialOf = FirstEntry}),
    row<&P::duplex, kFixed10>("DUPLEX", "", {.list = "COM.DUPLEX", .label = 4010, .group = kLine, .help = 4210, .unknown = Unknown::First, .initialOf = FirstEntry}),
    row<&P::address, kIntegerWithin<0, 255>>("ADDRESS", "0", {.label = 4011, .group = kLine, .help = 4211, .min = 0, .max = 255}),
    row<&P::commandEcho, kUnlessOff>("ECHO", "ON", {.label = 4012, .group = kCommands, .help = 4212}),
    row<&P::commandResponse, kUnlessOff>("RESPONSE", "ON", {.label = 4013, .group = kCommands, .help = 4213}),
    row<&P::source, kSource>("SOURCE", "SCALE0", {.label = 4014, .group = kStreaming, .help = 4214, .min = 0, .max = 32}),
    row<&P::streamType, kFixed10>("STREAM", "", {.list = "COM.STRTYPS", .label = 4015, .group = kStreaming, .help = 4215, .unknown = Unknown::First, .initialOf = FirstEntry}),
    row<&P::streamFormat, kFixed10>("FORMAT", "", {.list = "COM.STRFMTS", .label = 4016, .group = kStreaming, .help = 4216, .unknown = Unknown::First, .initialOf = FirstEntry}),
};
// clang-format on
constexpr Lines lines{kRows};

// The gates leave out 2.04: the firmware never was.
constexpr Gate kEchoGate = Only({"1.06."}) | Since("2.00.");
constexpr Gate kResponseGate = Since("2.00.");
constexpr Gate kTypeGate = Since("2.03.");

bool HasLine(const P& port) {
    return !port.IsKeyboard();
}
bool CanStream(const P& port) {
    return port.CanStream();
}
bool Streams(const P& port) {
    return port.CanStream() && port.Streams();
}

constexpr auto kLayout = Join(
    lines("ALIAS", "INPUT"),
    When(HasLine, Join(lines("ADDRESS", "BAUD", "BITS", "EOLDLY", "TERMIN", "HANDSHK"),
                       Gated(kEchoGate, lines("ECHO")), Gated(kResponseGate, lines("RESPONSE", "STOPBITS")),
                       Gated(kTypeGate, lines("TYPE", "DUPLEX")))),
    When(CanStream, lines("STREAM")), When(Streams, lines("FORMAT", "SOURCE")));

// A port without a source streams nothing, whatever its lines say.
void SettleStream(P& port) {
    if (port.source != 0) return;
    port.streamType.Assign("OFF");
    port.streamFormat.Assign("DEFAULT");
}

}  // namespace

constexpr RowTable<PortFields> kPortTable{.rows = kRows,
                                          .layout = [](const P&) { return Layout<P>(kLayout); },
                                          .prefix = "EDP.",
                                          .settle = SettleStream,
                                          .title = kTitle};

}  // namespace calyx
