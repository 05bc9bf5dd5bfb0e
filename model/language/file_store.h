#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace calyx {

// Files as the document needs them. Paths are UTF-8. Failures are std::system_error whose message is
// the system's own ("No space left on device").
class IFileStore {
  public:
    enum class Found { Nothing, File, Folder };

    virtual ~IFileStore() = default;
    virtual Found Look(const std::string& path) const = 0;
    virtual std::string Read(const std::string& path) const = 0;
    // Puts the bytes in the place of the file, whole or not at all: a temporary file in the same
    // folder is written, flushed to disk and renamed over the target. Whatever fails, or kills the
    // program, the old file stays as it was. `lastLook` comes right before the renaming; what it raises
    // goes on to the caller, and the old file stays.
    using LastLook = std::function<void()>;
    virtual void Replace(const std::string& path, std::string_view bytes, const LastLook& lastLook) = 0;
    void Replace(const std::string& path, std::string_view bytes) { Replace(path, bytes, {}); }
    virtual void Remove(const std::string& path) = 0;  // a file that is not there is no failure
};

}  // namespace calyx
