#include "platform/folders.h"

#include <gtest/gtest.h>

#include <map>

#include "tests/platform/test_folder.h"

namespace calyx {
namespace {

TEST(Redirects, AnOptionCountsBeforeTheEnvironment) {
    const TestFolder option, variable;
    const Environment environment = [&](const std::string& name) -> std::optional<std::string> {
        return name == "CALYX_USER_DIR" || name == "CALYX_DATA_DIR" ? std::optional(variable.Text())
                                                                    : std::nullopt;
    };
    Folders folders = FindFolders({}, environment);
    EXPECT_EQ(folders.userData, variable.Text());
    EXPECT_EQ(folders.application, variable.Text());

    folders = FindFolders({.userDir = option.Text(), .dataDir = option.Text()}, environment);
    EXPECT_EQ(folders.userData, option.Text());
    EXPECT_EQ(folders.application, option.Text());
    // A redirected program must not touch anybody's settings.
    EXPECT_EQ(folders.settingsFile, option.File("settings.ini"));
    EXPECT_EQ(folders.machineSettingsFile, option.File("machine-settings.ini"));
}

TEST(Redirects, FoldersAreAbsoluteAndTakeAFileNameDirectly) {
    const TestFolder folder;
    const std::string text = folder.Text();
    EXPECT_EQ(FolderText(text), text);
    EXPECT_EQ(FolderText(text.substr(0, text.size() - 1)), text);
    EXPECT_TRUE(PathOf(FolderText("below")).is_absolute());
    EXPECT_EQ(PathOf(FolderText("below") + "file").filename(), "file");
}

}  // namespace
}  // namespace calyx
