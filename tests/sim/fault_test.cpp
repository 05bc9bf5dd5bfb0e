#include "sim/fault.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "sim/simulator.h"

namespace calyx::sim {
namespace {

// What a host sees of a run of lines: the answers, with "/" where a write ends and "!" where the
// connection closes, after which the host sends the rest over a new one.
std::string Seen(Simulator& simulator, std::string_view sent) {
    std::string seen;
    while (!sent.empty()) {
        const auto reply = simulator.Exchange(sent);
        const auto piece = reply.pieceBytes == 0 ? std::string::npos : reply.pieceBytes;
        for (std::string rest = reply.bytes; !rest.empty(); rest.erase(0, piece))
            seen += rest.substr(0, piece) + "/";
        if (reply.close) seen += "!";
    }
    return seen;
}

TEST(Fault, ChangesWhatTheHostSees) {
    const std::string ok = "OK\r\n/";
    const std::string no = "??\r\n/";
    const std::string bytewise = "O/K/\r/\n/";
    const std::string dirt("\x7f\0\xfe@#", 5);
    const struct {
        std::vector<std::string> faults;
        std::string sent, seen, holds;
    } rows[] = {
        {{}, "A=1\rB=2\r", ok + ok, "A=1\r\nB=2\r\n"},

        {{"refuse:B"}, "A=1\rB=2\rBB=3\r", ok + no + ok, "A=1\r\nBB=3\r\n"},
        {{"refuse:sp.*#1"},
         "SP.KIND#1=2\rSP.KIND#2=2\rSPX.#11=1\r",
         no + ok + ok,
         "SP.KIND#2=2\r\nSPX.#11=1\r\n"},
        {{"refuse:?.A*Z*"},
         "X.AZ=1\rX.ABZC=1\rX.AB=Z\rXX.AZ=1\r",
         no + no + ok + ok,
         "X.AB=Z\r\nXX.AZ=1\r\n"},
        {{"refuse:KNIX"}, "KNIX\rA=1\r", no + ok, "A=1\r\n"},

        {{"forget:B*"}, "A=1\rB=2\rBB=3\rB\r", ok + ok + ok + no, "A=1\r\n"},

        {{"silent"}, "A=1\r\rVERSION\r", "", ""},
        {{"silent:2"}, "\rA=1\rA=1\rA=1\r", ok, "A=1\r\n"},
        {{"silent:1", "refuse:A"}, "A=1\rA=1\r", no, ""},

        {{"drop:2"}, "\rA=1\rB=2\rC=3\rD=4\r", ok + ok + "!" + ok + ok, "A=1\r\nB=2\r\nC=3\r\nD=4\r\n"},
        {{"silent", "drop:1"}, "A=1\rB=2\r", "!", ""},
        {{"drop:1", "drop:2"}, "A=1\rB=2\r", ok + "!" + ok + "!", "A=1\r\nB=2\r\n"},

        {{"notsetup"}, "KNIX\rknix\rA=1\r", no + no + ok, "A=1\r\n"},
        {{"split"}, "\rA=1\r", bytewise, "A=1\r\n"},
        {{"garbage"}, "\rA=1\r", dirt + ok, "A=1\r\n"},
        {{"garbage", "refuse:*"}, "A=1\r", dirt + no, ""},
        {{"silent:1", "garbage"}, "A=1\rA=2\r", dirt + ok, "A=2\r\n"},
    };
    for (const auto& row : rows) {
        SimulatorOptions options;
        options.content = "; empty";
        options.faults = row.faults;
        Simulator simulator(options);
        EXPECT_EQ(Seen(simulator, row.sent), row.seen) << row.sent << ::testing::PrintToString(row.faults);
        EXPECT_EQ(simulator.DumpText(), "VERSION=V3.10.02\r\n" + row.holds) << row.sent;
    }
}

TEST(Fault, SpoilsTheDumpAlone) {
    Simulator simulator({.content = "A=1\r\nAB=\r\nC=3\r\n"});
    const std::string whole = simulator.DumpText();
    simulator.AddFault("corrupt:a*");
    EXPECT_EQ(simulator.Receive("DUMPALL\r"), "VERSION=V3.10.02\r\nA=1~\r\nAB=~\r\nC=3\r\n");
    EXPECT_EQ(simulator.Receive("A\r"), "A=1\r\n");
    simulator.ClearFaults();
    simulator.AddFault("cut:4");
    EXPECT_EQ(simulator.Receive("DUMPALL\r") + "=3\r\n", whole);
    simulator.AddFault("cut:1000000");
    EXPECT_EQ(simulator.Receive("DUMPALL\rVERSION\r"), "V3.10.02 MERRIN\r\n");
}

TEST(Fault, CanComeAndGoWhileRunning) {
    Simulator simulator;
    simulator.AddFault("silent");
    EXPECT_EQ(simulator.Receive("KNIX\r"), "");
    simulator.ClearFaults();
    EXPECT_EQ(simulator.Receive("KNIX\r"), "OK\r\n");
}

TEST(Fault, AWrongSpecIsExplained) {
    const struct {
        std::string spec, says;
    } rows[] = {
        {"", "no such fault"},
        {"explode", "no such fault"},
        {"refuse", "missing"},
        {"refuse:", "missing"},
        {"drop", "missing"},
        {"drop:0", "from 1"},
        {"drop:-1", "from 1"},
        {"drop:2x", "from 1"},
        {"cut:0", "number of bytes from 1"},
        {"forget", "missing"},
        {"silent:99999999999999999999", "from 1"},
        {"notsetup:1", "nothing can"},
        {"split:", "nothing can"},
    };
    for (const auto& row : rows) {
        try {
            MakeFault(row.spec);
            ADD_FAILURE() << row.spec;
        } catch (const std::invalid_argument& wrong) {
            EXPECT_NE(std::string(wrong.what()).find(row.says), std::string::npos) << wrong.what();
            for (const auto& kind : KnownFaults()) {
                EXPECT_NE(std::string(wrong.what()).find(kind.form), std::string::npos) << wrong.what();
            }
        }
    }
}

}  // namespace
}  // namespace calyx::sim
