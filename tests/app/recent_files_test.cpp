#include "app/recent_files.h"

#include <gtest/gtest.h>

#include "platform/file_settings_store.h"
#include "tests/platform/test_folder.h"

namespace calyx {
namespace {

using Names = std::vector<std::string>;

TEST(RecentFiles, AreNewestFirstAndNoneTwiceAndNoMoreThanAsked) {
    const TestFolder folder;
    FileStore files;
    FileSettingsStore store(files, folder.File("user.ini"), folder.File("machine.ini"));
    ResourceTexts texts;
    CAppSettings settings(store, texts, "3.10.0", folder.Text(), nullptr);
    CMRU recent(settings);
    for (const char* name : {"a", "b", "", "c", "a|%7C", "d", "b"}) recent.Add(name);
    EXPECT_EQ(recent.Files(), (Names{"b", "d", "a|%7C", "c"}));
    recent.Remove("d");
    settings.Save();

    CAppSettings later(store, texts, "3.10.0", folder.Text(), nullptr);
    later.Load();
    CMRU again(later);
    EXPECT_EQ(again.Files(), (Names{"b", "a|%7C", "c"}));
    later.MRUListEntries = 2;
    EXPECT_EQ(again.Files(), (Names{"b", "a|%7C"}));
    later.MRUListEntries = -1;
    EXPECT_EQ(again.Files(), Names{});
}

}  // namespace
}  // namespace calyx
