#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace calyx {

// One token of the ticket texts: "G" is written "<G>".
struct TicketToken {
    std::string name;
    int help = 0;          // number of the resource text that says what it prints
    std::string sample;    // what a preview shows for it; line breaks are "\n"
    bool repeats = false;  // a number behind it repeats it: "<NL2>"
};

// The tokens that the ticket editor knows. The list does not limit what a text may hold: a token that is
// missing here is sent like any other.
//
// Read from "tickets.dat", which anybody may extend: one token a line, NAME=HELP,SAMPLE. "NAME*" says that a
// number may follow; in the sample "\n" is a new line and "\s" a blank. "#" begins a comment line.
class TicketTokens {
  public:
    // A defect raises std::runtime_error with the line's number: the file belongs to the program.
    void Read(std::string_view file);

    const std::vector<TicketToken>& All() const { return tokens_; }  // in file order
    // The token of that name without its brackets; nothing for an unknown one.
    const TicketToken* Find(std::string_view name) const;
    // The one that prints a line break and nothing else; nothing where the list has none.
    const TicketToken* LineBreak() const;

  private:
    std::vector<TicketToken> tokens_;
};

// A ticket text taken apart: runs of plain text, and tokens with their brackets.
struct TicketPiece {
    enum class Kind { Text, Token, Unknown };
    Kind kind = Kind::Text;
    std::string_view text;               // as it stands
    const TicketToken* token = nullptr;  // where it is known
    int times = 1;
};
std::vector<TicketPiece> SplitTicketText(std::string_view text, const TicketTokens& tokens);

// The ticket with sample values, as lines; unknown tokens are shown as they stand. Lines are neither cut
// nor wrapped at the page's width.
std::vector<std::string> PreviewTicket(std::string_view text, const TicketTokens& tokens);

}  // namespace calyx
