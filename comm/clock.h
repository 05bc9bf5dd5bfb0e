#pragma once

#include <chrono>
#include <cstdint>

namespace calyx {

// Time as the link sees it.
class IClock {
  public:
    virtual ~IClock() = default;
    virtual std::int64_t NowMs() = 0;  // counts up from anywhere
    // Called on every poll of a wait, some twenty milliseconds apart at most: the place where a window runs
    // its messages, so that Cancel stays live. It may ask the link to disconnect, but for nothing else.
    virtual void LetOthersRun() = 0;
};

class SteadyClock : public IClock {
  public:
    std::int64_t NowMs() override {
        using std::chrono::milliseconds;
        return std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now().time_since_epoch())
            .count();
    }
    void LetOthersRun() override {}  // the waits themselves rest in the transport
};

}  // namespace calyx
