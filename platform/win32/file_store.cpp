#include "platform/file_store.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <random>
#include <system_error>

#include "platform/win32/wide_text.h"

namespace calyx {

namespace {

using win32::Fail;
using win32::WidePath;

constexpr DWORD kStep = 1u << 20;  // bytes a call

class Handle {
  public:
    explicit Handle(HANDLE handle) : handle_(handle) {
        if (handle_ == INVALID_HANDLE_VALUE) Fail(GetLastError());
    }
    ~Handle() { Close(); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    HANDLE Get() const { return handle_; }
    void Close() {
        if (handle_ != INVALID_HANDLE_VALUE) CloseHandle(handle_);
        handle_ = INVALID_HANDLE_VALUE;
    }

  private:
    HANDLE handle_;
};

// INVALID_FILE_ATTRIBUTES when nothing has that name.
DWORD Attributes(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    const DWORD error = attributes == INVALID_FILE_ATTRIBUTES ? GetLastError() : ERROR_SUCCESS;
    if (error != ERROR_SUCCESS && error != ERROR_FILE_NOT_FOUND && error != ERROR_PATH_NOT_FOUND) Fail(error);
    return attributes;
}

bool IsFolder(DWORD attributes) {
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// Goes by the name alone, because opening a port would switch its lines.
void RefuseDevice(const std::wstring& path) {
    std::array<wchar_t, MAX_PATH> full{};  // a device's is short
    const DWORD size = GetFullPathNameW(path.c_str(), MAX_PATH, full.data(), nullptr);
    if (size < MAX_PATH && std::wstring_view(full.data(), size).starts_with(L"\\\\.\\"))
        Fail(ERROR_NOT_SUPPORTED);
}

[[noreturn]] void FailAsFolder() {
    throw std::system_error(std::make_error_code(std::errc::is_a_directory));
}

void WriteAll(HANDLE file, std::string_view bytes) {
    while (!bytes.empty()) {
        DWORD written = 0;
        const DWORD size = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), kStep));
        if (!WriteFile(file, bytes.data(), size, &written, nullptr)) Fail(GetLastError());
        bytes.remove_prefix(written);
    }
}

// The file behind a symbolic link.
std::wstring Resolved(const std::wstring& path) {
    const Handle file(CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                  nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    std::wstring real(MAX_PATH, L'\0');
    while (true) {
        const DWORD size = GetFinalPathNameByHandleW(file.Get(), real.data(), static_cast<DWORD>(real.size()),
                                                     FILE_NAME_NORMALIZED | VOLUME_NAME_DOS);
        if (size == 0) Fail(GetLastError());
        const bool complete = size < real.size();
        real.resize(size);
        if (complete) return real;
    }
}

std::wstring FolderOf(const std::wstring& path) {
    const std::size_t slash = path.find_last_of(L"\\/:");
    return slash == std::wstring::npos ? std::wstring() : path.substr(0, slash + 1);
}

// A new file beside the target. It goes again unless it took the target's place.
class Temporary {
  public:
    explicit Temporary(const std::wstring& folder) : file_(Create(folder)) {}
    ~Temporary() {
        file_.Close();
        if (!placed_) DeleteFileW(path_.c_str());
    }
    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;

    HANDLE Get() const { return file_.Get(); }

    // The access list is copied so that a shared file stays shared; a file system without such lists
    // refuses, which is no failure.
    void KeepPermissions(const std::wstring& target, DWORD attributes) {
        DWORD size = 0;
        GetFileSecurityW(target.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
        std::string list(size, '\0');
        if (size > 0 &&
            GetFileSecurityW(target.c_str(), DACL_SECURITY_INFORMATION, list.data(), size, &size)) {
            SetFileSecurityW(path_.c_str(), DACL_SECURITY_INFORMATION, list.data());
        }
        SetFileAttributesW(path_.c_str(), attributes);
    }

    // Not ReplaceFile: when that fails half-way it may leave no file under the target's name.
    // Virus scanners and indexers hold a fresh file open for a moment, hence the few tries.
    void MoveTo(const std::wstring& target) {
        file_.Close();
        constexpr int kTries = 10;
        constexpr DWORD kPause = 20;  // ms
        for (int left = kTries; !MoveFileExW(path_.c_str(), target.c_str(),
                                             MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);) {
            const DWORD error = GetLastError();
            const bool passing = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
            if (!passing || --left == 0) Fail(error);
            Sleep(kPause);
        }
        placed_ = true;
    }

  private:
    HANDLE Create(const std::wstring& folder) {
        constexpr int kTries = 100;
        std::random_device random;
        HANDLE file = INVALID_HANDLE_VALUE;
        for (int i = 0; i < kTries && file == INVALID_HANDLE_VALUE; ++i) {
            path_ = folder + L".calyx-" + std::to_wstring(random()) + L".tmp";
            file = CreateFileW(path_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL,
                               nullptr);
            if (file == INVALID_HANDLE_VALUE && GetLastError() != ERROR_FILE_EXISTS) break;
        }
        return file;
    }

    std::wstring path_;
    Handle file_;
    bool placed_ = false;
};

}  // namespace

IFileStore::Found FileStore::Look(const std::string& path) const {
    const DWORD attributes = Attributes(WidePath(path));
    if (attributes == INVALID_FILE_ATTRIBUTES) return Found::Nothing;
    return IsFolder(attributes) ? Found::Folder : Found::File;
}

std::string FileStore::Read(const std::string& path) const {
    const std::wstring wide = WidePath(path);
    RefuseDevice(wide);
    if (IsFolder(Attributes(wide))) FailAsFolder();
    const Handle file(CreateFileW(wide.c_str(), GENERIC_READ,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    // Not every name tells: \\server\pipe\name.
    if (GetFileType(file.Get()) != FILE_TYPE_DISK) Fail(ERROR_NOT_SUPPORTED);
    std::string bytes;
    std::size_t used = 0;
    while (true) {
        if (used > kLargestFile) Fail(ERROR_FILE_TOO_LARGE);
        bytes.resize(used + kStep);
        DWORD got = 0;
        if (!ReadFile(file.Get(), &bytes[used], kStep, &got, nullptr)) Fail(GetLastError());
        if (got == 0) break;
        used += got;
    }
    bytes.resize(used);
    return bytes;
}

void FileStore::Replace(const std::string& path, std::string_view bytes, const LastLook& lastLook) {
    std::wstring target = WidePath(path);
    RefuseDevice(target);
    const DWORD attributes = Attributes(target);
    const bool exists = attributes != INVALID_FILE_ATTRIBUTES;
    if (IsFolder(attributes)) FailAsFolder();
    if (exists && (attributes & FILE_ATTRIBUTE_READONLY) != 0) Fail(ERROR_ACCESS_DENIED);
    if (exists && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) target = Resolved(target);

    Temporary temporary(FolderOf(target));
    WriteAll(temporary.Get(), bytes);
    if (!FlushFileBuffers(temporary.Get())) Fail(GetLastError());
    if (exists)
        temporary.KeepPermissions(target, attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_REPARSE_POINT));
    if (lastLook) lastLook();
    temporary.MoveTo(target);
}

void FileStore::Remove(const std::string& path) {
    if (DeleteFileW(WidePath(path).c_str())) return;
    const DWORD error = GetLastError();
    if (error != ERROR_FILE_NOT_FOUND && error != ERROR_PATH_NOT_FOUND) Fail(error);
}

}  // namespace calyx
