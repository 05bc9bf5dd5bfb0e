#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "app/setting_rows.h"
#include "app/settings.h"
#include "model/language/error.h"
#include "model/language/resource_texts.h"

namespace calyx {

// The user's preferences (settings.h) and where they are kept: below the key
// "SOFTWARE\Calyx\Calyx\<program version>", so that another version of the program does not see them.
//
// Load never fails. A value that does not convert, or is no text, keeps its default and is recorded as error
// 20004; a store that cannot be read leaves all defaults and is recorded once.
//
// Several programs may run at once on one store: only what was changed here since Load is saved, and the
// recent files of all are kept.
class CAppSettings : public Settings {
  public:
    using Recorder = std::function<void(const Error& error)>;

    // The store and the texts outlive the settings. Everything has its default until Load.
    CAppSettings(ISettingsStore& store, const ResourceTexts& texts, std::string_view programVersion,
                 std::string userDataDir, Recorder recorder);

    void Load();
    // Raises kSettingsUnsaved when a changed setting cannot be stored: the store cannot be written, could
    // not be read, or the setting is machine-wide and the system does not let this user store it. What
    // can be stored is stored all the same.
    void Save();

    // The stored text of one setting, before and apart from Load; nothing when absent or not readable.
    std::optional<std::string> Stored(const SettingRow& row) const;

    // By row, for lists of all settings. Set returns false, and changes nothing, for a text that does
    // not convert.
    std::string Text(const SettingRow& row) const { return row.text(*this); }
    bool Set(const SettingRow& row, std::string_view text) { return row.take(*this, text); }

    // Both end with the platform's separator. One folder serves as both.
    const std::string& UserDataDir() const { return userDataDir_; }
    const std::string& UserAppDataDir() const { return userDataDir_; }

  private:
    std::string KeyPath(const SettingRow& row) const;
    void LoadRow(const SettingRow& row);
    void MergeRecentFiles();

    ISettingsStore& store_;
    const ResourceTexts& texts_;
    std::string key_;
    std::string userDataDir_;
    Recorder recorder_;
    Settings kept_;                      // as they are in the store
    std::array<std::string, 2> unread_;  // by root: why it could not be read; empty: it could
};

}  // namespace calyx
