#include "platform/environment.h"

#include <cstdlib>

namespace calyx {

Environment SystemEnvironment() {
    return [](const std::string& name) -> std::optional<std::string> {
        const char* text = std::getenv(name.c_str());
        return text ? std::optional<std::string>(text) : std::nullopt;
    };
}

}  // namespace calyx
