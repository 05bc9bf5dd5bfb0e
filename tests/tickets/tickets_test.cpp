// The 31 print formats.

#include "model/tickets/tickets.h"

#include <gtest/gtest.h>

#include <set>

#include "model/language/error.h"
#include "tests/support/error_code.h"
#include "tests/support/golden.h"

namespace calyx::test {
namespace {

const std::string kGross = "GROSS<G><NL2><TD><NL>";

class Tickets : public testing::Test {
  protected:
    TestContext context{CALYX_DATA_DIR};
    CTickets tickets{context};
    ReadReport report;

    void SetUp() override { tickets.Initialize(); }
    void Read(const std::string& lines) {
        Dictionary file(lines);
        tickets.Initialize();
        report = {};
        tickets.RestoreState(file, report);
    }
    // The lines whose key begins so, as they are sent to a version.
    std::string Sent(const std::string& start, const Target& target) const {
        std::string text, some;
        tickets.AppendText(text, target);
        for (const KeyValue& line : ReadLines(text)) {
            if (line.key.starts_with(start)) some += line.key + "=" + line.value + "|";
        }
        return some;
    }
    std::string Value(const std::string& key) {
        for (const Item* item : tickets.Items()) {
            if (const auto row = item->Find(key)) return item->Text(*row);
        }
        return "no such key";
    }
};

TEST_F(Tickets, LinesByVersion) {
    ExpectGolden("tickets-versions.txt", VersionMatrix(tickets));
}

TEST_F(Tickets, ANewConfiguration) {
    ExpectGolden("tickets-new.txt", tickets.StoreState());
}

TEST_F(Tickets, TheFirstAuxiliaryFormatHasItsNumberFromThreeOneOn) {
    tickets.SetTicketFormat(kFirstAuxiliary, "A");
    const std::string numbered =
        "AUXFMT.FMT#1=A|AUXFMT.PORT#1=PORT3|AUXFMT.VERT#1=40|AUXFMT.HORZ#1=40|AUXFMT.PRN#1=2|";
    const std::string older = "AUXFMT.FMT=A|AUXFMT.PORT=PORT3|AUXFMT.VERT=40|AUXFMT.HORZ=40|AUXFMT.PRN=2|";
    const auto sent = [&](std::string_view version, bool cb2 = false) {
        return Sent("AUXFMT", {.version = VersionBit(version), .cb2 = cb2});
    };
    for (const char* version : {"1.00.", "2.04.", "3.00.", "3.11."}) EXPECT_EQ(sent(version), older);
    for (const char* version : {"3.01.", "3.10."}) EXPECT_TRUE(sent(version).starts_with(numbered));
    EXPECT_TRUE(sent("2.04.", true).starts_with(numbered));
    EXPECT_TRUE(Sent("AUXFMT", Target::Everything()).starts_with(numbered));
    EXPECT_EQ(Sent("A", {.version = VersionBit("2.04.")}).find("ALERT"), std::string::npos);
}

TEST_F(Tickets, SampleLinesComeBackAsTheyAre) {
    for (const char* name : {"truck-scale", "batching-plant", "checkweigher-line", "silo"}) {
        const std::string text = ReadFile(std::string(CALYX_DATA_DIR) + "/samples/" + name + ".mrn");
        Read(text);
        EXPECT_TRUE(report.Empty()) << name;
        const std::string state = "\r\n" + tickets.StoreState();
        int own = 0;
        for (const KeyValue& line : ReadLines(text)) {
            if (!tickets.Owns(line.key)) continue;
            ++own;
            EXPECT_NE(state.find("\r\n" + line.key + "=" + line.value + "\r\n"), std::string::npos)
                << line.key;
        }
        EXPECT_GE(own, 2) << name;
        Read(state);
        EXPECT_EQ("\r\n" + tickets.StoreState(), state);
    }
}

TEST_F(Tickets, ValuesAreReadLeniently) {
    struct Row {
        const char* line;
        const char* key;
        const char* becomes;
    };
    const Row rows[] = {
        {"GFMT.PORT=PORT12", "GFMT.PORT", "PORT12"},
        {"GFMT.PORT=7", "GFMT.PORT", "PORT7"},
        {"GFMT.PORT=P12", "GFMT.PORT", "PORT3"},
        {"GFMT.PORT=P012", "GFMT.PORT", "PORT3"},
        {"GFMT.PORT=", "GFMT.PORT", "PORT3"},
        {"GFMT.PORT=KEYS9", "GFMT.PORT", "PORT9"},
        {"GFMT.PORT=PORT32", "GFMT.PORT", "PORT32"},
        {"GFMT.PORT=PORT33", "GFMT.PORT", "PORT3"},
        {"GFMT.PORT=0", "GFMT.PORT", "PORT3"},
        {"GFMT.PORT=PORT5 LPT", "GFMT.PORT", "PORT5"},
        {"AUD.PORT=PORT9", "AUD.PORT", "PORT9"},

        {"TR.VERT=150", "TR.VERT", "150"},
        {"TR.VERT=151", "TR.VERT", "60"},
        {"TR.VERT=0", "TR.VERT", "60"},
        {"TR.HORZ=132.9", "TR.HORZ", "132"},
        {"TR.HORZ=133", "TR.HORZ", "80"},
        {"TR.PRN=20", "TR.PRN", "20"},
        {"TR.PRN=21", "TR.PRN", "1"},
        {"TR.PRN=x", "TR.PRN", "1"},

        {"GFMT.FMT=  a=b \xE4  ", "GFMT.FMT", "  a=b \xE4"},
        {"GFMT.FMT=", "GFMT.FMT", ""},
        {"hdrfmt2=x", "HDRFMT2", "x"},
    };
    for (const Row& row : rows) {
        Read(std::string(row.line) + "\r\n");
        EXPECT_EQ(Value(row.key), row.becomes) << row.line;
    }
}

TEST_F(Tickets, ATextThatIsTooLongFallsBack) {
    const CTickets fresh = tickets;
    std::string lines;
    const std::string tooLong(1001, 'x');
    for (const Item* item : tickets.Items()) {
        const std::string key = item->Key(0);
        if (key != "AUD.PORT") lines += key + "=" + tooLong + "\r\n";
    }
    Read(lines);
    EXPECT_EQ(report.Count(), 30u);
    for (int format = 1; format <= 30; ++format) {
        // Not the accumulator's and the register's own.
        const bool gross = format == 8 || format == 9 || format >= 11;
        EXPECT_EQ(tickets.TicketFormat(format), gross ? kGross : fresh.TicketFormat(format)) << format;
    }
    Read("ACC.FMT=" + std::string(1000, 'x') + "   \r\n");
    EXPECT_EQ(tickets.TicketFormat(8), std::string(1000, 'x'));
    EXPECT_TRUE(report.Empty());
    const auto refused = tickets.Take({{"ACC.FMT", std::nullopt, tooLong}}, Section::Check::Strict);
    EXPECT_EQ(refused.size(), 1u);
    EXPECT_EQ(tickets.TicketFormat(8).size(), 1000u);
}

TEST_F(Tickets, OlderKeysOfTheFirstAuxiliaryFormat) {
    struct Row {
        const char* lines;
        const char* text;
        const char* port;
        std::vector<std::string> noted;
    };
    const Row rows[] = {
        {"AUXFMT.FMT=old\r\nAUXFMT.PORT=PORT4\r\n", "old", "PORT4", {}},
        {"AUXFMT.PORT=PORT3\r\nAUXFMT.PORT#1=PORT5\r\nAUXFMT.FMT#1=new\r\n",
         "GROSS<G><NL2><TD><NL>",
         "PORT3",
         {"AUXFMT.FMT#1", "AUXFMT.PORT#1"}},
        {"AUXFMT.FMT=old\r\nAUXFMT.PORT=\r\nAUXFMT.FMT#1=new\r\n",
         "new",
         "PORT3",
         {"AUXFMT.FMT", "AUXFMT.PORT"}},
        {"AUXFMT.FMT#1=new\r\nAUXFMT.FMT#2=two\r\n", "new", "PORT3", {}},
    };
    for (const Row& row : rows) {
        Read(row.lines);
        EXPECT_EQ(Value("AUXFMT.FMT#1"), row.text) << row.lines;
        EXPECT_EQ(Value("AUXFMT.PORT#1"), row.port) << row.lines;
        EXPECT_FALSE(tickets.IsDirty());
        std::vector<std::string> noted;
        for (const ReadNote& note : report.Notes()) noted.push_back(note.key);
        EXPECT_EQ(noted, row.noted) << row.lines;
    }
    EXPECT_EQ(Value("AUXFMT.FMT#2"), "two");
    EXPECT_EQ(Value("AUXFMT.FMT"), "new");
    // As an older indicator sends them.
    EXPECT_TRUE(tickets.Take({{"AUXFMT.PORT", std::nullopt, "PORT6"}}, Section::Check::Lenient).empty());
    EXPECT_EQ(tickets.PortNumber(kFirstAuxiliary), 6);
    // A later number is read under its own key alone.
    Dictionary lines("AUXFMT.PORT=PORT8\r\nAUXFMT.PORT#20=PORT9\r\n");
    tickets.RestoreAuxiliaryFormat(lines, report, 20);
    EXPECT_EQ(tickets.PortNumber(30), 9);
}

TEST_F(Tickets, SettersKeepToTheirRanges) {
    using Set = void (CTickets::*)(int, int);
    using Get = int (CTickets::*)(int) const;
    struct Row {
        Set set;
        Get get;
        int most;
    };
    const Row rows[] = {{&CTickets::SetPortNumber, &CTickets::PortNumber, 32},
                        {&CTickets::SetLinesPerPage, &CTickets::LinesPerPage, 150},
                        {&CTickets::SetCharsPerLine, &CTickets::CharsPerLine, 132},
                        {&CTickets::SetPrinterType, &CTickets::PrinterType, 20}};
    CTickets raw(context);
    for (const Row& row : rows) {
        for (const int format : {1, 6, 31}) {  // headers hold them as well
            (tickets.*row.set)(format, row.most);
            EXPECT_EQ((tickets.*row.get)(format), row.most);
            EXPECT_TRUE(tickets.IsDirty());
        }
        EXPECT_EQ(CodeOf([&] { (tickets.*row.set)(1, row.most + 1); }), 10002);
        EXPECT_EQ(CodeOf([&] { (tickets.*row.set)(1, 0); }), 10002);
        EXPECT_EQ(CodeOf([&] { (tickets.*row.set)(0, 1); }), 10002);
        EXPECT_EQ(CodeOf([&] { (tickets.*row.get)(32); }), 10002);
        EXPECT_EQ((tickets.*row.get)(1), row.most);
        EXPECT_EQ(CodeOf([&] { (raw.*row.get)(1); }), 10006);
    }
    EXPECT_EQ(CodeOf([&] { tickets.SetTicketFormat(1, std::string(1000, 'x')); }), 0);
    EXPECT_EQ(CodeOf([&] { tickets.SetTicketFormat(1, std::string(1001, 'x')); }), 10001);
    EXPECT_EQ(CodeOf([&] { tickets.SetTicketFormat(1, "a\r\nUID=1"); }), 10002);
    EXPECT_EQ(CodeOf([&] { (void)tickets.TicketFormat(32); }), 10002);
    EXPECT_EQ(CodeOf([&] { raw.StoreState(); }), 10006);
    EXPECT_EQ(CodeOf([&] { (void)raw.IsDirty(); }), 10006);
    EXPECT_EQ(Error(10001, "", "").Number(), 0x80042711u);

    tickets.SetTicketFormat(8, "mine");
    tickets.ReloadDefaults(8);
    EXPECT_EQ(tickets.TicketFormat(8), "ACCUM <A><NL><DA> <TI><NL>");
    EXPECT_EQ(CodeOf([&] { tickets.ReloadDefaults(32); }), 10002);
}

TEST_F(Tickets, EveryPrinterTypeProposesAPage) {
    const std::map<int, std::set<int>> charsPerLine{{80, {1, 12, 13}},
                                                    {40, {2, 3, 4, 5, 6, 7, 9, 10, 11, 15, 16}},
                                                    {35, {8}},
                                                    {50, {14}},
                                                    {42, {17, 18, 19, 20}}};
    const std::map<int, std::set<int>> linesPerPage{{60, {1, 12, 13}},
                                                    {40, {2, 3, 4, 5, 7, 8, 9, 17, 18, 19, 20}},
                                                    {30, {6, 15}},
                                                    {35, {10, 11, 16}},
                                                    {20, {14}}};
    for (int type = 1; type <= tickets.PrinterTypeCount(); ++type) {
        EXPECT_TRUE(charsPerLine.at(tickets.DefaultCharsPerLine(type)).contains(type)) << type;
        EXPECT_TRUE(linesPerPage.at(tickets.DefaultLinesPerPage(type)).contains(type)) << type;
        EXPECT_EQ(tickets.DefaultFormat(type), "");
        const std::string page = "(" + std::to_string(tickets.DefaultCharsPerLine(type)) + " x " +
                                 std::to_string(tickets.DefaultLinesPerPage(type)) + ")";
        EXPECT_TRUE(tickets.PrinterTypeText(type).ends_with(page)) << type;
    }
    for (const int type : {0, 21}) EXPECT_EQ(CodeOf([&] { tickets.DefaultCharsPerLine(type); }), 10002);
}

TEST_F(Tickets, FormatsWhosePortIsMissingAreFound) {
    const auto mainBoard = [](int port) { return port <= 4; };
    EXPECT_TRUE(tickets.Validate(mainBoard).empty());
    tickets.SetPortNumber(1, 7);
    tickets.SetPortNumber(6, 8);  // a header is not printed by itself
    tickets.SetPortNumber(11, 9);
    tickets.SetPortNumber(31, 10);
    CBrokenRules rules;
    tickets.CheckPorts(mainBoard, rules);
    std::vector<std::string> keys;
    for (const BrokenRule& rule : rules) keys.push_back(rule.key);
    EXPECT_EQ(keys, (std::vector<std::string>{"GFMT.PORT", "AUXFMT.PORT#1", "AUD.PORT"}));
    EXPECT_TRUE(tickets.Validate(mainBoard).front().starts_with("1|GFMT.PORT|Gross ticket: "));
}

TEST_F(Tickets, TheListingShowsFormatsUnderTheirLabels) {
    const std::string listing = tickets.GetPrintOutput();
    for (const char* label : {"Alert Format\r\n", "Auxiliary Format #1\r\n", "Auxiliary Format #20\r\n",
                              "Audit Format\r\n  Serial port: PORT3\r\n"})
        EXPECT_NE(listing.find(label), std::string::npos) << label;
}

}  // namespace
}  // namespace calyx::test
