#pragma once

#include "model/language/file_store.h"

namespace calyx {

// The files of this computer. Every failure is a std::system_error whose what() is the system's own
// message; paths are UTF-8 (on systems where names are bytes, any bytes but NUL).
//
// Replace keeps the permissions of the file that it replaces, and a symbolic link stays a link: the
// file it leads to is replaced. A file without permission to write is refused although the rename
// would succeed. Hard links to the old file keep the old content; access lists beyond the plain
// permissions are kept on Windows only. What is no regular file (a device, a pipe) holds nothing that
// could be lost and is written straight; on Windows it is refused.
//
// A program killed inside Replace may leave a file ".calyx-*.tmp" behind; it can be deleted.
//
// A file dialog or a recent file must not hang the program: Read refuses named pipes, and devices that have
// nothing to give at once; the streams of the program's caller (/dev/stdin, /dev/fd/3) are waited for. On
// Windows it refuses all that is no file on a disk, and all that the system takes for a device by its name
// (NUL, COM5, on older systems also C:\folder\COM5.mrn).
// It takes at most 256 MB, thousands of times the size of a configuration, and refuses more as too
// large, so that an endless device does not fill the memory.
class FileStore final : public IFileStore {
  public:
    Found Look(const std::string& path) const override;
    std::string Read(const std::string& path) const override;
    using IFileStore::Replace;
    void Replace(const std::string& path, std::string_view bytes, const LastLook& lastLook) override;
    void Remove(const std::string& path) override;
};

inline constexpr std::size_t kLargestFile = std::size_t{256} << 20;  // bytes

}  // namespace calyx
