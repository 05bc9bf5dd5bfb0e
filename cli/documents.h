#pragma once

#include <memory>
#include <string>

#include "cli/options.h"
#include "cli/program.h"
#include "model/document/indicator.h"
#include "platform/file_lock.h"

namespace calyx::cli {

// Opening with or without the checks, as every command that opens files offers it.
struct Opening {
    bool skipChecks = false;

    void Declare(Options& options);
    // Raises what CIndicator::Load raises.
    CIndicator Open(Program& program, const std::string& file, ReadReport* report = nullptr) const;
    // For commands that save what they opened: says how many lines of the file will be lost by that.
    CIndicator OpenForChange(Program& program, const std::string& file) const;
};

// The turn to change a file: scripts that run side by side change it one after the other. Held from before
// the file is opened until it is saved.
std::unique_ptr<FileLock> TurnFor(Program& program, const std::string& file);

// Saves what was opened from `opened`. In its own place only if no other program has written there since:
// else 42600, 42601 or 42602, and what CIndicator::Save raises.
void SaveChanged(CIndicator& document, const std::string& opened, const std::string& target);

// The bytes of a file that is no configuration. 20001, 20003.
std::string ReadWhole(Program& program, const std::string& file);

// What cannot be looked at counts as none: writing it tells why.
bool IsFile(Program& program, const std::string& file);
// Refuses to write over a file, and tells what to do instead. Raises UsageError.
void NeedFree(Program& program, const std::string& file, std::string_view advice);
// Before a long operation whose result goes into the file: raises 20003 for a folder and 20002 where its
// folder is missing.
void NeedPlace(Program& program, const std::string& file);

// Where a parameter stands.
struct Place {
    const Section* section = nullptr;  // nothing: no section owns the key
    const Item* item = nullptr;        // nothing: the section owns the key but has no such line
    std::size_t row = 0;

    std::string Heading(const ModelContext& context) const;  // "General", "Scales, Scale 2"
};
Place FindPlace(const CIndicator& document, std::string_view key);

// The lines of the file body, or, where a target is named, those that a download to it may send.
struct Firmware {
    std::optional<std::string> prefix;
    bool cb2 = false;

    void Declare(Options& options);
    // Makes the target that of the whole program. Says so when the version is not a known one.
    void Apply(Program& program) const;
};

// Says that lines are left out when the program's target is no version that it knows.
void WarnUnknown(Program& program);

}  // namespace calyx::cli
