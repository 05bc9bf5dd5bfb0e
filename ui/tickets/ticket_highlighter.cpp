#include "ui/tickets/ticket_highlighter.h"

#include <algorithm>

#include "ui/theme/tokens.h"

namespace calyx::ui {

// Brackets and names are ASCII, so one byte a character keeps the places.
std::vector<TicketSpan> TicketSpans(const QString& line, const TicketTokens& tokens) {
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(line.size()));
    for (const QChar c : line) bytes += c.unicode() < 0x80 ? c.toLatin1() : '\x80';
    std::vector<TicketSpan> spans;
    int from = 0;
    for (const TicketPiece& piece : SplitTicketText(bytes, tokens)) {
        const int length = static_cast<int>(piece.text.size());
        spans.push_back({piece.kind, piece.token, from, length});
        from += length;
    }
    return spans;
}

void TicketHighlighter::SetColours(const QPalette& palette) {
    known_.setForeground(palette.color(role::kAccent));
    unknown_.setForeground(palette.color(role::kProblem));
    unknown_.setUnderlineColor(palette.color(role::kProblem));
    unknown_.setUnderlineStyle(QTextCharFormat::WaveUnderline);
    rehighlight();
}

void TicketHighlighter::highlightBlock(const QString& line) {
    if (tokens_.All().empty()) return;
    for (const TicketSpan& span : TicketSpans(line, tokens_)) {
        if (span.kind == TicketPiece::Kind::Text) continue;
        setFormat(span.from, span.length, span.kind == TicketPiece::Kind::Token ? known_ : unknown_);
    }
}

}  // namespace calyx::ui
