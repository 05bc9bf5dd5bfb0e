#include "comm/framing.h"

namespace calyx {

namespace {

constexpr std::string_view kFrameEnd{"\x03\r", 2};

// The echo goes, and the LF that some wires add to its CR.
std::string_view WithoutEcho(std::string_view text, std::string_view line) {
    if (line.size() <= 1 || !text.starts_with(line)) return text;
    text.remove_prefix(line.size());
    return text.starts_with('\n') ? text.substr(1) : text;
}

std::optional<std::string> OwnFrames(std::string_view text, std::uint8_t address) {
    std::optional<std::string> own;
    while (const auto frame = FirstFrame(text)) {
        if (frame->address == address && !frame->text.empty()) {
            if (!own) own.emplace();
            own->append(frame->text) += kCr;
        }
        text.remove_prefix(frame->end);
    }
    return own;
}

}  // namespace

std::string_view WithoutLineEnd(std::string_view line) {
    if (line.ends_with("\r\n")) return line.substr(0, line.size() - 2);
    return line.ends_with(kCr) ? line.substr(0, line.size() - 1) : line;
}

std::string WrapString(std::string_view command, std::uint8_t address) {
    std::string line{kStx, static_cast<char>(address)};
    line += command;
    if (!command.ends_with(kCr)) line += kCr;
    return line;
}

std::string DeWrapString(std::string_view text, std::uint8_t address) {
    return OwnFrames(text, address).value_or(std::string(text));
}

std::string PrepareLine(std::string_view command, BusAddress address) {
    const std::string_view bare = WithoutLineEnd(command);
    return address ? WrapString(bare, *address) : std::string(bare) + kCr;
}

std::optional<Frame> FirstFrame(std::string_view text) {
    const std::size_t stx = text.find(kStx);
    if (stx == std::string_view::npos || stx + 2 > text.size()) return std::nullopt;
    const std::size_t start = stx + 2;  // any character may be the address, also STX, ETX and CR
    const std::size_t etx = text.find(kFrameEnd, start);
    if (etx == std::string_view::npos) return std::nullopt;
    return Frame{.text = text.substr(start, etx - start),
                 .address = static_cast<std::uint8_t>(text[stx + 1]),
                 .end = etx + kFrameEnd.size()};
}

std::string ReplyText(std::string_view received, std::string_view command, BusAddress address) {
    const std::string line = PrepareLine(command, {});
    if (!address) return std::string(WithoutEcho(received, line));
    received = WithoutEcho(received, PrepareLine(command, address));
    const std::string text = OwnFrames(received, *address).value_or(std::string());
    return std::string(WithoutEcho(text, line));
}

}  // namespace calyx
