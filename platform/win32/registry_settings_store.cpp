#include "platform/win32/registry_settings_store.h"

#include <windows.h>

#include <cstring>
#include <utility>

#include "model/language/text.h"
#include "platform/win32/wide_text.h"

namespace calyx::win32 {

namespace {

class Key {
  public:
    Key() = default;
    ~Key() {
        if (key_) RegCloseKey(key_);
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;

    HKEY Handle() const { return key_; }
    HKEY* Place() { return &key_; }

  private:
    HKEY key_ = nullptr;
};

HKEY HandleOf(ISettingsStore::Root root) {
    return root == ISettingsStore::Root::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

std::string TextOfValue(DWORD type, const std::string& bytes) {
    if (type == REG_SZ || type == REG_EXPAND_SZ) {
        std::wstring wide(bytes.size() / sizeof(wchar_t), L'\0');
        std::memcpy(wide.data(), bytes.data(), wide.size() * sizeof(wchar_t));
        while (wide.ends_with(L'\0')) wide.pop_back();
        return Narrow(wide);
    }
    if (type == REG_DWORD && bytes.size() == sizeof(DWORD)) {
        DWORD number = 0;
        std::memcpy(&number, bytes.data(), sizeof number);
        return std::to_string(static_cast<LONG>(number));
    }
    if (type == REG_BINARY) return bytes;
    throw NoTextError("a value of the registry's kind " + std::to_string(type));
}

LSTATUS Write(ISettingsStore::Root root, const std::string& keyPath, const std::string& name,
              const std::string& value) {
    Key key;
    const LSTATUS opened = RegCreateKeyExW(HandleOf(root), Wide(keyPath).c_str(), 0, nullptr, 0,
                                           KEY_SET_VALUE | KEY_WOW64_64KEY, nullptr, key.Place(), nullptr);
    if (opened != ERROR_SUCCESS) return opened;
    const std::wstring wideName = Wide(name);
    if (const auto wide = ExactWide(value)) {
        // The text's own terminating NUL belongs to the stored value.
        return RegSetValueExW(key.Handle(), wideName.c_str(), 0, REG_SZ,
                              reinterpret_cast<const BYTE*>(wide->c_str()),
                              static_cast<DWORD>((wide->size() + 1) * sizeof(wchar_t)));
    }
    return RegSetValueExW(key.Handle(), wideName.c_str(), 0, REG_BINARY,
                          reinterpret_cast<const BYTE*>(value.data()), static_cast<DWORD>(value.size()));
}

}  // namespace

std::optional<std::string> RegistrySettingsStore::Get(Root root, std::string_view keyPath,
                                                      std::string_view name) {
    for (auto value = planned_.rbegin(); value != planned_.rend(); ++value) {
        if (value->root == root && EqualNoCase(value->keyPath, keyPath) && EqualNoCase(value->name, name)) {
            return value->value;
        }
    }
    Key key;
    LSTATUS status = RegOpenKeyExW(HandleOf(root), Wide(keyPath).c_str(), 0,
                                   KEY_QUERY_VALUE | KEY_WOW64_64KEY, key.Place());
    if (status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND) return std::nullopt;
    if (status != ERROR_SUCCESS) Fail(static_cast<unsigned long>(status));

    const std::wstring wideName = Wide(name);
    std::string bytes(256, '\0');
    DWORD type = REG_NONE;
    DWORD size = 0;
    do {
        if (size > bytes.size()) bytes.resize(size);
        size = static_cast<DWORD>(bytes.size());
        status = RegQueryValueExW(key.Handle(), wideName.c_str(), nullptr, &type,
                                  reinterpret_cast<BYTE*>(bytes.data()), &size);
    } while (status == ERROR_MORE_DATA);
    if (status == ERROR_FILE_NOT_FOUND) return std::nullopt;
    if (status != ERROR_SUCCESS) Fail(static_cast<unsigned long>(status));
    bytes.resize(size);
    return TextOfValue(type, bytes);
}

void RegistrySettingsStore::Set(Root root, std::string_view keyPath, std::string_view name,
                                std::string_view value) {
    planned_.push_back({root, std::string(keyPath), std::string(name), std::string(value)});
}

bool RegistrySettingsStore::Save() {
    LSTATUS user = ERROR_SUCCESS;
    bool machineWide = true;
    for (const Value& value : std::exchange(planned_, {})) {
        const LSTATUS status = Write(value.root, value.keyPath, value.name, value.value);
        if (status == ERROR_SUCCESS) continue;
        if (value.root == Root::Machine) {
            machineWide = false;
        } else if (user == ERROR_SUCCESS) {
            user = status;
        }
    }
    if (user != ERROR_SUCCESS) Fail(static_cast<unsigned long>(user));
    return machineWide;
}

}  // namespace calyx::win32
