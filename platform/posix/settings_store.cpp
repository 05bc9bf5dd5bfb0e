#include "platform/settings_store.h"

#include "platform/file_settings_store.h"

namespace calyx {

std::unique_ptr<ISettingsStore> OpenSettings(const Folders& folders, IFileStore& files) {
    return std::make_unique<FileSettingsStore>(files, folders.settingsFile, folders.machineSettingsFile);
}

}  // namespace calyx
