#include "app/app_settings.h"

#include <algorithm>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "app/error_codes.h"
#include "model/language/reason.h"

namespace calyx {

namespace {

constexpr auto kLoad = "Calyx.CAppSettings.Load";
constexpr auto kSave = "Calyx.CAppSettings.Save";

template <class Use>
void ForEachRow(Use&& use) {
    for (const auto rows : {ProductSettingRows(), FurtherSettingRows()}) {
        for (const SettingRow& row : rows) use(row);
    }
}

}  // namespace

CAppSettings::CAppSettings(ISettingsStore& store, const ResourceTexts& texts, std::string_view programVersion,
                           std::string userDataDir, Recorder recorder)
    : Settings(StandardSettings()),
      store_(store),
      texts_(texts),
      key_("SOFTWARE\\Calyx\\Calyx\\" + std::string(programVersion) + '\\'),
      userDataDir_(std::move(userDataDir)),
      recorder_(std::move(recorder)),
      kept_(*this) {}

std::string CAppSettings::KeyPath(const SettingRow& row) const {
    return key_ + std::string(row.subKey);
}

void CAppSettings::LoadRow(const SettingRow& row) {
    Set(row, row.standard);
    const auto record = [&](const std::string& what) {
        recorder_(Error(code::kSetting, kLoad, texts_.Format(code::kSetting, {row.property, what})));
    };
    try {
        const auto stored = store_.Get(row.root, KeyPath(row), row.value);
        if (stored && !Set(row, *stored)) record('"' + *stored + '"');
    } catch (const NoTextError& other) {
        record(other.what());
    }
}

void CAppSettings::Load() {
    unread_ = {};
    ForEachRow([&](const SettingRow& row) {
        std::string& unread = unread_[static_cast<std::size_t>(row.root)];
        try {
            LoadRow(row);
        } catch (const std::system_error& failure) {
            if (!unread.empty()) return;
            unread = Reason(failure);
            recorder_(Error(code::kSettingsUnread, kLoad, texts_.Format(code::kSettingsUnread, {unread})));
        }
    });
    kept_ = *this;
}

std::optional<std::string> CAppSettings::Stored(const SettingRow& row) const {
    try {
        return store_.Get(row.root, KeyPath(row), row.value);
    } catch (const std::runtime_error&) {
        return std::nullopt;  // Load reports it
    }
}

// What another program has added since Load stays; what was removed here stays removed.
void CAppSettings::MergeRecentFiles() {
    const SettingRow& row = *FindSettingRow("RecentFiles");
    Settings now;
    const auto stored = Stored(row);
    if (!stored || !row.take(now, *stored)) return;
    const auto holds = [](const std::vector<std::string>& files, const std::string& file) {
        return std::find(files.begin(), files.end(), file) != files.end();
    };
    for (const std::string& file : now.RecentFiles) {
        if (!holds(kept_.RecentFiles, file) && !holds(RecentFiles, file)) RecentFiles.push_back(file);
    }
    const auto most = static_cast<std::size_t>(std::max<std::int16_t>(MRUListEntries, 0));
    if (RecentFiles.size() > most) RecentFiles.resize(most);
}

void CAppSettings::Save() {
    store_.Refresh();
    if (RecentFiles != kept_.RecentFiles) MergeRecentFiles();
    std::string trouble;
    bool machineWideChanged = false;
    ForEachRow([&](const SettingRow& row) {
        const std::string text = Text(row);
        if (text == row.text(kept_)) return;
        // What could not be read must not be written over with defaults.
        if (const std::string& unread = unread_[static_cast<std::size_t>(row.root)]; !unread.empty()) {
            trouble = unread;
            return;
        }
        machineWideChanged |= row.root == ISettingsStore::Root::Machine;
        store_.Set(row.root, KeyPath(row), row.value, text);
    });
    try {
        if (!store_.Save() && machineWideChanged) trouble = texts_.Text(code::kMachineWide);
    } catch (const std::system_error& failure) {
        trouble = Reason(failure);
    }
    if (!trouble.empty())
        throw Error(code::kSettingsUnsaved, kSave, texts_.Format(code::kSettingsUnsaved, {trouble}));
    kept_ = *this;
}

}  // namespace calyx
