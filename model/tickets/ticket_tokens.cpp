#include "model/tickets/ticket_tokens.h"

#include <algorithm>
#include <stdexcept>

#include "model/language/text.h"

namespace calyx {

namespace {

constexpr std::size_t kMostDigits = 2;  // of the number behind a token
constexpr std::string_view kDigits = "0123456789";

std::string Unescaped(std::string_view sample) {
    std::string text;
    for (std::size_t i = 0; i < sample.size(); ++i) {
        const char next = sample[i] == '\\' && i + 1 < sample.size() ? sample[i + 1] : '\0';
        const bool escape = next == 'n' || next == 's';
        text += !escape ? sample[i] : next == 'n' ? '\n' : ' ';
        if (escape) ++i;
    }
    return text;
}

// The token between two brackets: its own name first ("TR1"), then a repeated one ("NL2").
TicketPiece ReadToken(std::string_view text, const TicketTokens& tokens) {
    using Kind = TicketPiece::Kind;
    const std::string_view name = text.substr(1, text.size() - 2);
    if (const TicketToken* token = tokens.Find(name)) return {Kind::Token, text, token, 1};
    const std::size_t end = name.find_last_not_of(kDigits) + 1;
    const TicketToken* token = tokens.Find(name.substr(0, end));
    const auto times = ReadInteger(name.substr(end));
    const bool repeated =
        token != nullptr && token->repeats && times && times->value > 0 && name.size() - end <= kMostDigits;
    if (!repeated) return {Kind::Unknown, text, nullptr, 1};
    return {Kind::Token, text, token, times->value};
}

}  // namespace

void TicketTokens::Read(std::string_view file) {
    int number = 0;
    ForEachLine(file, [&](std::string_view line) {
        ++number;
        const auto refuse = [&](const char* why) {
            throw std::runtime_error("ticket tokens, line " + std::to_string(number) + ": \"" +
                                     std::string(line) + "\" " + why);
        };
        if (Trim(line).empty() || line.starts_with('#')) return;
        const std::size_t equals = line.find('=');
        const std::size_t comma = line.find(',');
        if (equals == std::string_view::npos || comma == std::string_view::npos || comma < equals)
            refuse("is not NAME=HELP,SAMPLE");
        TicketToken token;
        std::string_view name = line.substr(0, equals);
        token.repeats = name.ends_with('*');
        if (token.repeats) name.remove_suffix(1);
        const auto help = ReadInteger(line.substr(equals + 1, comma - equals - 1));
        if (name.empty() || name.find_first_of(" <>*") != std::string_view::npos) refuse("has no name");
        if (!help || !help->whole) refuse("has no number of a help text");
        if (Find(name) != nullptr) refuse("stands there twice");
        token.name = name;
        token.help = help->value;
        token.sample = Unescaped(line.substr(comma + 1));
        tokens_.push_back(std::move(token));
    });
}

const TicketToken* TicketTokens::Find(std::string_view name) const {
    const auto found = std::find_if(tokens_.begin(), tokens_.end(),
                                    [name](const TicketToken& token) { return token.name == name; });
    return found == tokens_.end() ? nullptr : &*found;
}

const TicketToken* TicketTokens::LineBreak() const {
    const auto found = std::find_if(tokens_.begin(), tokens_.end(),
                                    [](const TicketToken& token) { return token.sample == "\n"; });
    return found == tokens_.end() ? nullptr : &*found;
}

std::vector<TicketPiece> SplitTicketText(std::string_view text, const TicketTokens& tokens) {
    std::vector<TicketPiece> pieces;
    const auto addText = [&](std::string_view plain) {
        if (!plain.empty()) pieces.push_back({TicketPiece::Kind::Text, plain, nullptr, 1});
    };
    while (!text.empty()) {
        const std::size_t close = text.find('>');
        // Of several brackets that open, the last belongs to the one that closes.
        const std::size_t open = close == std::string_view::npos ? close : text.rfind('<', close);
        if (open == std::string_view::npos) {
            const std::size_t end = close == std::string_view::npos ? text.size() : close + 1;
            addText(text.substr(0, end));
            text.remove_prefix(end);
            continue;
        }
        addText(text.substr(0, open));
        pieces.push_back(ReadToken(text.substr(open, close - open + 1), tokens));
        text.remove_prefix(close + 1);
    }
    return pieces;
}

std::vector<std::string> PreviewTicket(std::string_view text, const TicketTokens& tokens) {
    std::string shown;
    for (const TicketPiece& piece : SplitTicketText(text, tokens)) {
        if (piece.token == nullptr) {
            shown += piece.text;
        } else {
            for (int i = 0; i < piece.times; ++i) shown += piece.token->sample;
        }
    }
    std::vector<std::string> lines;
    ForEachLine(shown, [&](std::string_view line) { lines.emplace_back(line); });
    return lines;
}

}  // namespace calyx
