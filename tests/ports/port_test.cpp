#include <gtest/gtest.h>

#include "model/language/change_set.h"
#include "model/ports/comm_port.h"
#include "tests/support/error_code.h"
#include "tests/support/members.h"
#include "tests/support/model_fixture.h"

namespace calyx::test {
namespace {

class Port : public testing::Test {
  protected:
    TestContext context{CALYX_DATA_DIR};
    ReadReport report;

    CCommPort Fresh(int number) const {
        CCommPort port(context);
        port.Initialize(number);
        return port;
    }
    CCommPort Read(int number, const std::string& lines) {
        CCommPort port = Fresh(number);
        Dictionary file(lines);
        port.RestoreState(file, report);
        return port;
    }
    static std::string Keys(const std::string& text) {
        std::string keys;
        for (const KeyValue& line : ReadLines(text)) keys += line.key.substr(4, line.key.find('#') - 4) + " ";
        return keys;
    }
    std::string Sent(const CCommPort& port, const char* version) {
        context.target.prefix = version;
        return port.GetTextOutput(false);
    }
};

TEST_F(Port, StartsWithItsDefaultsAndReloadsThemWithOneBaudRateForAll) {
    struct Row {
        int number;
        const char *alias, *baud;
    };
    for (const Row& row : {Row{1, "Port1", "9600"}, Row{2, "Port2", "115200"}, Row{32, "Port32", "9600"}}) {
        CCommPort port = Fresh(row.number);
        EXPECT_EQ(port.Values().alias.View(), row.alias);
        EXPECT_EQ(port.Values().baudRate.View(), row.baud);
        EXPECT_EQ(port.Values().inputType.View(), "CMD");  // the second entry of its list
        EXPECT_EQ(port.Values().stopBits.View(), "2");
        EXPECT_TRUE(port.Values().commandEcho && port.Values().commandResponse);
        port.ReloadDefaults();
        EXPECT_EQ(port.Values().baudRate.View(), "9600");  // on purpose, port 2 included
    }
    ExpectARowForEveryMember(kPortTable);
    ExpectARowForEveryMember(kStreamTable);
}

TEST_F(Port, ChecksRaiseTheirNumbers) {
    CCommPort port(context);
    EXPECT_EQ(CodeOf([&] { port.GetTextOutput(true); }), code::kNotInitialised);
    EXPECT_EQ(CodeOf([&] { port.SetAddress(1); }), code::kNotInitialised);
    EXPECT_EQ(CodeOf([&] { port.StreamTypes(); }), code::kNotInitialised);
    for (const int number : {0, 33, -1}) {
        EXPECT_EQ(CodeOf([&] { port.Initialize(number); }), code::kOutOfRange) << number;
        EXPECT_FALSE(port.IsInitialised());
    }
    port.Initialize(5);
    for (const int value : {-1, 256}) {
        EXPECT_EQ(CodeOf([&] { port.SetAddress(value); }), code::kOutOfRange);
        EXPECT_EQ(CodeOf([&] { port.SetEOL(value); }), code::kOutOfRange);
    }
    EXPECT_EQ(CodeOf([&] { port.SetAlias("TooLongByFar"); }), code::kTextTooLong);
    EXPECT_EQ(CodeOf([&] { port.SetAlias("while"); }), code::kAliasRefused);
    EXPECT_EQ(CodeOf([&] { port.SetAlias(" Blank"); }), code::kAliasRefused);
    EXPECT_EQ(port.Values().alias.View(), "Port5");
    EXPECT_EQ(CodeOf([&] { port.SetAlias(""); }), 0);
    EXPECT_EQ(port.GetIWriteImportDef(), "");
    port.SetAlias("Gate");
    EXPECT_EQ(port.GetIWriteImportDef(), "Gate     : constant integer := 5;\r\n");
}

TEST_F(Port, WritesWhatItsInputTypeAndStreamHave) {
    const std::string line =
        "ALIAS INPUT ADDRESS BAUD BITS EOLDLY TERMIN HANDSHK ECHO RESPONSE STOPBITS TYPE DUPLEX ";
    struct Row {
        const char *lines, *keys;
    };
    const Row rows[] = {
        {"EDP.INPUT#1=KEYBD\r\n", "ALIAS INPUT "},
        {"EDP.INPUT#1=KBDPRG\r\n", "ALIAS INPUT "},
        {"EDP.INPUT#1=SCALE\r\n", ""},
        {"EDP.INPUT#1=IND SC\r\n", ""},
        {"EDP.INPUT#1=VEXAL\r\n", ""},
        {"EDP.INPUT#1=HIPREC\r\n", ""},
        {"EDP.INPUT#1=CMD\r\n", "STREAM "},
        {"EDP.INPUT#1=CMD\r\nEDP.SOURCE#1=SCALE2\r\nEDP.STREAM#1=CONT\r\n", "STREAM FORMAT SOURCE "},
    };
    for (const Row& row : rows) {
        const CCommPort port = Read(1, row.lines);
        const std::string keys = row.keys;
        EXPECT_EQ(Keys(port.GetTextOutput(true)), keys.starts_with("ALIAS") ? keys : line + keys)
            << row.lines;
    }
}

TEST_F(Port, FirmwareGetsTheLinesItKnows) {
    const CCommPort port = Fresh(1);
    const std::string base = "ALIAS INPUT ADDRESS BAUD BITS EOLDLY TERMIN HANDSHK ";
    struct Row {
        const char *version, *keys;
    };
    for (const Row& row :
         {Row{"1.05.", "STREAM "}, Row{"1.06.", "ECHO STREAM "},
          Row{"2.02.", "ECHO RESPONSE STOPBITS STREAM "},
          Row{"2.03.", "ECHO RESPONSE STOPBITS TYPE DUPLEX STREAM "}, Row{"2.04.", "STREAM "},
          Row{"3.10.", "ECHO RESPONSE STOPBITS TYPE DUPLEX STREAM "}}) {
        EXPECT_EQ(Keys(Sent(port, row.version)), base + row.keys) << row.version;
    }
    context.target.cb2 = true;
    EXPECT_EQ(Sent(port, "1.00."), port.GetTextOutput(true));
}

TEST_F(Port, ReadsLeniently) {
    CCommPort port = Read(5, "");
    EXPECT_EQ(port.Values().alias.View(), "Com5");  // unlike a new one
    EXPECT_EQ(port.Values().streamType.View(), "OFF");

    port = Read(
        1,
        "EDP.ALIAS#1= A\r\nEDP.BAUD#1=12345\r\nEDP.BITS#1=\r\nEDP.ADDRESS#1=256\r\nEDP.EOLDLY#1=12abc\r\n"
        "EDP.ECHO#1= off \r\nEDP.RESPONSE#1=perhaps\r\nEDP.STREAM#1=CONT\r\nEDP.FORMAT#1=CUSTOM\r\n");
    EXPECT_EQ(port.Values().alias.View(), "");
    EXPECT_EQ(port.Values().baudRate.View(), "9600");
    EXPECT_EQ(port.Values().bits.View(), "8N");
    EXPECT_EQ(port.Values().address, 0);
    EXPECT_EQ(port.Values().endOfLineDelay, 12);
    EXPECT_FALSE(port.Values().commandEcho);
    EXPECT_TRUE(port.Values().commandResponse);
    EXPECT_EQ(port.Values().streamType.View(), "OFF");  // there is no source
    EXPECT_EQ(port.Values().streamFormat.View(), "DEFAULT");
    EXPECT_FALSE(port.IsDirty());

    struct Row {
        const char* value;
        int source;
    };
    for (const Row& row : {Row{"SCALE12", 12}, Row{"7", 7}, Row{"31", 31}, Row{"SCL", 0}, Row{"SCALE", 0},
                           Row{"ABCDE9", 9}, Row{"SCALE99999", 0}}) {
        EXPECT_EQ(Read(3, std::string("EDP.SOURCE#3=") + row.value).Values().source, row.source) << row.value;
    }
}

TEST_F(Port, SendsItsStreamWhereItIsInUse) {
    const auto sendsStream = [&](const char* lines) {
        std::string sent;
        Read(1, lines).AppendSent(sent, Target{});
        return sent.find("STR.POS#1=") != std::string::npos;
    };
    EXPECT_FALSE(sendsStream(""));
    EXPECT_TRUE(sendsStream("EDP.INPUT#1=SCALE"));
    EXPECT_TRUE(sendsStream("EDP.INPUT#1=IND SC"));
    EXPECT_TRUE(sendsStream("EDP.SOURCE#1=SCALE1\r\nEDP.STREAM#1=CONT\r\nEDP.FORMAT#1=CUSTOM"));
    EXPECT_FALSE(sendsStream("EDP.SOURCE#1=SCALE1\r\nEDP.STREAM#1=CONT\r\nEDP.FORMAT#1=DEFAULT"));
}

TEST_F(Port, AStreamGoesOnlyBehindAPortThatWasAcceptedWhole) {
    struct Indicator : ILineSender, IDownload {
        std::string refused;
        std::vector<std::string> lines;
        bool SendLine(std::string_view line) override {
            lines.emplace_back(line);
            return line != refused;
        }
        bool ErrorAction(const std::string&) override { return false; }
    };
    const CCommPort port = Read(3, "EDP.INPUT#3=SCALE\r\n");
    for (const auto* refused : {"", "EDP.BAUD#3=9600", "STR.POS#3=SPACE"}) {
        Indicator indicator;
        indicator.refused = refused;
        EXPECT_TRUE(port.SendToIndicator(indicator, indicator, true));
        EXPECT_EQ(indicator.lines[0] + " " + indicator.lines[1], "EDP.INPUT#3=SCALE EDP.ALIAS#3=Com3");
        const bool whole = std::string_view(refused) != "EDP.BAUD#3=9600";
        EXPECT_EQ(indicator.lines.back().starts_with("EDP.SFMT#3="), whole) << refused;
        EXPECT_EQ(indicator.lines.size(), whole ? 28u : 14u) << refused;
    }
}

}  // namespace
}  // namespace calyx::test
