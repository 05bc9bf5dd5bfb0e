#include "model/scales/scale_source.h"

#include <optional>
#include <vector>

namespace calyx {

using namespace scale_kind;

namespace {

using Fields = std::vector<std::string_view>;

// 0: no such letter. "S": the kind that it has without a port to ask.
std::int32_t KindOfLetter(std::string_view letter, std::int32_t onPort) {
    if (letter == "NONE") return kNone;
    if (letter == "A") return kAnalog;
    if (letter == "B") return kAnalogInput;
    if (letter == "T") return kTotal;
    if (letter == "Q") return kVexal;  // read and never written
    if (letter == "P") return kProgrammable;
    return letter == "S" ? onPort : 0;
}

std::string_view LetterOfKind(std::int32_t kind) {
    constexpr std::string_view kLetters[] = {"NONE", "A", "S", "T", "S", "P", "B", "S"};
    return kLetters[kind - 1];
}

bool TooManySources(const Fields& fields) {
    return fields.size() - 1 > static_cast<std::size_t>(kMostSources);
}

void AppendVexal(std::string& out, std::int32_t source) {
    AppendInteger(out, VexalPort(source));
    out += '.';
    AppendInteger(out, VexalBox(source));
}

// "3.1". The box is the last character and the port the first two, whatever stands between.
std::optional<LeadingInteger> ReadVexal(std::string_view field) {
    const auto port = ReadInteger(field.substr(0, 2));
    if (!port) return std::nullopt;
    const char last = field.back();
    const std::int32_t source = VexalSource(port->value, last >= '2' && last <= '4' ? last - '0' : 1);
    std::string written;
    AppendVexal(written, source);
    return LeadingInteger{source, written == field};
}

std::int32_t KindWithoutPort(const Fields& fields, std::int32_t present) {
    if (IsOnPort(present)) return present;
    const bool withBox = fields.size() > 1 && fields[1].find('.') != std::string_view::npos;
    return withBox ? kVexal : kSerial;
}

Taken TakeEntries(ScaleFields& fields, const Fields& entries) {
    bool whole = true;
    for (std::size_t i = 1; i < entries.size(); ++i) {
        const std::string_view entry = Trim(entries[i]);
        if (entry.empty() && entries.size() == 2) return Taken::Whole;  // "A,": no source yet
        const auto source = fields.kind == kVexal ? ReadVexal(entry) : ReadInteger(entry);
        const bool room = fields.sourceCount < MaxSources(fields.kind);
        whole = whole && room && source && source->whole;
        if (source && room) fields.sources[static_cast<std::size_t>(fields.sourceCount++)] = source->value;
    }
    return whole ? Taken::Whole : Taken::Part;
}

}  // namespace

std::int32_t VexalSource(int port, int box) {
    return 100 * box + port;
}

int VexalBox(std::int32_t source) {
    if (source > 400) return 4;
    if (source > 300) return 3;
    return source < 201 ? 1 : 2;
}

int VexalPort(std::int32_t source) {
    return source - 100 * VexalBox(source);
}

std::string SourceEntries(const ScaleFields& fields) {
    std::string out;
    if (fields.kind == kProgrammable) {
        AppendInteger(out, fields.number);
        return out;
    }
    for (std::int32_t i = 0; i < fields.sourceCount; ++i) {
        if (i > 0) out += ',';
        const std::int32_t source = fields.sources[static_cast<std::size_t>(i)];
        fields.kind == kVexal ? AppendVexal(out, source) : AppendInteger(out, source);
    }
    return out;
}

void AppendSource(std::string& out, const ScaleFields& fields) {
    out += LetterOfKind(fields.kind);
    if (fields.kind != kNone) out.append(1, ',').append(SourceEntries(fields));
}

Taken TakeSource(ScaleFields& fields, std::string_view text) {
    const Fields entries = Split(Trim(text), ',');
    const std::int32_t kind = KindOfLetter(entries[0], KindWithoutPort(entries, fields.kind));
    if (kind == 0 || TooManySources(entries)) return Taken::Not;
    fields.kind = kind;
    fields.sources = {};
    fields.sourceCount = 0;
    if (kind == kNone) return entries.size() == 1 ? Taken::Whole : Taken::Part;
    const Taken taken = TakeEntries(fields, entries);
    if (kind != kProgrammable) return taken;
    // It is its own source, whatever the line says.
    const bool other = fields.sourceCount > 0 && fields.sources[0] != fields.number;
    fields.sources[0] = fields.number;
    fields.sourceCount = 1;
    return other ? Taken::Part : taken;
}

std::int32_t KindOfSource(std::string_view text, const PortInput& inputOf) {
    const Fields entries = Split(Trim(text), ',');
    if (TooManySources(entries)) return kNone;
    if (entries[0] != "S") {
        const std::int32_t kind = KindOfLetter(entries[0], kNone);
        return kind == 0 ? kNone : kind;
    }
    const auto port = entries.size() > 1 ? ReadInteger(entries[1]) : std::nullopt;
    return port ? KindOfInput(inputOf(port->value)) : kNone;
}

std::int32_t KindOfInput(std::string_view inputType) {
    const std::string type = Upper(Trim(inputType));
    for (const std::int32_t kind : {kSerial, kVexal, kIndustrial}) {
        if (type == InputOfKind(kind)) return kind;
    }
    return kNone;
}

std::string_view InputOfKind(std::int32_t kind) {
    if (kind == kVexal) return "VEXAL";
    return kind == kSerial ? "SCALE" : "IND SC";
}

}  // namespace calyx
