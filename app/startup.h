#pragma once

#include <memory>
#include <string>

#include "app/context.h"

namespace calyx::modStartup {

struct Options {
    FolderOptions folders = {};
    std::string language = {};  // code of a texts file ("de"); empty: as the settings say
    Environment environment = SystemEnvironment();
    ErrorLog::Clock clock = std::chrono::system_clock::now;
};

// Prepares the working files in the user data folder, reads the texts, the list catalogue, the tokens of
// tickets and the settings. Raises code::kProgramFile, with the path in its words, when a file that the
// program cannot do without is missing or broken. Everything else that goes wrong is recorded in the context.
std::unique_ptr<AppContext> Main(const Options& options);

}  // namespace calyx::modStartup
