#include "platform/folders.h"

#include <filesystem>
#include <system_error>

#include "platform/paths.h"

namespace calyx {

namespace {

std::string Redirect(const std::string& option, const Environment& environment, const char* variable) {
    return option.empty() ? environment(variable).value_or("") : option;
}

std::string ApplicationFolder() {
    const std::filesystem::path beside = PathOf(platform::ProgramFolder());
    const std::filesystem::path shared = beside / ".." / "share" / "calyx";
    std::error_code none;
    const bool isShared = !std::filesystem::exists(beside / "calyx.dat", none) &&
                          std::filesystem::exists(shared / "calyx.dat", none);
    return FolderText(TextOf(isShared ? shared.lexically_normal() : beside));
}

}  // namespace

Folders FindFolders(const FolderOptions& options, const Environment& environment) {
    const std::string user = Redirect(options.userDir, environment, "CALYX_USER_DIR");
    const std::string data = Redirect(options.dataDir, environment, "CALYX_DATA_DIR");
    Folders folders;
    if (user.empty()) {
        folders = platform::StandardFolders(environment);
    } else {
        folders.userData = FolderText(user);
        folders.settingsFile = folders.userData + "settings.ini";
        folders.machineSettingsFile = folders.userData + "machine-settings.ini";
    }
    folders.application = data.empty() ? ApplicationFolder() : FolderText(data);
    return folders;
}

}  // namespace calyx
