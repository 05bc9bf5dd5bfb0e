#include "platform/file_lock.h"

#include <windows.h>

#include <system_error>

#include "platform/paths.h"
#include "platform/win32/wide_text.h"

namespace calyx {

namespace {

class Held final : public FileLock {
  public:
    explicit Held(HANDLE file) : file_(file) {}
    ~Held() override { CloseHandle(file_); }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

  private:
    HANDLE file_;  // the system deletes the file with its last handle
};

std::wstring Large(std::wstring_view text) {
    const int size = static_cast<int>(text.size());
    std::wstring large(text.size(), L'\0');
    const int got = LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, text.data(), size, large.data(),
                                  size, nullptr, nullptr, 0);
    return got == size ? large : std::wstring(text);
}

// Empty when the system does not tell.
std::wstring FinalPath(const std::wstring& path) {
    const HANDLE file = CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                    nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE) return {};
    const DWORD room = GetFinalPathNameByHandleW(file, nullptr, 0, FILE_NAME_NORMALIZED);
    std::wstring whole(room, L'\0');
    const DWORD got = GetFinalPathNameByHandleW(file, whole.data(), room, FILE_NAME_NORMALIZED);
    CloseHandle(file);
    whole.resize(got < room ? got : 0);
    return whole;
}

}  // namespace

// Others may read the words, not write: opening to write is the lock.
std::unique_ptr<FileLock> FileLock::Take(const std::string& path, std::string_view words) {
    constexpr int kTries = 25;
    constexpr DWORD kPause = 20;  // ms
    const std::wstring wide = win32::WidePath(path);
    const auto open = [&] {
        return CreateFileW(wide.c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                           FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    };
    HANDLE file = open();
    for (int left = kTries; file == INVALID_HANDLE_VALUE; file = open()) {
        const DWORD error = GetLastError();
        if (error == ERROR_SHARING_VIOLATION) return nullptr;
        // So answers a file that is on its way out, while a virus scanner still looks at it.
        if (error != ERROR_ACCESS_DENIED || --left == 0) win32::Fail(error);
        Sleep(kPause);
    }
    auto lock = std::make_unique<Held>(file);
    DWORD written = 0;
    if (!WriteFile(file, words.data(), static_cast<DWORD>(words.size()), &written, nullptr))
        win32::Fail(GetLastError());
    return lock;
}

// Of a file that is not there its folder tells.
std::string FileIdentity(const std::string& path) {
    std::error_code failure;
    const auto whole = std::filesystem::absolute(PathOf(path), failure);
    if (failure) return path;
    std::wstring final = FinalPath(whole.wstring());
    if (final.empty()) {
        final = FinalPath(whole.parent_path().wstring());
        final = final.empty() ? whole.wstring() : final + L'\\' + whole.filename().wstring();
    }
    return win32::Narrow(Large(final));
}

std::uint32_t ProcessNumber() {
    return GetCurrentProcessId();
}

}  // namespace calyx
