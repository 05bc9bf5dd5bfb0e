#pragma once

#include <string>

#include "platform/environment.h"

namespace calyx {

// Where the program's files lie. Folder texts are absolute and end with the platform's separator, so
// that file names are appended directly. Nothing is created here; see MakeFolder.
struct Folders {
    std::string application;          // "calyx.dat", "texts", the master "streams.ini", the help file
    std::string userData;             // "errorlog.txt", the user's "streams.ini", logs
    std::string settingsFile;         // of the user; empty: the settings are in the registry
    std::string machineSettingsFile;  // machine-wide; empty likewise
};

// Redirects from the command line; an empty text is none.
struct FolderOptions {
    std::string userDir = {};  // takes user data and both settings files
    std::string dataDir = {};  // takes the place of the application folder
};

// A redirect counts first, then the variables CALYX_USER_DIR and CALYX_DATA_DIR, then the platform's
// own places. Without a redirect the application folder is the one beside the program that holds
// "calyx.dat", else "../share/calyx" as seen from there if that holds it, else the program's folder.
Folders FindFolders(const FolderOptions& options, const Environment& environment);

// What each platform says for itself.
namespace platform {
std::string ProgramFolder();                              // of the running program, links followed
Folders StandardFolders(const Environment& environment);  // all but the application folder
}  // namespace platform

}  // namespace calyx
