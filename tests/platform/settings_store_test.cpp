#include "platform/settings_store.h"

#include <gtest/gtest.h>

#include "platform/file_settings_store.h"
#include "tests/platform/test_folder.h"

namespace calyx {
namespace {

using Root = ISettingsStore::Root;
constexpr auto kKey = "SOFTWARE\\Calyx\\Calyx\\3.10.0\\Settings";

class SettingsFiles : public ::testing::Test {
  protected:
    FileSettingsStore Store() { return {files_, user_, machine_}; }

    TestFolder folder_;
    FileStore files_;
    const std::string user_ = folder_.File("below/settings.ini");
    const std::string machine_ = folder_.File("machine.ini");
};

TEST_F(SettingsFiles, AnyBytesComeBack) {
    std::string all;
    for (int c = 0; c < 256; ++c) all += static_cast<char>(c);
    const std::string values[] = {all,
                                  "",
                                  "  blanks  ",
                                  "a=b",
                                  "[Settings]",
                                  "# no comment",
                                  "C:\\new\\road\\",
                                  "\\\\server",
                                  "one\r\ntwo\n",
                                  "\\n"};
    FileSettingsStore store = Store();
    for (std::size_t i = 0; i < std::size(values); ++i) {
        store.Set(i % 2 ? Root::User : Root::Machine, kKey, "Value " + std::to_string(i), values[i]);
    }
    EXPECT_EQ(store.Get(Root::User, kKey, "Value 1"), "") << "seen before it is saved";
    EXPECT_EQ(folder_.Count(), 0);
    EXPECT_TRUE(store.Save());
    for (FileSettingsStore read : {Store(), store}) {
        for (std::size_t i = 0; i < std::size(values); ++i) {
            EXPECT_EQ(read.Get(i % 2 ? Root::User : Root::Machine, kKey, "value " + std::to_string(i)),
                      values[i]);
        }
        EXPECT_EQ(read.Get(Root::Machine, kKey, "Value 1"), std::nullopt);
        EXPECT_EQ(read.Get(Root::User, "SOFTWARE\\Other", "Value 1"), std::nullopt);
    }
}

TEST_F(SettingsFiles, TheFileReadsAsPeopleExpect) {
    FileSettingsStore store = Store();
    store.Set(Root::User, "A\\B", "Name", "x");
    store.Set(Root::User, "C", "Name", "y");
    store.Set(Root::User, "a\\b", "Second", "C:\\z");
    store.Save();
    const std::string text = files_.Read(user_);
    EXPECT_EQ(text.substr(text.find('[')), "[A\\B]\nName=x\nSecond=C:\\\\z\n\n[C]\nName=y\n");
}

TEST_F(SettingsFiles, HandMadeFilesAreReadLenientlyAndKept) {
    const std::string text =
        "\xEF\xBB\xBF# mine\r\n[K]\r\nName = x \r\nFolder=C:\\temp\r\n; odd line\r\nName=later\r\n";
    folder_.Put("below/settings.ini", text);
    FileSettingsStore store = Store();
    EXPECT_EQ(store.Get(Root::User, "K", "Name"), " x ");
    EXPECT_EQ(store.Get(Root::User, "K", "Folder"), "C:\\temp");
    store.Set(Root::User, "K", "Name", "y");
    store.Set(Root::User, "K", "New", "z");
    store.Save();
    EXPECT_EQ(files_.Read(user_),
              "\xEF\xBB\xBF# mine\n[K]\nName=y\nFolder=C:\\temp\n; odd line\nName=later\nNew=z\n");
}

TEST_F(SettingsFiles, TwoProgramsDoNotUndoEachOther) {
    FileSettingsStore one = Store(), other = Store();
    EXPECT_EQ(one.Get(Root::User, kKey, "B"), std::nullopt);
    other.Set(Root::User, kKey, "B", "other");
    other.Save();
    one.Set(Root::User, kKey, "A", "one");
    one.Save();
    EXPECT_EQ(Store().Get(Root::User, kKey, "A"), "one");
    EXPECT_EQ(Store().Get(Root::User, kKey, "B"), "other");
}

TEST_F(SettingsFiles, ARefusedMachineWideFileDoesNotStopTheUsers) {
    std::filesystem::create_directories(PathOf(machine_));
    FileSettingsStore store = Store();
    store.Set(Root::Machine, kKey, "A", "1");
    store.Set(Root::User, kKey, "A", "2");
    EXPECT_FALSE(store.Save());
    EXPECT_EQ(Store().Get(Root::User, kKey, "A"), "2");
    EXPECT_TRUE(store.Save()) << "what was refused is not tried again";
    EXPECT_EQ(FailureOf([&] { store.Get(Root::Machine, kKey, "A"); }), std::errc::is_a_directory);
}

TEST_F(SettingsFiles, ARefusedUsersFileIsAFailure) {
    std::filesystem::create_directories(PathOf(user_));
    FileSettingsStore store = Store();
    store.Set(Root::Machine, kKey, "A", "1");
    store.Set(Root::User, kKey, "A", "2");
    EXPECT_EQ(FailureOf([&] { store.Save(); }), std::errc::is_a_directory);
    EXPECT_EQ(Store().Get(Root::Machine, kKey, "A"), "1");
}

}  // namespace
}  // namespace calyx
