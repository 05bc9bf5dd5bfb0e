#pragma once

#include <memory>
#include <string_view>

#include "sim/fault.h"

namespace calyx::sim {

// Makers of the faults, for the table in fault.cpp. They raise std::invalid_argument for an argument that
// is none. Keys are given as patterns: * any text, ? one character.

// At lines that come in: line_faults.cpp.
std::unique_ptr<Fault> MakeRefuse(std::string_view pattern);
std::unique_ptr<Fault> MakeForget(std::string_view pattern);
std::unique_ptr<Fault> MakeSilent(std::string_view lines);
std::unique_ptr<Fault> MakeOkEcho(std::string_view lines);
std::unique_ptr<Fault> MakeNotSetup(std::string_view);

// At answers that go out: reply_faults.cpp.
std::unique_ptr<Fault> MakeCorrupt(std::string_view pattern);
std::unique_ptr<Fault> MakeCut(std::string_view bytes);
std::unique_ptr<Fault> MakeDrop(std::string_view lines);
std::unique_ptr<Fault> MakeLate(std::string_view milliseconds);
std::unique_ptr<Fault> MakeSplit(std::string_view);
std::unique_ptr<Fault> MakeGarbage(std::string_view);
std::unique_ptr<Fault> MakeEcho(std::string_view);
std::unique_ptr<Fault> MakeAddress(std::string_view address);
std::unique_ptr<Fault> MakeStream(std::string_view milliseconds);

// A whole number from 1 to `most`; `what` names it in the message.
std::size_t ReadCount(std::string_view text, std::string_view what, std::size_t most = 1'000'000);

}  // namespace calyx::sim
