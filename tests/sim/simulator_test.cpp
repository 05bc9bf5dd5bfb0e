#include "sim/simulator.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace calyx::sim {
namespace {

const std::string kOk = "OK\r\n";
const std::string kNo = "??\r\n";

SimulatorOptions Holding(std::string content) {
    SimulatorOptions options;
    options.content = std::move(content);
    return options;
}

TEST(Simulator, AnswersLineByLine) {
    const struct {
        std::string sent, answer;
    } rows[] = {
        {"\r", ""},
        {"\n\r\n", ""},
        {"VERSION\r", "V3.10.02 MERRIN\r\n"},
        {"version\r\n", "V3.10.02 MERRIN\r\n"},
        {"KNIX\r", kOk},
        {"DUMPALL\r", "VERSION=V3.10.02\r\nUID=SILO3\r\nWDGT#1=1,0,1,1\r\nDB.1=x\r\n"},
        {"UID\r", "UID=SILO3\r\n"},
        {"UID\r\nuid\r\n", "UID=SILO3\r\nUID=SILO3\r\n"},
        {"SJ.DOWNLOAD#32\r", kOk},

        // parameters
        {"uid=B=2 \rUID\r", kOk + "UID=B=2 \r\n"},
        {"NEXTCAL=\rNEXTCAL\r", kOk + "NEXTCAL=\r\n"},
        {"SJ.LC.ID.3#12=7\rsj.lc.id.3#12\r", kOk + "SJ.LC.ID.3#12=7\r\n"},
        {"CONTACT.NAME1=\xe9\xff\x01\rCONTACT.NAME1\r", kOk + "CONTACT.NAME1=\xe9\xff\x01\r\n"},
        {std::string(32, 'K') + "=1\r", kOk},

        // refused
        {std::string(33, 'K') + "=1\r", kNo},
        {"NOSUCH\r", kNo},
        {"=1\r", kNo},
        {"1UID=1\r", kNo},
        {"U ID=1\r", kNo},
        {"@CRC=1\r", kNo},
        {"; a comment\r", kNo},
        {"VERSION=V9.99.99\r", kNo},
        {"VERSIONS\r", kNo},
        {"SJ.DOWNLOAD\r", kNo},
        {"SJ.DOWNLOAD#\r", kNo},
        {"SJ.DOWNLOAD#0\r", kNo},
        {"SJ.DOWNLOAD#33\r", kNo},
        {"SJ.DOWNLOAD#1x\r", kNo},

        // a line without its CR is no line yet
        {"UID", ""},
    };
    for (const auto& row : rows) {
        Simulator simulator(Holding("UID=SILO3\r\nWDGT#1=1,0,1,1\r\nDB.1=x\r\n"));
        EXPECT_EQ(simulator.Receive(row.sent), row.answer) << row.sent;
    }
}

TEST(Simulator, BytesMayBeCutAnywhere) {
    const std::string sent = "\rVERSION\rUID=7\r\nSC.GRADS#1=5000\rBAD LINE\rUID\r\nDUMPALL\r";
    Simulator whole;
    const auto expected = whole.Receive(sent);
    ASSERT_NE(expected.find("SC.GRADS#1=5000\r\n"), std::string::npos);
    for (std::size_t cut = 0; cut <= sent.size(); ++cut) {
        Simulator halves;
        const auto first = halves.Receive(sent.substr(0, cut));
        EXPECT_EQ(first + halves.Receive(sent.substr(cut)), expected) << cut;
    }
    Simulator bytewise;
    std::string answers;
    for (const char byte : sent) answers += bytewise.Receive({&byte, 1});
    EXPECT_EQ(answers, expected);
    EXPECT_EQ(bytewise.Received(), whole.Received());
}

TEST(Simulator, DumpKeepsFirstOrderAndLastValue) {
    Simulator simulator(Holding("B=1\nA=1\n"));
    simulator.Receive("C=1\rWDGT#1=1\rWDGT#2=2\rDB.T1=x\ra=2\rWDGTS=3\r");
    EXPECT_EQ(simulator.Receive("DUMPALL\r"),
              "VERSION=V3.10.02\r\nB=1\r\nA=2\r\nC=1\r\nWDGT#1=1\r\nWDGT#2=2\r\nDB.T1=x\r\nWDGTS=3\r\n");
    EXPECT_EQ(simulator.Receive("WDGT.CLR\rDB.DELALL\rWDGT#2=5\rB=9\r"), kOk + kOk + kOk + kOk);
    EXPECT_EQ(simulator.DumpText(), "VERSION=V3.10.02\r\nB=9\r\nA=2\r\nC=1\r\nWDGTS=3\r\nWDGT#2=5\r\n");
}

TEST(Simulator, VersionTextDecidesIdentificationAndDump) {
    SimulatorOptions options = Holding("VERSION=V1.00.00\r\nA=1\r\n");
    options.version = "V2.08.01 CB2 MERRIN";
    options.setupMode = false;
    Simulator simulator(options);
    EXPECT_EQ(simulator.Receive("VERSION\rKNIX\rDUMPALL\r"),
              "V2.08.01 CB2 MERRIN\r\n" + kNo + "VERSION=V2.08.01\r\nA=1\r\n");
    for (const auto* wrong : {"", " MERRIN", "V3.10.02\rMERRIN"}) {
        options.version = wrong;
        EXPECT_THROW(Simulator{options}, std::invalid_argument) << wrong;
    }
}

TEST(Simulator, FreshOneHoldsGeneralDefaults) {
    const auto dump = Simulator().DumpText();
    EXPECT_EQ(dump.rfind("VERSION=V3.10.02\r\n", 0), 0u);
    EXPECT_NE(dump.find("\r\nUID=1\r\n"), std::string::npos);
}

TEST(Simulator, StartsFromAConfigurationFile) {
    std::ifstream body(CALYX_SOURCE_DIR "/data/samples/silo.mrn", std::ios::binary);
    std::ostringstream text;
    text << body.rdbuf();
    ASSERT_FALSE(text.str().empty());
    const auto file = "@REVISION=3.10.0\r\n@CRC=1\r\n@CODFile=\r\n\r\n[BEGIN]\r\n" + text.str() + "[END]";
    Simulator simulator(Holding(file));
    EXPECT_EQ(simulator.Receive("UID\r\nSTR.OK#1\r"), "UID=SILO3\r\nSTR.OK#1= \r\n");
    for (const auto* envelope : {"@REVISION", "@CRC", "@CODFile", "[BEGIN]", "[END]", "; Grain"}) {
        EXPECT_EQ(simulator.DumpText().find(envelope), std::string::npos) << envelope;
    }
}

TEST(Simulator, LongLinesAndAFullMemoryAreRefused) {
    Simulator simulator(Holding("A=1"));
    const std::string longest = "A=" + std::string(LineReader::kMaxLine - 2, 'x');
    EXPECT_EQ(simulator.Receive(longest + "\r"), kOk);
    EXPECT_EQ(simulator.Receive(longest + "x\rA\r").substr(0, 8), kNo + "A=xx");
    for (int block = 0; block < 100; ++block) simulator.Receive(std::string(100'000, 'y'));
    EXPECT_EQ(simulator.Receive("\rKNIX\r"), kNo + kOk);
    EXPECT_EQ(simulator.Received()[3].size(), LineReader::kMaxLine);

    std::size_t stored = 0;
    const auto value = longest.substr(2, 60'000);
    while (simulator.Receive("P" + std::to_string(stored) + "=" + value + "\r") == kOk && stored < 1000)
        ++stored;
    EXPECT_LT(stored, 300u);
    EXPECT_LT(simulator.DumpText().size(), Store::kMaxBytes + 100);
    EXPECT_EQ(simulator.Receive("P0=1\rPX=2\r"), kOk + kOk) << "room again once a value is shorter";
}

TEST(Simulator, KeepsTheLatestOfWhatItReceived) {
    SimulatorOptions options;
    options.receivedBytes = 3 * (Simulator::kLineCost + 4);
    Simulator simulator(options);
    simulator.Receive("\rKNIX\r\nA=1\rB=2\r");
    EXPECT_EQ(simulator.Received(), (std::vector<std::string>{"KNIX", "A=1", "B=2"}));
    EXPECT_EQ(simulator.ReceivedCount(), 4u);
}

TEST(Simulator, ANewConnectionForgetsABegunLine) {
    Simulator simulator(Holding("UID=1"));
    simulator.Receive("UID=2");
    simulator.NewConnection();
    EXPECT_EQ(simulator.Receive("UID\r"), "UID=1\r\n");
}

}  // namespace
}  // namespace calyx::sim
