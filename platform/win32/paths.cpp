#include "platform/paths.h"

#include <windows.h>

#include "platform/win32/wide_text.h"

namespace calyx {

bool SamePath(std::string_view a, std::string_view b) {
    const std::wstring first = win32::Wide(a), second = win32::Wide(b);
    return CompareStringOrdinal(first.data(), static_cast<int>(first.size()), second.data(),
                                static_cast<int>(second.size()), TRUE) == CSTR_EQUAL;
}

}  // namespace calyx
