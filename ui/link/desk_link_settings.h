#pragma once

#include "app/link_settings_store.h"

namespace calyx::ui {

// The link's settings in the desktop program, over TCP. Those of a simulated indicator lie over the
// user's and are not kept: its port is another one every time.
class DeskLinkSettings final : public ILinkSettingsStore {
  public:
    explicit DeskLinkSettings(ILinkSettingsStore& users) : users_(users) {}

    void Use(std::string host, std::uint16_t port, bool simulated) {
        host_ = std::move(host);
        port_ = port;
        simulated_ = simulated;
    }
    bool Simulated() const { return simulated_; }

    LinkSettings Load() override {
        LinkSettings settings = users_.Load();
        settings.method = comm_method::kTcp;
        if (!host_.empty()) {
            settings.host = host_;
            settings.tcpPort = port_;
        }
        return settings;
    }
    void Store(const LinkSettings& found) override {
        if (!simulated_) users_.Store(found);
    }

  private:
    ILinkSettingsStore& users_;
    std::string host_;  // empty: the user's
    std::uint16_t port_ = 0;
    bool simulated_ = false;
};

}  // namespace calyx::ui
