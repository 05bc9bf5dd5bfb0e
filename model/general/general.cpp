#include "model/general/general.h"

#include "model/prompts/optional_block.h"

namespace calyx {

CGeneral::CGeneral(const ModelContext& context)
    : Section(context),
      lists_(context),
      version_(kVersionTable, context),
      general_(kGeneralTable, context),
      keyLocks_(kKeyLockTable, context),
      softKeys_(kSoftKeyTable, context),
      industrialMode_(kIndustrialModeTable, context) {}

std::vector<Item*> CGeneral::Items() {
    return {&version_, &general_, &keyLocks_, &softKeys_, &industrialMode_};
}

void CGeneral::RestoreState(Dictionary& lines, ReadReport& report) {
    report.Enter(std::string(Name()));
    version_.Restore(lines, report);
    general_.Restore(lines, report);
    RestoreKeyLockCommands(lines, report);
    RestoreBlock(softKeys_, lines, report);
    RestoreBlock(industrialMode_, lines, report);
}

void CGeneral::AppendState(std::string& out) const {
    version_.Append(out, Target::Everything());
    AppendText(out, Target::Everything());
}

void CGeneral::AppendText(std::string& out, const Target& target) const {
    general_.Append(out, target);
    keyLocks_.Append(out, target);
    softKeys_.Append(out, target);
    industrialMode_.Append(out, target);
}

std::string CGeneral::BuildKeyLockCommands() const {
    RowItem<KeyLockFields> all = keyLocks_;
    all.fields.inFile = true;
    std::string lines;
    all.Append(lines, Target::Everything());
    return lines;
}

void CGeneral::RestoreKeyLockCommands(Dictionary& lines, ReadReport& report) {
    RestoreBlock(keyLocks_, lines, report);
}

void CGeneral::AddBrokenRules(CBrokenRules& rules) const {
    CheckSoftKeys(softKeys_.fields, Context(), Name(), rules);
}

}  // namespace calyx
