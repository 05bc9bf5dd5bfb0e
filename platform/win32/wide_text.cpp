#include "platform/win32/wide_text.h"

#include <windows.h>

#include <system_error>

namespace calyx::win32 {

namespace {

std::optional<std::wstring> Converted(std::string_view text, DWORD flags) {
    if (text.empty()) return std::wstring();
    const int bytes = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(CP_UTF8, flags, text.data(), bytes, nullptr, 0);
    if (size <= 0) return std::nullopt;
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, flags, text.data(), bytes, wide.data(), size);
    return wide;
}

}  // namespace

std::wstring Wide(std::string_view text) {
    return Converted(text, 0).value_or(std::wstring());
}

std::string Narrow(std::wstring_view text) {
    if (text.empty()) return {};
    const int units = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), units, narrow.data(), size, nullptr, nullptr);
    return narrow;
}

std::optional<std::wstring> ExactWide(std::string_view text) {
    if (text.find('\0') != std::string_view::npos) return std::nullopt;
    return Converted(text, MB_ERR_INVALID_CHARS);
}

std::wstring WidePath(const std::string& path) {
    // Leaves room for the short names that are made beside a file.
    constexpr std::size_t kLongestPlain = 200;
    auto wide = ExactWide(path);
    if (!wide) Fail(ERROR_INVALID_NAME);
    if (wide->size() <= kLongestPlain || wide->starts_with(L"\\\\?\\")) return *std::move(wide);
    std::wstring full(wide->size() + MAX_PATH, L'\0');
    const DWORD size = GetFullPathNameW(wide->c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    if (size == 0) Fail(GetLastError());
    if (size >= full.size()) Fail(ERROR_FILENAME_EXCED_RANGE);
    full.resize(size);
    if (full.starts_with(L"\\\\?\\")) return full;
    return full.starts_with(L"\\\\") ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

void Fail(unsigned long error) {
    throw std::system_error(static_cast<int>(error), std::system_category());
}

}  // namespace calyx::win32
