#pragma once

namespace calyx {

// Whether what this process writes to its standard output gets anywhere. On Windows a desktop program has
// none unless whoever started it gave it one.
bool HasStandardOutput();

}  // namespace calyx
