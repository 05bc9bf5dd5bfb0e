#include "app/open_files.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <thread>

#include "tests/platform/test_folder.h"

namespace calyx {
namespace {

std::chrono::system_clock::time_point Noon() {
    return std::chrono::system_clock::time_point(std::chrono::seconds(1'750'000'000));
}

// Each stands for a running program.
class OpenFilesTest : public ::testing::Test {
  protected:
    OpenFiles Program() const { return {locks.Text(), Noon}; }

    TestFolder locks, folder;
    const std::string file = folder.Put("a.mrn", "x"), other = folder.Put("b.mrn", "x");
};

TEST_F(OpenFilesTest, AnotherProgramIsToldWhoHasTheFile) {
    OpenFiles first = Program(), second = Program();
    first.Keep(first.Ask(file));
    EXPECT_FALSE(first.IsShared());
    EXPECT_FALSE(first.Ask(file).other);  // again in the same program

    const std::string spelled = folder.Text() + "./" + "nowhere/../a.mrn";
    for (const std::string& path : {file, spelled}) {
        const auto claim = second.Ask(path);
        ASSERT_TRUE(claim.other) << path;
        EXPECT_EQ(claim.other->process, ProcessNumber());
        EXPECT_EQ(claim.other->since, 1'750'000'000);
    }
    EXPECT_FALSE(second.Ask(other).other);
    EXPECT_EQ(folder.Count(), 2);  // nothing beside the files
}

TEST_F(OpenFilesTest, WhatIsNotKeptOrLetGoIsFreeAgain) {
    OpenFiles first = Program(), second = Program();
    { const auto claim = first.Ask(file); }  // was not opened in the end
    EXPECT_FALSE(second.Ask(file).other);
    first.Keep(first.Ask(file));
    first.Keep(first.Ask(file));  // read again
    EXPECT_TRUE(second.Ask(file).other);
    first.Keep(first.Ask(other));  // another file in its place
    EXPECT_FALSE(second.Ask(file).other);
    first.LetGo();
    EXPECT_EQ(locks.Count(), 0);
}

TEST_F(OpenFilesTest, WhoOpensAnywayHoldsTheFileOnceTheOtherHasEnded) {
    OpenFiles second = Program();
    {
        OpenFiles first = Program();
        first.Keep(first.Ask(file));
        second.Keep(second.Ask(file));
        second.AskAgain();
        EXPECT_TRUE(second.IsShared());
    }
    second.AskAgain();
    EXPECT_FALSE(second.IsShared());
    EXPECT_TRUE(Program().Ask(file).other);
}

// Ends without letting go, as a crash does.
TEST_F(OpenFilesTest, ALockOfAProgramThatCrashedIsTakenOver) {
    const auto crash = [this] {
        OpenFiles crashing = Program();
        auto claim = crashing.Ask(file);
        const bool held = claim.lock != nullptr;
        crashing.Keep(std::move(claim));
        std::_Exit(held ? 7 : 1);
    };
    EXPECT_EXIT(crash(), ::testing::ExitedWithCode(7), "");
    OpenFiles next = Program();
    auto claim = next.Ask(file);
    EXPECT_TRUE(claim.lock != nullptr);
    EXPECT_FALSE(claim.other);
    next.Keep(std::move(claim));
    const auto later = Program().Ask(file);  // not what the crashed one left in it
    ASSERT_TRUE(later.other);
    EXPECT_EQ(later.other->process, ProcessNumber());
}

// Two that read, change and write at the same time, with the pause between that makes them meet.
TEST_F(OpenFilesTest, TurnsKeepTwoWritersFromMeeting) {
    constexpr int kTimes = 20;
    const auto count = [this] {
        for (int i = 0; i < kTimes; ++i) {
            const auto turn = TakeTurn(locks.Text(), file, std::chrono::seconds(60));
            const std::string before = FileStore().Read(file);
            std::this_thread::yield();
            FileStore().Replace(file, before + "x");
        }
    };
    std::thread beside(count);
    count();
    beside.join();
    EXPECT_EQ(FileStore().Read(file).size(), 1u + 2 * kTimes);
    const auto turn = TakeTurn(locks.Text(), file, std::chrono::seconds(0));
    EXPECT_TRUE(turn != nullptr);
    EXPECT_TRUE(TakeTurn(locks.Text(), file, std::chrono::seconds(0)) == nullptr);
}

TEST_F(OpenFilesTest, WithoutAFolderForLocksEveryFileIsFree) {
    OpenFiles first(folder.File("no/such/folder/"), Noon), second(folder.File("no/such/folder/"), Noon);
    first.Keep(first.Ask(file));
    EXPECT_FALSE(second.Ask(file).other);
    EXPECT_FALSE(second.Ask("").other);
}

}  // namespace
}  // namespace calyx
