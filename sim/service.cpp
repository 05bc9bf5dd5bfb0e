#include "sim/service.h"

#include <chrono>
#include <exception>

namespace calyx::sim {

namespace {

constexpr std::chrono::seconds kSaveAfter{1};  // from the first unsaved change

}  // namespace

void Service::Stop() {
    const std::lock_guard lock(stopping_);
    if (!thread_.joinable()) return;
    asio::post(io_, [this] { Close(); });
    thread_.join();
}

void Service::Run() {
    for (bool ended = false; !ended;) {
        try {
            io_.run();
            ended = true;
        } catch (const std::exception& failure) {
            Tell(std::string("the simulated indicator stops: ") + failure.what());
            Close();
        }
    }
    Save();
}

void Service::Close() {
    closing_ = true;
    CloseWire();
    save_.cancel();
}

void Service::SaveSoon() {
    if (savePending_ || !indicator_.StateUnsaved()) return;
    savePending_ = true;
    save_.expires_after(kSaveAfter);
    save_.async_wait([this](std::error_code error) {
        savePending_ = false;
        if (!error) Save();
    });
}

void Service::Save() {
    try {
        indicator_.SaveState();
    } catch (const std::exception& failure) {
        Tell(failure.what());
    }
}

}  // namespace calyx::sim
