// The tokens of ticket texts, and what a preview makes of them.

#include "model/tickets/ticket_tokens.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

#include "model/tickets/ticket_fields.h"
#include "tests/support/model_fixture.h"

namespace calyx::test {
namespace {

using Lines = std::vector<std::string>;

TicketTokens Own() {
    TicketTokens tokens;
    tokens.Read(ReadFile(std::string(CALYX_DATA_DIR) + "/tickets.dat"));
    return tokens;
}

TEST(TicketTokens, TheProgramsOwnCoverTheDefaultTexts) {
    const TestContext context{CALYX_DATA_DIR};
    const TicketTokens tokens = Own();
    for (const TicketToken& token : tokens.All()) {
        EXPECT_TRUE(context.texts.Has(token.help)) << token.name;
        EXPECT_FALSE(token.sample.empty()) << token.name;
    }
    for (int format = 1; format <= kTicketFormats; ++format) {
        for (const TicketPiece& piece : SplitTicketText(DefaultTicketText(format), tokens))
            EXPECT_NE(piece.kind, TicketPiece::Kind::Unknown) << piece.text;
    }
}

TEST(TicketTokens, Preview) {
    TicketTokens tokens;
    tokens.Read("# comment\n\nNL*=1,\\n\nSP*=2,\\s\nG=3,100, LB\nTR1=4,7\n");
    struct Row {
        const char* text;
        Lines lines;
    };
    const Row rows[] = {
        {"", {}},
        {"GROSS<SP><G><NL2><TR1><NL>", {"GROSS 100, LB", "", "7"}},
        {"a<NL>", {"a"}},
        {"<NL>", {""}},
        {"no end", {"no end"}},
        {"x<SP3>y", {"x   y"}},

        {"<XYZ><TR2><G2><nl>", {"<XYZ><TR2><G2><nl>"}},
        {"<NL0><NL100><><SP-1>", {"<NL0><NL100><><SP-1>"}},
        {"1 < 2 > 0 <G", {"1 < 2 > 0 <G"}},
        {"a<b<G>c", {"a<b100, LBc"}},
        {">><G>", {">>100, LB"}},
        {"\xE4<SP>\xF6", {"\xE4 \xF6"}},
    };
    for (const Row& row : rows) EXPECT_EQ(PreviewTicket(row.text, tokens), row.lines) << row.text;
    EXPECT_EQ(PreviewTicket("<NL99>x", tokens).size(), 100u);
}

TEST(TicketTokens, ThePiecesAreTheWholeText) {
    const TicketTokens tokens = Own();
    const std::string text = "a<NL2><X>< <G>>b<";
    std::string joined;
    Lines marked;
    for (const TicketPiece& piece : SplitTicketText(text, tokens)) {
        joined += piece.text;
        if (piece.kind != TicketPiece::Kind::Text) marked.emplace_back(piece.text);
        EXPECT_EQ(piece.kind == TicketPiece::Kind::Token, piece.token != nullptr);
    }
    EXPECT_EQ(joined, text);
    EXPECT_EQ(marked, (Lines{"<NL2>", "<X>", "<G>"}));
}

TEST(TicketTokens, DefectsNameTheirLine) {
    for (const char* defect :
         {"\nG", "\nG=x,1", "\nG=12", "\n=1,x", "\nG,1=x", "G=1,x\nG=2,y", "\n<G>=1,x"}) {
        TicketTokens tokens;
        try {
            tokens.Read(defect);
            ADD_FAILURE() << defect;
        } catch (const std::runtime_error& error) {
            EXPECT_NE(std::string(error.what()).find("line 2"), std::string::npos) << error.what();
        }
    }
}

}  // namespace
}  // namespace calyx::test
