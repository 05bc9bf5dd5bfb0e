#include "app/app_settings.h"

#include <array>
#include <system_error>
#include <utility>

#include "app/error_codes.h"

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
      recorder_(std::move(recorder)) {}

std::string CAppSettings::KeyPath(const SettingRow& row) const {
    return key_ + std::string(row.subKey);
}

void CAppSettings::LoadRow(const SettingRow& row) {
    Set(row, row.standard);
    const auto stored = store_.Get(row.root, KeyPath(row), row.value);
    if (stored && !Set(row, *stored)) {
        recorder_(
            Error(code::kSetting, kLoad, texts_.Format(code::kSetting, {row.property, '"' + *stored + '"'})));
    }
}

void CAppSettings::Load() {
    std::array<bool, 2> unread{};
    ForEachRow([&](const SettingRow& row) {
        bool& failedBefore = unread[static_cast<std::size_t>(row.root)];
        try {
            LoadRow(row);
        } catch (const std::system_error& failure) {
            if (!std::exchange(failedBefore, true)) {
                recorder_(Error(code::kSettingsUnread, kLoad,
                                texts_.Format(code::kSettingsUnread, {failure.code().message()})));
            }
        }
    });
}

std::optional<std::string> CAppSettings::Stored(const SettingRow& row) const {
    try {
        return store_.Get(row.root, KeyPath(row), row.value);
    } catch (const std::system_error&) {
        return std::nullopt;  // Load reports it
    }
}

bool CAppSettings::Save() {
    bool machineWideChanged = false;
    ForEachRow([&](const SettingRow& row) {
        const std::string text = Text(row);
        if (row.root == ISettingsStore::Root::Machine) {
            machineWideChanged |= Stored(row).value_or(std::string(row.standard)) != text;
        }
        store_.Set(row.root, KeyPath(row), row.value, text);
    });
    try {
        return store_.Save() || !machineWideChanged;
    } catch (const std::system_error& failure) {
        throw Error(code::kSettingsUnsaved, kSave,
                    texts_.Format(code::kSettingsUnsaved, {failure.code().message()}));
    }
}

}  // namespace calyx
