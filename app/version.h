#pragma once

#include <string>

namespace calyx {

// Major number, ".", minor number with two digits, ".", revision: "3.10.0", "3.05.12".
std::string VersionText(int major, int minor, int revision);

// The version of this program. It stands in the files that it writes and in the path of its settings.
std::string ProgramVersion();

}  // namespace calyx
