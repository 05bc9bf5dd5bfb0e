#include "ui/boxes/box_edits.h"

#include <algorithm>
#include <utility>

#include "ui/boxes/box_plan.h"
#include "ui/boxes/boxes_texts.h"
#include "ui/text.h"

namespace calyx::ui {

using namespace boxes_text;

const CJunctionBox& BoxEdits::Box() const {
    return std::as_const(session_).Document().JunctionBoxes().Box(port_);
}

bool BoxEdits::Edit(const std::string& step, const std::function<void(CJunctionBox& box)>& act) {
    CJunctionBox box = Box();
    const auto before = ReadLines(box.StoreState());
    act(box);
    const ChangeSet changes = Difference(before, ReadLines(box.StoreState()));
    if (changes.Empty()) return false;
    session_.Do(step, [&](CIndicator& document) { return document.Apply(changes); });
    return true;
}

std::string BoxEdits::NameOf(int platform) const {
    return Utf8(PlatformName(Box(), session_.Context().texts, platform));
}

void BoxEdits::Tell(int text, const QString& argument) {
    emit session_.Told(Say(session_.Context().texts, text, argument));
}

void BoxEdits::Assign(const std::set<int>& cells, int platform) {
    if (cells.empty()) return Tell(kChooseCell);
    for (const int cell : cells) {
        if (Box().LoadCellConnector(cell).empty()) return Tell(kHasNoConnector, QString::number(cell));
    }
    const ResourceTexts& texts = session_.Context().texts;
    const std::string name = NameOf(platform);
    const std::string step = cells.size() == 1 ? texts.Format(kCellTo, {std::to_string(*cells.begin()), name})
                                               : texts.Format(kCellsTo, {std::to_string(cells.size()), name});
    Edit(step, [&](CJunctionBox& box) {
        for (const int cell : cells) box.AssignLoadCellToPlatform(cell, platform);
    });
}

void BoxEdits::Unassign(const std::set<int>& cells) {
    if (cells.empty()) return Tell(kChooseCell);
    const ResourceTexts& texts = session_.Context().texts;
    const std::string step = cells.size() == 1 ? texts.Format(kCellOff, {std::to_string(*cells.begin())})
                                               : texts.Format(kCellsOff, {std::to_string(cells.size())});
    const bool changed = Edit(step, [&](CJunctionBox& box) {
        for (const int cell : cells) {
            for (int platform = 1; platform <= box.MaxPlatforms(); ++platform)
                box.UnassignLoadCellFromPlatform(cell, platform);
        }
    });
    if (!changed) Tell(kOnNoPlatform);
}

void BoxEdits::SetInSystem(int platform, bool used) {
    if (platform == 0) return Tell(kChoosePlatform);
    const std::string name = NameOf(platform);
    const bool changed = Edit(
        session_.Context().texts.Format(used ? kPlatformIn : kPlatformOut, {name}), [&](CJunctionBox& box) {
            used ? box.AssignPlatformToSystem(platform) : box.UnAssignPlatformFromSystem(platform);
        });
    if (!changed && !used) Tell(kPlatformIsOut, Shown(name));
}

}  // namespace calyx::ui
