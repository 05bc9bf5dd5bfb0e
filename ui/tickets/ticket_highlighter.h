#pragma once

#include <QPalette>
#include <QSyntaxHighlighter>

#include "model/tickets/ticket_tokens.h"

namespace calyx::ui {

// A piece of one line of an editor, by its place there.
struct TicketSpan {
    TicketPiece::Kind kind;
    const TicketToken* token;  // where it is known
    int from, length;
};
std::vector<TicketSpan> TicketSpans(const QString& line, const TicketTokens& tokens);

// Tokens in the accent's colour; those that the list does not have in that of problems and underlined.
// Without a list nothing is marked.
class TicketHighlighter : public QSyntaxHighlighter {
    Q_OBJECT

  public:
    TicketHighlighter(QTextDocument* document, const TicketTokens& tokens)
        : QSyntaxHighlighter(document), tokens_(tokens) {}

    void SetColours(const QPalette& palette);

  protected:
    void highlightBlock(const QString& line) override;

  private:
    const TicketTokens& tokens_;
    QTextCharFormat known_, unknown_;
};

}  // namespace calyx::ui
