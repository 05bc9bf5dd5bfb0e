#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace calyx {

// How commands and replies look on the wire. A command ends with CR. In addressed mode it is framed: STX,
// address, command, CR; the reply comes as STX, address, text, ETX, CR.

using BusAddress = std::optional<std::uint8_t>;  // nothing: not addressed

inline constexpr char kStx = 2;
inline constexpr char kEtx = 3;
inline constexpr char kCr = 13;

std::string WrapString(std::string_view command, std::uint8_t address);
// The text of the frames for the address, each followed by CR. A text without such a frame stays as it is,
// so that a reply to another address never matches.
std::string DeWrapString(std::string_view text, std::uint8_t address);

// The command as it is written to the wire: "A=1" CR LF, "A=1" CR and "A=1" all become "A=1" CR.
std::string PrepareLine(std::string_view command, BusAddress address);
std::string_view WithoutLineEnd(std::string_view line);

struct Frame {
    std::string_view text;
    std::uint8_t address = 0;
    std::size_t end = 0;  // where the rest begins
};
// The first whole frame of a text, whatever stands before it.
std::optional<Frame> FirstFrame(std::string_view text);

// What a reply says, without an exact echo of the command in front. In addressed mode that is what the
// frames for the own address say; nothing else on the bus was meant for this program.
std::string ReplyText(std::string_view received, std::string_view command, BusAddress address);

}  // namespace calyx
