#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <system_error>

#include "sim/simulator.h"

namespace calyx::sim {
namespace {

namespace fs = std::filesystem;

class State : public ::testing::Test {
  protected:
    void SetUp() override {
        fs::remove_all(folder_);
        fs::create_directories(folder_);
        options_.stateFile = folder_ / "indicator.state";
        options_.content = "A=1\r\nB=2\r\n";
    }
    void TearDown() override { fs::remove_all(folder_); }

    void Write(const std::string& text) const { std::ofstream(options_.stateFile, std::ios::binary) << text; }
    std::string Read() const {
        std::ostringstream text;
        text << std::ifstream(options_.stateFile, std::ios::binary).rdbuf();
        return text.str();
    }

    const fs::path folder_ =
        fs::path(::testing::TempDir()) /
        (std::string("calyx_sim_") + ::testing::UnitTest::GetInstance()->current_test_info()->name());
    SimulatorOptions options_;
};

TEST_F(State, SurvivesARestart) {
    const std::string odd = std::string("N=\0 =\xff \t", 8);
    std::string before;
    {
        Simulator simulator(options_);
        EXPECT_FALSE(simulator.StateUnsaved());
        simulator.Receive("C=3\ra=9\r" + odd + "\rWDGT#1=1\rWDGT.CLR\r");
        EXPECT_TRUE(simulator.StateUnsaved());
        simulator.SaveState();
        EXPECT_FALSE(simulator.StateUnsaved());
        simulator.Receive("LOST=1\r");
        simulator.Receive("A=9\r");
        before = "VERSION=V3.10.02\r\nA=9\r\nB=2\r\nC=3\r\n" + odd + "\r\n";
    }
    options_.content = "Z=1";
    Simulator again(options_);
    EXPECT_EQ(again.DumpText(), before);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_), {}), 1) << "nothing but the state file stays";
}

TEST_F(State, AnEmptyFileIsAFreshOneAndAnEmptiedStoreStaysEmpty) {
    Write("");
    options_.content = "WDGT#1=1\r\n";
    Simulator simulator(options_);
    EXPECT_EQ(simulator.DumpText(), "VERSION=V3.10.02\r\nWDGT#1=1\r\n");
    simulator.Receive("WDGT.CLR\r");
    simulator.SaveState();
    EXPECT_EQ(Simulator(options_).DumpText(), "VERSION=V3.10.02\r\n");
}

TEST_F(State, AnotherProgramsFileIsRefusedAndLeftAlone) {
    Simulator(options_).SaveState();
    const auto good = Read();
    for (const auto& foreign : {std::string("@REVISION=3.10.0\r\n"), std::string("A=1\r\n"),
                                good + "no parameter\r\n", good + "1A=2\r\n", good.substr(0, 10)}) {
        Write(foreign);
        EXPECT_THROW(Simulator{options_}, StateFileError) << foreign;
        EXPECT_EQ(Read(), foreign);
    }
    options_.stateFile = folder_;
    EXPECT_THROW(Simulator{options_}, std::runtime_error);
}

TEST_F(State, APlaceThatCannotBeWrittenIsToldAtTheStart) {
    options_.stateFile = folder_ / "no such folder" / "state";
    try {
        Simulator simulator(options_);
        ADD_FAILURE();
    } catch (const StateFileError& failure) {
        EXPECT_EQ(failure.When(), StateFileError::Doing::kWriting);
        EXPECT_NE(std::string(failure.what()).find("no such folder"), std::string::npos);
    }
}

TEST_F(State, AFailedSaveLeavesTheOldFileWhole) {
    Simulator simulator(options_);
    const auto old = Read();
    fs::create_directory(folder_ / ".indicator.state.calyx-new");  // in the way of the new file
    simulator.Receive("A=2\r");
    EXPECT_THROW(simulator.SaveState(), StateFileError);
    EXPECT_EQ(Read(), old);
    fs::remove(folder_ / ".indicator.state.calyx-new");
    simulator.SaveState();
    EXPECT_NE(Read().find("A=2\r\n"), std::string::npos);
}

}  // namespace
}  // namespace calyx::sim
