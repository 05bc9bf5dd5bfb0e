#include "platform/environment.h"

#include <windows.h>

#include "platform/win32/wide_text.h"

namespace calyx {

Environment SystemEnvironment() {
    return [](const std::string& name) -> std::optional<std::string> {
        const std::wstring wide = win32::Wide(name);
        std::wstring text(256, L'\0');
        while (true) {
            SetLastError(ERROR_SUCCESS);
            const DWORD size =
                GetEnvironmentVariableW(wide.c_str(), text.data(), static_cast<DWORD>(text.size()));
            if (size == 0 && GetLastError() != ERROR_SUCCESS) return std::nullopt;
            const bool complete = size < text.size();
            text.resize(size);
            if (complete) return win32::Narrow(text);
        }
    };
}

}  // namespace calyx
