#pragma once

#include <windows.h>
// Behind windows.h, which it needs.
#include <sddl.h>

#include <string>

namespace calyx::win32 {

// A key of the registry that refuses these rights to everybody, as an administrator may have set it, until
// the lock goes. The key is made if need be.
class RegistryLock {
  public:
    RegistryLock(HKEY root, const std::wstring& key, const wchar_t* rights) {
        if (RegCreateKeyExW(root, key.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_, nullptr) !=
            ERROR_SUCCESS)
            return;
        holds_ = Set(std::wstring(L"D:(D;;") + rights + L";;;WD)(A;;KA;;;WD)");
    }
    ~RegistryLock() {
        Set(L"D:(A;;KA;;;WD)");
        if (key_) RegCloseKey(key_);
    }
    RegistryLock(const RegistryLock&) = delete;
    RegistryLock& operator=(const RegistryLock&) = delete;

    bool Holds() const { return holds_; }

  private:
    bool Set(const std::wstring& accessList) {
        PSECURITY_DESCRIPTOR list = nullptr;
        if (!key_ || !ConvertStringSecurityDescriptorToSecurityDescriptorW(accessList.c_str(),
                                                                           SDDL_REVISION_1, &list, nullptr))
            return false;
        const LSTATUS status = RegSetKeySecurity(key_, DACL_SECURITY_INFORMATION, list);
        LocalFree(list);
        return status == ERROR_SUCCESS;
    }

    HKEY key_ = nullptr;
    bool holds_ = false;
};

inline constexpr const wchar_t* kNoReading = L"0x0001";  // KEY_QUERY_VALUE
inline constexpr const wchar_t* kNoWriting = L"0x0006";  // KEY_SET_VALUE, KEY_CREATE_SUB_KEY

}  // namespace calyx::win32
