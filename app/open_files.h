#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/file_lock.h"

namespace calyx {

// The turn to read and write a file, or to look at it and replace it: no two programs of one user have it at
// a time. Waits at most so long for another's turn to end. Nothing: it was not to be had; saving then only
// has its own last look, which two programs may take at the same moment.
std::unique_ptr<FileLock> TakeTurn(const std::string& userDataDir, const std::string& path,
                                   std::chrono::milliseconds most);

// Tells the running programs of one user of one another's open files, by locks in the user's folder: nothing
// is written beside the files themselves. Where that folder cannot be written every file counts as free.
//
// A program has one file at a time; opening that again is no conflict.
class OpenFiles {
  public:
    using Clock = std::function<std::chrono::system_clock::time_point()>;

    // Another program that has a file open.
    struct Holder {
        std::uint32_t process = 0;
        std::int64_t since = 0;  // seconds since 1970, UTC; 0: not known
    };
    // What came of asking for a file.
    struct Claim {
        std::string identity;
        std::unique_ptr<FileLock> lock;  // nothing: held already, another's, or it cannot be locked
        std::optional<Holder> other;
    };

    OpenFiles(std::string userDataDir, Clock clock)
        : folder_(std::move(userDataDir)), clock_(std::move(clock)) {}

    // What is held stays held; a claim that is not kept is given back.
    Claim Ask(const std::string& path) const;
    // The file of the claim takes the place of the one that was held.
    void Keep(Claim claim);
    void LetGo() { Keep({}); }
    // Whether another program had the file open that is open here, when it was last asked.
    bool IsShared() const { return kept_.other.has_value(); }
    // That program may have ended: then the file is held here.
    void AskAgain();

  private:
    Claim AskFor(std::string identity) const;
    std::string LockFile(const std::string& identity) const;
    Holder HolderOf(const std::string& lockFile) const;

    std::string folder_;  // ends with the platform's separator
    Clock clock_;
    Claim kept_;
};

}  // namespace calyx
