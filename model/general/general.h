#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/general/general_fields.h"
#include "model/general/general_lists.h"
#include "model/language/section.h"
#include "model/prompts/industrial_mode.h"
#include "model/prompts/soft_keys.h"

namespace calyx {

// The general features, the locks of single keys, the soft keys and the industrial mode settings. The
// last three are written behind the general lines once they have content of their own: read from a
// file or edited.
class CGeneral : public Section {
  public:
    explicit CGeneral(const ModelContext& context);

    std::string_view Name() const override { return "general"; }
    int Title() const override { return 2100; }
    std::vector<Item*> Items() override;
    void RestoreState(Dictionary& lines, ReadReport& report) override;
    void AppendState(std::string& out) const override;  // with the line VERSION first, which is never sent
    void AppendText(std::string& out, const Target& target) const override;

    const GeneralFields& Values() const { return general_.fields; }
    const std::string& Version() const { return version_.fields.version; }
    void SetVersion(std::string version) { version_.fields.version = std::move(version); }
    const CGeneralLists& Lists() const { return lists_; }
    const CTextList& RegulatoryWordings() const { return lists_.RegWords(); }
    const CTextList& ImageModesList() const { return lists_.ImageModes(); }
    const SoftKeyFields& SoftKeys() const { return softKeys_.fields; }
    const IndustrialModeFields& IndustrialModeSettings() const { return industrialMode_.fields; }

    // One line a front-panel key, "KLOCK.KZERO=False" and so on.
    std::string BuildKeyLockCommands() const;
    void RestoreKeyLockCommands(Dictionary& lines, ReadReport& report);
    bool KeyLockState(std::size_t key) const { return keyLocks_.fields.locked.at(key); }  // 0 to 21

  protected:
    void AddBrokenRules(CBrokenRules& rules) const override;

  private:
    CGeneralLists lists_;
    RowItem<VersionFields> version_;
    RowItem<GeneralFields> general_;
    RowItem<KeyLockFields> keyLocks_;
    RowItem<SoftKeyFields> softKeys_;
    RowItem<IndustrialModeFields> industrialMode_;
};

}  // namespace calyx
