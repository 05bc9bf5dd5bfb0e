#pragma once

#include <atomic>

namespace calyx {

// One a program, owned by it. Once set, every operation of the link ends at the next chance, as failed.
// Whoever starts the next operation clears it. May be set from a signal handler or another thread.
using CancelFlag = std::atomic<bool>;

}  // namespace calyx
