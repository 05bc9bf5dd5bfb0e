#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/app_settings.h"
#include "app/error_log.h"
#include "comm/cancel_flag.h"
#include "model/language/context.h"
#include "model/language/error.h"
#include "model/tickets/ticket_tokens.h"
#include "platform/file_store.h"
#include "platform/folders.h"
#include "platform/settings_store.h"

namespace calyx {

// Everything that a program shares: made by modStartup::Main, handed down by reference, outlives every
// document and link. Used on one thread but for the cancel flag.
class AppContext {
  public:
    AppContext(Folders where, ErrorLog::Clock clock);

    AppContext(const AppContext&) = delete;
    AppContext& operator=(const AppContext&) = delete;

    // Writes the error to the log and keeps it among the notices.
    void Record(const Error& error);

    const Folders folders;
    FileStore files;
    ModelContext model;
    TicketTokens ticketTokens;  // none when their file cannot be used
    const ErrorLog errorLog;
    const std::unique_ptr<ISettingsStore> settingsStore;
    CAppSettings settings;
    CancelFlag cancel{false};
    std::string helpFile;        // empty: none is installed
    std::vector<Error> notices;  // what went wrong without stopping the program, to be shown
};

}  // namespace calyx
