#include <gtest/gtest.h>

#include <map>

#include "platform/folders.h"

namespace calyx {
namespace {

TEST(StandardFolders, FollowTheXdgVariables) {
    using Variables = std::map<std::string, std::string>;
    const struct {
        const char* what;
        Variables variables;
        const char *userData, *settings, *machine;
    } cases[] = {
        {"nothing but a home",
         {{"HOME", "/home/anna"}},
         "/home/anna/.local/share/calyx/",
         "/home/anna/.config/calyx/settings.ini",
         "/etc/xdg/calyx/settings.ini"},
        {"all named",
         {{"HOME", "/home/anna"},
          {"XDG_DATA_HOME", "/d/"},
          {"XDG_CONFIG_HOME", "/c"},
          {"XDG_CONFIG_DIRS", "/first:/second"}},
         "/d/calyx/",
         "/c/calyx/settings.ini",
         "/first/calyx/settings.ini"},
        {"empty and relative ones do not count",
         {{"HOME", "/h"}, {"XDG_DATA_HOME", ""}, {"XDG_CONFIG_HOME", "c"}, {"XDG_CONFIG_DIRS", ":/second"}},
         "/h/.local/share/calyx/",
         "/h/.config/calyx/settings.ini",
         "/etc/xdg/calyx/settings.ini"},
    };
    for (const auto& one : cases) {
        const Folders folders = FindFolders({}, [&](const std::string& name) -> std::optional<std::string> {
            const auto found = one.variables.find(name);
            return found == one.variables.end() ? std::nullopt : std::optional(found->second);
        });
        EXPECT_EQ(folders.userData, one.userData) << one.what;
        EXPECT_EQ(folders.settingsFile, one.settings) << one.what;
        EXPECT_EQ(folders.machineSettingsFile, one.machine) << one.what;
    }
}

}  // namespace
}  // namespace calyx
