#pragma once

#include <array>
#include <vector>

#include "platform/settings_store.h"
#include "platform/settings_text.h"

namespace calyx {

// Settings in two files (settings_text.h), the user's and the machine-wide one. A file that is not
// there holds nothing. Save reads a file again before it replaces it, so that values which another
// running program has saved since stay.
class FileSettingsStore final : public ISettingsStore {
  public:
    FileSettingsStore(IFileStore& files, std::string userFile, std::string machineFile);

    std::optional<std::string> Get(Root root, std::string_view keyPath, std::string_view name) override;
    void Set(Root root, std::string_view keyPath, std::string_view name, std::string_view value) override;
    void Refresh() override;
    bool Save() override;

  private:
    struct Value {
        std::string keyPath, name, value;
    };
    struct Part {
        std::string file;
        std::vector<Value> planned;
        std::optional<SettingsText> text;  // as last read, with what is planned; read when first needed
    };

    Part& Of(Root root) { return parts_[root == Root::User ? 0 : 1]; }
    std::string FileText(const Part& part) const;
    void SavePart(Part& part);

    IFileStore& files_;
    std::array<Part, 2> parts_;
};

}  // namespace calyx
