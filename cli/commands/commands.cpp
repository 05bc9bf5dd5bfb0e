#include "cli/commands/commands.h"

namespace calyx::cli {

std::vector<std::unique_ptr<Command>> AllCommands() {
    std::vector<std::unique_ptr<Command>> commands;
    for (const auto make :
         {MakeNew,     MakeCheck,     MakeText,   MakeGet,  MakeSet,      MakeDiff,     MakeMerge,
          MakePrint,   MakeScrivo,    MakeLists,  MakeKeys, MakeConnect,  MakeDownload, MakeUpload,
          MakeCompare, MakeCalibrate, MakeResume, MakeSend, MakeTerminal, MakeSimulate}) {
        commands.push_back(make());
    }
    return commands;
}

}  // namespace calyx::cli
