#include "platform/paths.h"

namespace calyx {

bool SamePath(std::string_view a, std::string_view b) {
    return a == b;
}

}  // namespace calyx
