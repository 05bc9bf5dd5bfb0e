#include "app/error_log.h"

#include <gtest/gtest.h>

#include "tests/platform/test_folder.h"

namespace calyx {
namespace {

using namespace std::chrono_literals;

class Log : public ::testing::Test {
  protected:
    TestFolder folder_;
    FileStore files_;
    const ErrorLog log_{folder_.File("made/"),
                        [] { return std::chrono::sys_days(2024y / 2 / 29) + 13h + 4min + 5s; }};
};

TEST_F(Log, HoldsOneLineAnError) {
    Error error(20004, "Calyx.CAppSettings.Load", "First line.\r\nSecond \xE4.",
                {"/src/app_settings.cpp", 47});
    EXPECT_TRUE(log_.Write(error));
    error.PassedOnBy("Calyx.modStartup.Main");
    error.PassedOnBy("Calyx.frmMain.Open");
    EXPECT_TRUE(log_.Write(error));
    const std::string line =
        "2024-02-29 13:04:05Z error 20004 (0x80044E24) in Calyx.CAppSettings.Load, line 47 of "
        "app_settings.cpp: First line.  Second \xE4.";
    EXPECT_EQ(files_.Read(log_.File()),
              line + "\r\n" + line + " [passed on by Calyx.modStartup.Main, Calyx.frmMain.Open]\r\n");
}

TEST_F(Log, ErrorsKnowTheLineThatRaisedThem) {
    const int above = __LINE__;
    const Error error(20004, "Calyx.CAppSettings.Load", "Here.");
    EXPECT_EQ(error.Line().number, above + 1);
    EXPECT_STREQ(error.Line().file, "error_log_test.cpp");
}

TEST_F(Log, AfreshOnlyBeyondFiftyThousandBytes) {
    log_.DeleteWhenLarge();
    for (const auto& [size, found] :
         {std::pair{50'000u, IFileStore::Found::File}, std::pair{50'001u, IFileStore::Found::Nothing}}) {
        folder_.Put("made/errorlog.txt", std::string(size, 'x'));
        log_.DeleteWhenLarge();
        EXPECT_EQ(files_.Look(log_.File()), found) << size;
    }
}

TEST_F(Log, TellsWhenItCannotBeWritten) {
    folder_.Put("made/errorlog.txt/x", "a folder in the way");
    EXPECT_FALSE(log_.Write(Error(20004, "Calyx.CAppSettings.Load", "Lost.")));
}

}  // namespace
}  // namespace calyx
