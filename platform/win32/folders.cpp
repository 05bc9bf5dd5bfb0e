#include "platform/folders.h"

#include <windows.h>
// windows.h comes first: the others need it.
#include <knownfolders.h>
#include <shlobj.h>

#include "platform/paths.h"
#include "platform/win32/wide_text.h"

namespace calyx {

namespace platform {

std::string ProgramFolder() {
    std::wstring program(MAX_PATH, L'\0');
    while (true) {
        const DWORD size = GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
        if (size == 0) win32::Fail(GetLastError());
        if (size < program.size()) {
            program.resize(size);
            break;
        }
        program.resize(program.size() * 2);
    }
    return FolderText(TextOf(std::filesystem::path(program).parent_path()));
}

// The settings files stay empty: settings are in the registry.
Folders StandardFolders(const Environment& environment) {
    PWSTR known = nullptr;
    const HRESULT result = SHGetKnownFolderPath(FOLDERID_RoamingAppData, KF_FLAG_CREATE, nullptr, &known);
    const std::string data = SUCCEEDED(result) ? win32::Narrow(known) : environment("APPDATA").value_or(".");
    CoTaskMemFree(known);
    Folders folders;
    folders.userData = FolderText(data + "\\Calyx");
    return folders;
}

}  // namespace platform

}  // namespace calyx
