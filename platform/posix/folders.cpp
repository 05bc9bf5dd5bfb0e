#include "platform/folders.h"

#include <pwd.h>
#include <unistd.h>

#include <filesystem>
#include <system_error>

#include "platform/paths.h"

namespace calyx {

namespace {

std::string Home(const Environment& environment) {
    std::string home = environment("HOME").value_or("");
    if (home.starts_with('/')) return home;
    const passwd* user = getpwuid(geteuid());
    return user && user->pw_dir && *user->pw_dir ? user->pw_dir : "/";
}

// A folder that a variable of the XDG base directories names; relative ones do not count.
std::string BaseFolder(const Environment& environment, const char* variable, const char* belowHome) {
    const std::string named = environment(variable).value_or("");
    return FolderText(named.starts_with('/') ? named : Home(environment) + belowHome);
}

std::string MachineFolder(const Environment& environment) {
    const std::string named = environment("XDG_CONFIG_DIRS").value_or("");
    const std::string first = named.substr(0, named.find(':'));
    return FolderText(first.starts_with('/') ? first : "/etc/xdg");
}

}  // namespace

namespace platform {

std::string ProgramFolder() {
    std::error_code failure;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", failure);
    return FolderText(failure ? "." : TextOf(program.parent_path()));
}

Folders StandardFolders(const Environment& environment) {
    Folders folders;
    folders.userData = BaseFolder(environment, "XDG_DATA_HOME", "/.local/share") + "calyx/";
    folders.settingsFile = BaseFolder(environment, "XDG_CONFIG_HOME", "/.config") + "calyx/settings.ini";
    folders.machineSettingsFile = MachineFolder(environment) + "calyx/settings.ini";
    return folders;
}

}  // namespace platform

}  // namespace calyx
