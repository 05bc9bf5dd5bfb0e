#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/link.h"
#include "cli/options.h"
#include "cli/progress.h"
#include "comm/comparison.h"

namespace calyx::cli {

// "--only base,setpoints": the groups of a download, as bits of download_option.
struct Groups {
    std::optional<std::string> only;

    void Declare(Options& options);
    // Raises UsageError for an unknown group and for calibration without base, which is never sent.
    unsigned Mask() const;
};

// What the connected indicator holds, as it says it. Raises 12801, with the words of what stands in the
// way; Interrupted.
std::string ReadDump(Program& program, Link& link, Progress& progress);
// The same as lines and as a document.
Held ReadIndicator(Program& program, Link& link, Progress& progress);

}  // namespace calyx::cli
