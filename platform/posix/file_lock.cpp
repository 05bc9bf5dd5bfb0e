#include "platform/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "platform/paths.h"

namespace calyx {

namespace {

[[noreturn]] void Fail(int error) {
    throw std::system_error(error, std::generic_category());
}

class Held final : public FileLock {
  public:
    Held(std::string path, int file) : path_(std::move(path)), file_(file) {}
    // Away while it is still held, so that nobody else's goes.
    ~Held() override {
        unlink(path_.c_str());
        close(file_);
    }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

    void Write(std::string_view words) const {
        const bool written = ftruncate(file_, 0) == 0 && pwrite(file_, words.data(), words.size(), 0) ==
                                                             static_cast<ssize_t>(words.size());
        if (!written) Fail(errno == 0 ? EIO : errno);
    }

  private:
    std::string path_;
    int file_;
};

}  // namespace

// Of flock's kind: unlike fcntl's it belongs to this opening of the file, not to the process.
std::unique_ptr<FileLock> FileLock::Take(const std::string& path, std::string_view words) {
    constexpr int kTries = 100;
    for (int i = 0; i < kTries; ++i) {
        const int file = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
        if (file < 0) Fail(errno);
        if (flock(file, LOCK_EX | LOCK_NB) < 0) {
            const int error = errno;
            close(file);
            if (error == EWOULDBLOCK) return nullptr;
            if (error != EINTR) Fail(error);
            continue;
        }
        struct stat held, there;
        const bool stands = fstat(file, &held) == 0 && stat(path.c_str(), &there) == 0 &&
                            held.st_ino == there.st_ino && held.st_dev == there.st_dev;
        if (!stands) {  // its last holder took it away between the two calls
            close(file);
            continue;
        }
        auto lock = std::make_unique<Held>(path, file);
        lock->Write(words);
        return lock;
    }
    Fail(EBUSY);
}

std::string FileIdentity(const std::string& path) {
    std::error_code failure;
    const std::filesystem::path whole = std::filesystem::weakly_canonical(PathOf(path), failure);
    return failure ? path : TextOf(whole);
}

std::uint32_t ProcessNumber() {
    return static_cast<std::uint32_t>(getpid());
}

}  // namespace calyx
