#pragma once

#include <optional>

#include "app/link_settings_store.h"

namespace calyx::ui {

// The link's settings in the desktop program: the user's, with the wire that was chosen for this connection
// over them. Those of a simulated indicator are not kept: its port is another one every time.
class DeskLinkSettings final : public ILinkSettingsStore {
  public:
    explicit DeskLinkSettings(LinkSettingsStore& users) : users_(users) {}

    void Use(const LinkSettings& wire, bool simulated) {
        wire_ = wire;
        simulated_ = simulated;
    }
    bool Simulated() const { return simulated_; }

    // Delay, log and identification are always the user's.
    LinkSettings Load() override {
        const LinkSettings users = users_.Load();
        LinkSettings settings = wire_.value_or(users);
        settings.delayMs = users.delayMs;
        settings.logging = users.logging;
        settings.searchText = users.searchText;
        return settings;
    }
    void Store(const LinkSettings& found) override {
        wire_ = found;
        if (!simulated_) users_.Store(found);
    }

  private:
    LinkSettingsStore& users_;
    std::optional<LinkSettings> wire_;  // nothing: the user's
    bool simulated_ = false;
};

}  // namespace calyx::ui
