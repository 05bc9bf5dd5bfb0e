#pragma once

#include <memory>

#include "cli/command.h"

namespace calyx::cli {

std::unique_ptr<Command> MakeNew();
std::unique_ptr<Command> MakeCheck();
std::unique_ptr<Command> MakeText();
std::unique_ptr<Command> MakeGet();
std::unique_ptr<Command> MakeSet();
std::unique_ptr<Command> MakeDiff();
std::unique_ptr<Command> MakeMerge();
std::unique_ptr<Command> MakePrint();
std::unique_ptr<Command> MakeScrivo();
std::unique_ptr<Command> MakeLists();
std::unique_ptr<Command> MakeKeys();
std::unique_ptr<Command> MakeConnect();
std::unique_ptr<Command> MakeDownload();
std::unique_ptr<Command> MakeUpload();
std::unique_ptr<Command> MakeCompare();
std::unique_ptr<Command> MakeCalibrate();
std::unique_ptr<Command> MakeResume();
std::unique_ptr<Command> MakeSend();
std::unique_ptr<Command> MakeTerminal();
std::unique_ptr<Command> MakeSimulate();

}  // namespace calyx::cli
