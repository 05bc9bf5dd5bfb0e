#include "app/context.h"

#include <utility>

#include "app/version.h"

namespace calyx {

AppContext::AppContext(Folders where, ErrorLog::Clock clock)
    : folders(std::move(where)),
      errorLog(folders.userData, std::move(clock)),
      settingsStore(OpenSettings(folders, files)),
      settings(*settingsStore, model.texts, ProgramVersion(), folders.userData,
               [this](const Error& error) { Record(error); }) {
    model.files = &files;
    model.programVersion = ProgramVersion();
}

void AppContext::Record(const Error& error) {
    errorLog.Write(error);
    notices.push_back(error);
}

}  // namespace calyx
