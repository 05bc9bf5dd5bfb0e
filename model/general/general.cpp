#include "model/general/general.h"

#include <array>

namespace calyx {

namespace {
constexpr std::array<std::string_view, 1> kSoftKeyKeys{"SOFTKEY"};
constexpr std::array<std::string_view, 1> kIndustrialKeys{"INDMODE."};
}  // namespace

CGeneral::CGeneral(const ModelContext& context)
    : Section(context),
      lists_(context),
      version_(kVersionTable, context),
      general_(kGeneralTable, context),
      keyLocks_(kKeyLockTable, context),
      softKeys_(kSoftKeyKeys),
      industrialMode_(kIndustrialKeys) {}

std::vector<Item*> CGeneral::Items() {
    return {&version_, &general_, &keyLocks_, &softKeys_, &industrialMode_};
}

void CGeneral::RestoreState(Dictionary& lines, ReadReport& report) {
    report.Enter(std::string(Name()));
    for (Item* item : Items()) {
        if (item != &keyLocks_) item->Restore(lines, report);
    }
    RestoreKeyLockCommands(lines, report);
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
    keyLocks_.fields.inFile = false;
    for (std::size_t i = 0; i < keyLocks_.RowCount(); ++i) {
        if (lines.Peek(keyLocks_.Key(i)) != nullptr) keyLocks_.fields.inFile = true;
    }
    keyLocks_.Restore(lines, report);
}

}  // namespace calyx
