#pragma once

#include "app/app_settings.h"
#include "comm/link_settings.h"

namespace calyx {

// The link's settings as part of the user's. Neither operation fails: a connection does not end because
// a setting is odd or cannot be saved; the error is recorded.
class LinkSettingsStore final : public ILinkSettingsStore {
  public:
    // What is handed in outlives the store.
    LinkSettingsStore(CAppSettings& settings, const ResourceTexts& texts, CAppSettings::Recorder recorder)
        : settings_(settings), texts_(texts), recorder_(std::move(recorder)) {}

    // From the settings in memory. An address outside 1 to 255 is recorded and read as 1.
    LinkSettings Load() override;
    void Store(const LinkSettings& found) override;  // saves the settings as a whole
    // What a person has chosen for the next connection: what Store keeps, and method, bus address and whether
    // detection begins with the stored settings.
    void Keep(const LinkSettings& chosen);

  private:
    int Address() const;

    CAppSettings& settings_;
    const ResourceTexts& texts_;
    CAppSettings::Recorder recorder_;
};

}  // namespace calyx
