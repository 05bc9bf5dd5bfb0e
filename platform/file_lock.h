#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace calyx {

// A small file that one program at a time holds, with words in it that the others may read meanwhile. The
// system lets go of it however the program ends, so that what a crashed one leaves stands in nobody's way.
class FileLock {
  public:
    virtual ~FileLock() = default;  // lets go and takes the file away

    // Nothing: another holds it, in this program or another. Raises std::system_error where the file can be
    // neither made nor locked.
    static std::unique_ptr<FileLock> Take(const std::string& path, std::string_view words);
};

// The same text for the same file, however its path is spelled: made absolute, with links followed and, where
// the system does not tell large from small letters, all of one kind. Never fails.
std::string FileIdentity(const std::string& path);

std::uint32_t ProcessNumber();  // of this program, as the system counts

}  // namespace calyx
