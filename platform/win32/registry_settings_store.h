#pragma once

#include <vector>

#include "platform/settings_store.h"

namespace calyx::win32 {

// Settings in the registry: Root::User is HKEY_CURRENT_USER, Root::Machine is HKEY_LOCAL_MACHINE, in
// the 64-bit view for 32-bit programs too. Values are texts (REG_SZ); one that is no UTF-8 or holds a
// NUL is stored as binary, so that every byte survives. A number that an administrator entered as
// REG_DWORD is read as its decimal text. Other kinds are no texts.
class RegistrySettingsStore final : public ISettingsStore {
  public:
    std::optional<std::string> Get(Root root, std::string_view keyPath, std::string_view name) override;
    void Set(Root root, std::string_view keyPath, std::string_view name, std::string_view value) override;
    void Refresh() override {}  // Get always asks the registry
    bool Save() override;

  private:
    struct Value {
        Root root;
        std::string keyPath, name, value;
    };
    std::vector<Value> planned_;
};

}  // namespace calyx::win32
