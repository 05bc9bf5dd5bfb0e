#include "platform/file_store.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <random>
#include <system_error>

namespace calyx {

namespace {

[[noreturn]] void Fail(int error) {
    throw std::system_error(error, std::generic_category());
}

// A path with a NUL inside would silently name another file.
const char* Checked(const std::string& path) {
    if (path.find('\0') != std::string::npos) Fail(EINVAL);
    return path.c_str();
}

template <class Call>
auto Retried(Call&& call) {
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {
        if (number_ < 0) Fail(errno);
    }
    ~Descriptor() {
        if (number_ >= 0) close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Number() const { return number_; }
    // Network file systems report a failed write only here.
    void Close() {
        const int number = number_;
        number_ = -1;
        if (close(number) < 0 && errno != EINTR) Fail(errno);
    }

  private:
    int number_;
};

bool Status(const std::string& path, struct stat& status) {
    if (stat(Checked(path), &status) == 0) return true;
    if (errno != ENOENT && errno != ENOTDIR) Fail(errno);
    return false;
}

void WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = Retried([&] { return write(file, bytes.data(), bytes.size()); });
        if (written < 0) Fail(errno);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

// The file that a chain of symbolic links leads to, whether it exists or not.
std::string Resolved(std::string path) {
    constexpr int kMostLinks = 40;  // as the Linux kernel counts
    for (int links = 0; links < kMostLinks; ++links) {
        std::error_code noLink;
        const std::filesystem::path next = std::filesystem::read_symlink(path, noLink);
        if (noLink) return path;
        path = (std::filesystem::path(path).parent_path() / next).string();
    }
    Fail(ELOOP);
}

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

// A new file beside the target. It goes again unless it took the target's place. Its name is short
// and not made from the target's, which may have the longest name that the system allows.
class Temporary {
  public:
    Temporary(const std::string& folder, mode_t mode) : file_(Create(folder, mode)) {}
    ~Temporary() {
        if (!placed_) unlink(path_.c_str());
    }
    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;

    int Number() const { return file_.Number(); }
    void MoveTo(const std::string& target) {
        file_.Close();
        if (rename(path_.c_str(), target.c_str()) < 0) Fail(errno);
        placed_ = true;
    }

  private:
    int Create(const std::string& folder, mode_t mode) {
        constexpr int kTries = 100;
        std::random_device random;
        int file = -1;
        for (int i = 0; i < kTries && file < 0; ++i) {
            path_ = folder + ".calyx-" + std::to_string(random()) + ".tmp";
            file =
                Retried([&] { return open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode); });
            if (file < 0 && errno != EEXIST) Fail(errno);
        }
        return file;
    }

    std::string path_;
    Descriptor file_;
    bool placed_ = false;
};

// Owner and group are kept as far as the system lets this user; where the group cannot be kept, the
// new one gets no more than everybody.
void KeepPermissions(int file, const struct stat& old) {
    mode_t mode = old.st_mode & 0777;
    if (fchown(file, old.st_uid, old.st_gid) < 0 && fchown(file, static_cast<uid_t>(-1), old.st_gid) < 0) {
        mode = (mode & 0707) | ((mode & 0007) << 3);
    }
    if (fchmod(file, mode) < 0) Fail(errno);
}

// Makes the rename last. The new file stands whole by now, so a failure is not reported: after a loss
// of power there would be either the whole old file or the whole new one.
void FlushFolder(const std::string& folder) {
    const int number = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (number < 0) return;
    fsync(number);
    close(number);
}

// Streams that the caller of the program has set up; waiting for them is what is asked for.
bool IsGivenStream(std::string_view path) {
    return path == "/dev/stdin" || path.starts_with("/dev/fd/") || path.starts_with("/proc/self/fd/");
}

// Opens without waiting for the other end, which a pipe may never have.
int OpenToRead(const std::string& path) {
    const int wait = IsGivenStream(path) ? 0 : O_NONBLOCK;
    return Retried([&] { return open(Checked(path), O_RDONLY | O_CLOEXEC | O_NOCTTY | wait); });
}

void WriteStraight(const std::string& path, std::string_view bytes) {
    // A pipe that nobody reads is refused; one that is read may take its time.
    Descriptor file(
        Retried([&] { return open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK); }));
    if (fcntl(file.Number(), F_SETFL, 0) < 0) Fail(errno);
    WriteAll(file.Number(), bytes);
    file.Close();
}

}  // namespace

IFileStore::Found FileStore::Look(const std::string& path) const {
    struct stat status;
    if (!Status(path, status)) return Found::Nothing;
    return S_ISDIR(status.st_mode) ? Found::Folder : Found::File;
}

std::string FileStore::Read(const std::string& path) const {
    const Descriptor file(OpenToRead(path));
    struct stat status;
    if (fstat(file.Number(), &status) < 0) Fail(errno);
    if (S_ISDIR(status.st_mode)) Fail(EISDIR);
    if (S_ISFIFO(status.st_mode) && !IsGivenStream(path)) Fail(EOPNOTSUPP);
    // One byte more than the file has shows its end without a second growth; a pipe's size is 0.
    constexpr std::size_t kStep = 65536;
    std::size_t room = static_cast<std::size_t>(status.st_size) + 1;
    std::size_t used = 0;
    std::string bytes;
    while (true) {
        if (room > kLargestFile + 1) Fail(EFBIG);
        bytes.resize(room);
        const ssize_t got = Retried([&] { return read(file.Number(), &bytes[used], room - used); });
        if (got < 0) Fail(errno);
        if (got == 0) break;
        used += static_cast<std::size_t>(got);
        if (used == room) room += kStep;
    }
    bytes.resize(used);
    return bytes;
}

void FileStore::Replace(const std::string& path, std::string_view bytes, const LastLook& lastLook) {
    struct stat old;
    const bool exists = Status(path, old);
    if (exists && S_ISDIR(old.st_mode)) Fail(EISDIR);
    if (exists && !S_ISREG(old.st_mode)) return WriteStraight(path, bytes);
    const std::string target = Resolved(path);
    if (exists && faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) < 0) Fail(errno);

    // Before it has the old file's permissions nobody else may look into it.
    Temporary temporary(FolderOf(target), exists ? 0600 : 0666);
    WriteAll(temporary.Number(), bytes);
    if (exists) KeepPermissions(temporary.Number(), old);
    if (Retried([&] { return fsync(temporary.Number()); }) < 0) Fail(errno);
    if (lastLook) lastLook();
    temporary.MoveTo(target);
    FlushFolder(FolderOf(target));
}

void FileStore::Remove(const std::string& path) {
    if (unlink(Checked(path)) < 0 && errno != ENOENT && errno != ENOTDIR) Fail(errno);
}

}  // namespace calyx
