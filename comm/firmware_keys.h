#pragma once

#include <functional>
#include <string_view>

#include "model/document/indicator.h"

namespace calyx {

// A document that has an item of every kind, with a line of every parameter that this kind can have.
CIndicator FullDocument(const ModelContext& context);

// All versions in which the row's line may be written, whatever the other values of its item are.
Gate WidestGate(const Item& item, std::size_t row);

// The key with "n" for the number behind its last "#": "SC.GRADS#n".
std::string KeyPattern(const std::string& key);

// Which keys an indicator of the target's firmware knows, as the tables say it: for a simulated indicator
// that refuses all others. The function may be kept and copied; `context` outlives it.
std::function<bool(std::string_view key)> KeysKnownTo(const ModelContext& context, const Target& target);

}  // namespace calyx
