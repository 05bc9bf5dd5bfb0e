// Whole formats copied, pasted and restored.

#include "model/tickets/ticket_edits.h"

#include <gtest/gtest.h>

#include "model/language/error.h"
#include "tests/support/error_code.h"
#include "tests/support/model_fixture.h"

namespace calyx::test {
namespace {

class TicketEdits : public testing::Test {
  protected:
    TestContext context{CALYX_DATA_DIR};
    CTickets tickets{context};

    void SetUp() override {
        tickets.Initialize();
        tickets.SetTicketFormat(2, "two\xE4<NL>");
        tickets.SetPortNumber(2, 7);
        tickets.SetCharsPerLine(2, 20);
    }
    // "KEY=VALUE KEY=VALUE", what the changes bring.
    static std::string Words(const std::vector<Change>& changes) {
        std::string words;
        for (const Change& change : changes)
            words += (words.empty() ? "" : " ") + change.key + "=" + change.after.value_or("(none)");
        return words;
    }
    void Take(const std::vector<Change>& changes) {
        EXPECT_TRUE(tickets.Take(changes, Section::Check::None).empty());
    }
};

TEST_F(TicketEdits, AFormatGoesToAnotherAsFarAsBothHaveTheParts) {
    EXPECT_EQ(Words(CopyTicket(tickets, 2, 11)),
              "AUXFMT.FMT#1=two\xE4<NL> AUXFMT.PORT#1=PORT7 AUXFMT.HORZ#1=20");
    EXPECT_EQ(Words(CopyTicket(tickets, 2, 30)),
              "AUXFMT.FMT#20=two\xE4<NL> AUXFMT.PORT#20=PORT7 AUXFMT.HORZ#20=20");
    EXPECT_EQ(Words(CopyTicket(tickets, 2, 6)), "HDRFMT1=two\xE4<NL>");
    EXPECT_EQ(Words(CopyTicket(tickets, 2, 31)), "AUD.PORT=PORT7");
    EXPECT_EQ(Words(CopyTicket(tickets, 6, 2)), "NFMT.FMT=" + std::string(DefaultTicketText(6)));
    Take(CopyTicket(tickets, 2, 11));
    EXPECT_TRUE(CopyTicket(tickets, 2, 11).empty());
    EXPECT_EQ(CodeOf([&] { CopyTicket(tickets, 2, 32); }), 10002);
}

TEST_F(TicketEdits, LinesArePastedFromAFormatOn) {
    const std::string lines = CopyTickets(tickets, {2, 6});
    PastedTickets pasted = PasteTickets(tickets, lines, 12);
    EXPECT_EQ(pasted.count, 2);
    EXPECT_EQ(pasted.notTaken, 0u);
    Take(pasted.changes);
    EXPECT_EQ(tickets.TicketFormat(12), "two\xE4<NL>");
    EXPECT_EQ(tickets.CharsPerLine(12), 20);
    EXPECT_EQ(tickets.TicketFormat(13), DefaultTicketText(6));
    EXPECT_EQ(tickets.PortNumber(13), 3);

    EXPECT_EQ(PasteTickets(tickets, lines, 6).notTaken, 4u) << "a header has no port, page and printer";
    EXPECT_EQ(PasteTickets(tickets, lines, 30).count, 2);
    EXPECT_TRUE(PasteTickets(tickets, lines, 31).changes.empty()) << "no room";
    EXPECT_EQ(PasteTickets(tickets, "UID=3\r\nno line\r\n", 1).count, 0);
    // Of an older file, and with values that do not hold.
    pasted = PasteTickets(tickets, "auxfmt.fmt=old\r\nAUXFMT.VERT=151\r\n", 1);
    EXPECT_EQ(Words(pasted.changes), "GFMT.FMT=old");
    EXPECT_EQ(pasted.notTaken, 1u);
}

TEST_F(TicketEdits, RestoringLeavesThePage) {
    EXPECT_EQ(Words(RestoreTicket(tickets, 2)), "NFMT.FMT=" + std::string(DefaultTicketText(2)));
    for (int format = 3; format <= kTicketFormats; ++format)
        EXPECT_TRUE(RestoreTicket(tickets, format).empty()) << format;
}

}  // namespace
}  // namespace calyx::test
