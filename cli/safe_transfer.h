#pragma once

#include <optional>
#include <string>

#include "cli/link.h"
#include "comm/safe_send.h"

namespace calyx::cli {

// The safe way to send, as download --changed and resume share it. Connected links only. Each prints what
// became of the lines and returns the exit code; raises 12801 for a run that was paused or did not complete,
// after printing.

int SendChanged(Program& program, Link& link, const CIndicator& document, const std::string& file,
                const DownloadOptions& options, const std::optional<std::string>& backup);

// The plain download: every line goes, whatever the indicator holds. Its position is kept as well; `backup`
// is the file with what was there, if there is one.
DownloadReport SendAll(Program& program, Link& link, const CIndicator& document, const std::string& file,
                       const DownloadOptions& options, const std::optional<std::string>& backup,
                       Progress& progress);

// Goes on with the run that was broken off, or puts back what was there before it.
enum class Rest { Send, PutBack };
int ResumeSend(Program& program, Link& link, Rest rest);

}  // namespace calyx::cli
