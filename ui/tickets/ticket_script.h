#pragma once

#include <QString>
#include <optional>
#include <string>
#include <string_view>

#include "model/tickets/ticket_tokens.h"

namespace calyx::ui {

// The crossing between a ticket text, one line of 8-bit text, and what its editor holds: there a line break
// stands for the token <NL>, and <NL2> is one line separator (U+2028) before the break, one more a line. No
// byte is lost either way. A text that is UTF-8 is shown as such; any other one byte by byte, by the Western
// code page of the indicator. Control characters show as their pictures.
class TicketScript {
  public:
    // The tokens outlive it. Without a token for it there are no line breaks.
    explicit TicketScript(const TicketTokens& tokens);

    // What the editor holds for a text; the text's alphabet holds from here on.
    QString Show(std::string_view bytes);
    // The text of what the editor holds. Nothing: it has a character that the alphabet lacks.
    std::optional<std::string> Bytes(const QString& held) const;
    QString Lacking(const QString& held) const;  // the first such character

    // The same with breaks as tokens, for clipboards; and the way back.
    QString Written(const QString& held) const;
    QString Broken(const QString& written) const;
    // As it is held once it has been taken: a token that was typed out has become a break.
    QString Settled(const QString& held) const { return Broken(Written(held)); }

    // Text without breaks, as it is printed.
    QString Printed(std::string_view bytes) const { return Decoded(bytes, utf8_); }
    bool HasBreaks() const { return !lineBreak_.isEmpty(); }

  private:
    static QString Decoded(std::string_view bytes, bool utf8);
    static std::optional<std::string> Encoded(const QString& text, bool utf8);
    QString Breaks(qsizetype lines) const;

    QString lineBreak_;  // name of the token; empty: none
    bool repeats_ = false;
    bool utf8_ = true;
};

}  // namespace calyx::ui
