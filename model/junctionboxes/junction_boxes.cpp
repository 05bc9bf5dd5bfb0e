#include "model/junctionboxes/junction_boxes.h"

#include <iterator>

#include "model/junctionboxes/vexal_ports.h"

namespace calyx {

namespace {

constexpr int kPortsWithBoxes = 8413;

// The port of a key of ours, 0 for none.
int PortOf(std::string_view key) {
    const std::size_t mark = key.rfind('#');
    if (mark == std::string_view::npos || !StartsNoCase(key, kBoxTable.prefix)) return 0;
    const auto port = ReadInteger(key.substr(mark + 1));
    if (!port || !port->whole || port->value < 1 || port->value > 32) return 0;
    // Exactly as it is written: no sign, no leading zero.
    if (key.substr(mark + 1) != std::to_string(port->value)) return 0;
    const std::string_view stem = key.substr(kBoxTable.prefix.size(), mark - kBoxTable.prefix.size());
    for (const auto& row : kBoxTable.rows) {
        if (EqualNoCase(row.stem, stem)) return port->value;
    }
    return 0;
}

}  // namespace

std::vector<Item*> CJunctionBoxes::Items() {
    std::vector<Item*> items;
    for (const int port : ports_) items.push_back(&boxes_.at(port).Parameters());
    return items;
}

void CJunctionBoxes::Initialize() {
    boxes_.clear();
    ports_.clear();
    saved_.clear();
}

void CJunctionBoxes::RestoreState(Dictionary& lines, ReadReport& report) {
    RestoreState(lines, report, VexalPorts(lines));
}

void CJunctionBoxes::RestoreState(Dictionary& lines, ReadReport& report, const std::vector<int>& ports) {
    Initialize();
    SetPorts(ports);
    Section::RestoreState(lines, report);
    MarkSaved();
}

bool CJunctionBoxes::Owns(std::string_view key) const {
    return PortOf(key) != 0;
}

bool CJunctionBoxes::IsDirty() const {
    return ports_ != saved_ || Section::IsDirty();
}

void CJunctionBoxes::MarkSaved() {
    std::erase_if(boxes_, [&](const auto& box) { return !Exists(box.first); });
    saved_ = ports_;
    Section::MarkSaved();
}

void CJunctionBoxes::SetPorts(const std::vector<int>& ports) {
    const std::set<int> wanted(ports.begin(), ports.end());
    for (const int port : wanted) {
        if (!Exists(port)) Add(port);
    }
    ports_ = wanted;
}

void CJunctionBoxes::Add(int port) {
    const auto [place, isNew] = boxes_.try_emplace(port, Context());
    CJunctionBox& box = place->second;
    if (!isNew) {
        box.ReloadDefaults();
    } else if (boxes_.size() == 1) {
        box.Initialize(port);
    } else {
        box.Initialize(port, (place == boxes_.begin() ? std::next(place) : boxes_.begin())->second);
    }
    ports_.insert(port);
}

void CJunctionBoxes::Prepare(std::vector<Change>& changes, Check, const ValueOf& valueOf) {
    if (!valueOf) return;
    std::set<int> concerned;
    for (const Change& change : changes) concerned.insert(PortOf(change.key));
    concerned.erase(0);
    for (const int port : concerned) {
        const bool linked = IsVexal(valueOf("EDP.INPUT#" + std::to_string(port)).value_or(""));
        if (linked && !Exists(port)) Add(port);
        if (!linked) ports_.erase(port);
    }
}

void CJunctionBoxes::AddBrokenRules(CBrokenRules& rules) const {
    for (const int port : ports_) boxes_.at(port).AddBrokenRules(rules, Name());
}

void CJunctionBoxes::Need(int port) const {
    if (Exists(port)) return;
    throw Error(code::kOutOfRange, "Calyx.CJunctionBoxes.Item",
                Context().texts.Format(code::kOutOfRange,
                                       {std::to_string(port), Context().texts.Text(kPortsWithBoxes)}));
}

const CJunctionBox& CJunctionBoxes::Box(int port) const {
    Need(port);
    return boxes_.at(port);
}
CJunctionBox& CJunctionBoxes::Box(int port) {
    Need(port);
    return boxes_.at(port);
}

}  // namespace calyx
