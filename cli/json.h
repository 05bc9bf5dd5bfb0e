#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace calyx::cli {

// Listings keep the order in which their fields were set.
using Json = nlohmann::ordered_json;

// Text of a configuration is 8-bit, JSON and HTML are UTF-8. What is UTF-8 already passes; anything
// else is read as the 8-bit text of the indicator's world (Windows-1252).
std::string Utf8(std::string_view bytes);

}  // namespace calyx::cli
