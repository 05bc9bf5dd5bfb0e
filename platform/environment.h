#pragma once

#include <functional>
#include <optional>
#include <string>

namespace calyx {

// Looks a variable of the environment up by its name; the text is UTF-8. Nothing when it is not set.
// Handed in, so that two programs in one process (two tests) can have two environments.
using Environment = std::function<std::optional<std::string>(const std::string& name)>;

// The environment of this process.
Environment SystemEnvironment();

}  // namespace calyx
