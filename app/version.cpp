#include "app/version.h"

namespace calyx {

std::string VersionText(int major, int minor, int revision) {
    const char* const filler = minor < 10 ? "0" : "";
    return std::to_string(major) + '.' + filler + std::to_string(minor) + '.' + std::to_string(revision);
}

std::string ProgramVersion() {
    return VersionText(CALYX_VERSION_MAJOR, CALYX_VERSION_MINOR, CALYX_VERSION_REVISION);
}

}  // namespace calyx
