#include "model/ports/stream_sample.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <optional>
#include <string_view>

#include "model/language/text.h"

namespace calyx {

namespace {

using Kind = StreamPiece::Kind;

bool IsNumber(std::string_view text) {
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string Sign(const StreamFields& stream, bool negative) {
    const int code = negative ? stream.negative : stream.positive;
    if (code == 1) return negative ? "-" : "+";
    return code == 2 ? " " : "";
}

const std::string& Units(const StreamFields& stream, int units) {
    return units == 2 ? stream.secondary : units == 3 ? stream.tertiary : stream.primary;
}

const std::string& Mode(const StreamFields& stream, SampleWeight::Mode mode) {
    return mode == SampleWeight::Mode::Net    ? stream.net
           : mode == SampleWeight::Mode::Tare ? stream.tare
                                              : stream.gross;
}

const std::string& Status(const StreamFields& stream, SampleWeight::State state) {
    switch (state) {
        case SampleWeight::State::Motion:
            return stream.motion;
        case SampleWeight::State::OutOfRange:
            return stream.range;
        case SampleWeight::State::CentreOfZero:
            return stream.coz;
        case SampleWeight::State::Invalid:
            return stream.invalid;
        case SampleWeight::State::Ok:
            break;
    }
    return stream.ok;
}

// "7." is seven characters with the decimal point, "6" six digits without; leading zeros are blank.
std::optional<std::string> Weight(std::string_view width, const SampleWeight& weight) {
    const bool point = width.ends_with('.');
    if (point) width.remove_suffix(1);
    if (!IsNumber(width) || width.size() > 2) return std::nullopt;
    char digits[64];
    std::snprintf(digits, sizeof digits, "%.*f", weight.decimals, std::fabs(weight.value));
    std::string text(digits);
    if (!point) std::erase(text, '.');
    const auto least = static_cast<std::size_t>(ReadInteger(width)->value);
    if (text.size() < least) text.insert(0, least - text.size(), ' ');
    return text;
}

std::optional<StreamPiece> Piece(std::string_view token, const StreamFields& stream,
                                 const SampleWeight& weight) {
    const auto text = [](std::string value) { return StreamPiece{Kind::Text, std::move(value)}; };
    if (token == "P") return text(Sign(stream, weight.value < 0));
    if (token == "U") return text(Units(stream, weight.units));
    if (token == "M") return text(Mode(stream, weight.mode));
    if (token == "S") return text(Status(stream, weight.state));
    if (token == "CR") return StreamPiece{Kind::Control, "\r"};
    if (token == "LF") return StreamPiece{Kind::Control, "\n"};
    if (token.starts_with('W')) {
        if (auto number = Weight(token.substr(1), weight)) return text(std::move(*number));
    }
    if (IsNumber(token) && token.size() <= 3 && ReadInteger(token)->value < 256) {
        const char c = static_cast<char>(ReadInteger(token)->value);
        const bool control = static_cast<unsigned char>(c) < 32 || c == 127;
        return StreamPiece{control ? Kind::Control : Kind::Text, std::string(1, c)};
    }
    return std::nullopt;
}

void Add(std::vector<StreamPiece>& pieces, StreamPiece piece) {
    if (piece.text.empty()) return;
    const bool joins = !pieces.empty() && piece.kind == Kind::Text && pieces.back().kind == Kind::Text;
    if (joins) {
        pieces.back().text += piece.text;
    } else {
        pieces.push_back(std::move(piece));
    }
}

}  // namespace

std::vector<StreamPiece> StreamSample(const StreamFields& stream, const SampleWeight& weight) {
    std::vector<StreamPiece> pieces;
    std::string_view rest = stream.format;
    while (!rest.empty()) {
        const std::size_t end = rest.front() == '<' ? rest.find('>') : std::string_view::npos;
        if (end == std::string_view::npos) {
            Add(pieces, {Kind::Text, std::string(rest.substr(0, std::max<std::size_t>(1, rest.find('<'))))});
            rest.remove_prefix(std::min(rest.size(), std::max<std::size_t>(1, rest.find('<'))));
            continue;
        }
        const std::string_view token = rest.substr(1, end - 1);
        auto piece = Piece(token, stream, weight);
        Add(pieces,
            piece ? std::move(*piece) : StreamPiece{Kind::Unknown, std::string(rest.substr(0, end + 1))});
        rest.remove_prefix(end + 1);
    }
    return pieces;
}

}  // namespace calyx
