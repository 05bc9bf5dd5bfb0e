#pragma once

#include <optional>
#include <string>
#include <string_view>

// Windows' own texts are UTF-16, the program's are UTF-8. Used by the files of this folder only.
namespace calyx::win32 {

std::wstring Wide(std::string_view text);    // what is no UTF-8 becomes U+FFFD
std::string Narrow(std::wstring_view text);  // likewise for lone surrogates

// Nothing when the text is no UTF-8 or holds a NUL, which ends Windows' texts.
std::optional<std::wstring> ExactWide(std::string_view text);

// A path for a call of the system, in the form that has no limit of 260 characters where it is long. Raises
// std::system_error for one that holds a NUL or is no UTF-8.
std::wstring WidePath(const std::string& path);

[[noreturn]] void Fail(unsigned long error);  // std::system_error with a code of GetLastError

}  // namespace calyx::win32
