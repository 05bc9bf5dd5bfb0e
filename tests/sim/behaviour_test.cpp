// What the simulated indicator does beyond storing lines: calibration, bus address, a firmware that knows its
// keys, and the faults of one line.

#include <gtest/gtest.h>

#include "sim/simulator.h"

namespace calyx::sim {
namespace {

using namespace std::string_literals;

std::string Value(Simulator& simulator, const std::string& key) {
    const std::string answer = simulator.Receive(key + "\r");
    return answer.substr(answer.find('=') + 1, answer.find('\r') - answer.find('=') - 1);
}

TEST(Calibration, CountsArePlausible) {
    Simulator simulator;
    EXPECT_EQ(Value(simulator, "SC.LC.CD#3"), "0");
    EXPECT_EQ(simulator.Receive("SC.WSPAN#3\r"), "??\r\n");  // no test weight yet
    EXPECT_EQ(simulator.Receive("SC.WZERO#3\rSC.WVAL#3=500\rSC.WSPAN#3\r"), "OK\r\nOK\r\nOK\r\n");
    const double zero = std::stod(Value(simulator, "SC.LC.CD#3"));
    const double span = std::stod(Value(simulator, "SC.LC.CW#3"));
    EXPECT_GT(span, zero + 500 * 30);
    EXPECT_EQ(simulator.Receive("SC.WLIN.V2#3=250\rSC.WLIN.C2#3\r"), "OK\r\nOK\r\n");
    const double middle = std::stod(Value(simulator, "SC.WLIN.F2#3"));
    EXPECT_NEAR(middle, (zero + span) / 2, (span - zero) / 100);
    EXPECT_EQ(simulator.Receive("SC.REZERO#3\r"), "OK\r\n");
    const double moved = zero - std::stod(Value(simulator, "SC.LC.CD#3"));
    EXPECT_GT(moved, 0);
    EXPECT_EQ(span - std::stod(Value(simulator, "SC.LC.CW#3")), moved);
    EXPECT_EQ(middle - std::stod(Value(simulator, "SC.WLIN.F2#3")), moved);
    for (const auto* wrong :
         {"SC.WZERO#0", "SC.WZERO#33", "SC.WZERO", "SC.WLIN.C6#1", "SC.WLIN.C1#1", "SC.WSPAN#x"})
        EXPECT_EQ(simulator.Receive(wrong + "\r"s), "??\r\n") << wrong;
    Simulator running({.setupMode = false});
    EXPECT_EQ(running.Receive("SC.WZERO#1\r"), "??\r\n");
}

TEST(BusAddress, OnlyFramesForItAreHeard) {
    struct Case {
        std::string sent, answer;
    };
    for (const char address : {'\x05', '\x0d', '\x0a', '\x02', '\xff'}) {
        const std::string own = "\x02"s + address;
        const Case cases[] = {
            {own + "UID=7\r", own + "OK\x03\r"},
            {own + "UID\r", own + "UID=7\x03\r"},
            {"\x02\x06UID\r", ""},
            {"UID\r", ""},
            {"\r", ""},
            {own + "\r", ""},
            {"noise\r" + own + "NONE\r", own + "??\x03\r"},
        };
        Simulator simulator({.address = static_cast<unsigned char>(address), .content = "A=1\r\nB=2\r\n"});
        for (const Case& c : cases) EXPECT_EQ(simulator.Receive(c.sent), c.answer) << c.sent;
        EXPECT_EQ(simulator.Receive(own + "DUMPALL\r"), own + "VERSION=V3.10.02\x03\r" + own + "A=1\x03\r" +
                                                            own + "B=2\x03\r" + own + "UID=7\x03\r");
    }
    EXPECT_THROW(Simulator({.address = 256}), std::invalid_argument);
}

TEST(Firmware, AStrictOneRefusesOtherKeys) {
    Simulator simulator({.knows = [](std::string_view key) { return key == "UID"; }});
    EXPECT_EQ(simulator.Receive("UID=1\rTRUCK=ON\rKNIX\r"), "OK\r\n??\r\nOK\r\n");
}

TEST(Dump, CanBeMadeLong) {
    Simulator simulator({.fillLines = 20'000});
    EXPECT_GT(simulator.DumpText().size(), 1'000'000u);
}

TEST(FaultsOfOneLine, AnswersChangeAsTheySay) {
    struct Case {
        const char *fault, *bytes;
        int delayMs;
        bool close, stored;
    };
    const Case cases[] = {
        {"late:250", "OK\r\n", 250, false, true},  {"echo", "A=OK\r\nOK\r\n", 0, false, true},
        {"okecho", "A=OK\r\n", 0, false, false},   {"silent@2", "OK\r\n", 0, false, true},
        {"silent@1", "", 0, false, false},         {"silent@1+", "", 0, false, false},
        {"refuse:A@1", "??\r\n", 0, false, false}, {"drop:1@1", "OK\r\n", 0, true, true},
        {"address:9", "OK\r\n", 0, false, true},  // without an address of its own it has no frames
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.fault);
        Simulator simulator({.faults = {c.fault}});
        std::string_view line = "A=OK\r";
        const Reply reply = simulator.Exchange(line);
        EXPECT_EQ(reply.bytes, c.bytes);
        EXPECT_EQ(reply.delayMs, c.delayMs);
        EXPECT_EQ(reply.close, c.close);
        EXPECT_EQ(simulator.DumpText().find("A=OK\r\n") != std::string::npos, c.stored);
    }
    Simulator bus({.address = 5, .faults = {"address:9@2+", "echo@3"}});
    const std::string sent = "\x02\x05UID\r"s;
    EXPECT_EQ(bus.Receive(sent), "\x02\x05UID=1\x03\r");
    EXPECT_EQ(bus.Receive(sent), "\x02\x09UID=1\x03\r");
    EXPECT_EQ(bus.Receive(sent), sent + "\x02\x09UID=1\x03\r");
    for (const auto* wrong :
         {"late", "late:x", "address:256", "silent@", "silent@0", "silent@x", "stream:0", "@1"})
        EXPECT_THROW(MakeFault(wrong), std::invalid_argument) << wrong;
}

TEST(FaultsOfOneLine, AStreamBeginsWithItsLine) {
    Simulator simulator({.faults = {"stream:50@2+"}});
    simulator.Receive("UID\r");
    EXPECT_EQ(simulator.Streams().everyMs, 0);
    simulator.Receive("UID\r");
    EXPECT_EQ(simulator.Streams().everyMs, 50);
    EXPECT_FALSE(simulator.Streams().bytes.empty());
    simulator.ClearFaults();
    EXPECT_EQ(simulator.Streams().everyMs, 0);
}

}  // namespace
}  // namespace calyx::sim
