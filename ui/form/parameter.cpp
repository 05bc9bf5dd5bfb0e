#include "ui/form/parameter.h"

#include <algorithm>
#include <set>

namespace calyx::ui::form {

namespace {

// Whether the item writes any line at present.
bool WritesLines(const Item& item) {
    bool any = false;
    item.EachLine([&](std::size_t, Gate, bool met) { any = any || met; });
    return any;
}

const Section* FindSection(const CIndicator& document, std::string_view name) {
    for (const Section* section : document.Sections()) {
        if (section->Name() == name) return section;
    }
    return nullptr;
}

}  // namespace

std::string Parameter::DefaultText() const {
    const auto scratch = item_->Clone();
    scratch->Take(row_, item_->InitialText(row_));
    return scratch->Text(row_);
}

SwitchWords Parameter::Words() const {
    const auto scratch = item_->Clone();
    const auto takes = [&](const std::string& word) { return scratch->Take(row_, word) == Taken::Whole; };
    for (const SwitchWords& words : {SwitchWords{}, SwitchWords{"True", "False"}}) {
        if (takes(words.on) && takes(words.off)) return words;
    }
    return {};
}

bool Parameter::IsPresent() const {
    if (Info().more.use != Use::Line || item_->IsWritten(row_)) return true;
    bool hasLine = false;
    item_->EachLine([&](std::size_t line, Gate, bool) { hasLine = hasLine || line == row_; });
    return hasLine && !WritesLines(*item_);
}

std::vector<std::size_t> Parameter::LineRows() const {
    if (Info().more.use == Use::Line) return {row_};
    std::set<std::size_t> rows;
    if (Info().more.use == Use::Page && List() != nullptr) {
        // Whatever changes with the choice.
        for (const auto& entry : *List()) {
            const auto scratch = item_->Clone();
            scratch->Take(row_, entry.key);
            for (std::size_t i = 0; i < item_->RowCount(); ++i) {
                if (item_->Info(i).more.use == Use::Line && scratch->Text(i) != item_->Text(i))
                    rows.insert(i);
            }
        }
    }
    return {rows.begin(), rows.end()};
}

std::vector<KeyValue> Parameter::Lines() const {
    std::vector<KeyValue> lines;
    for (const std::size_t row : LineRows()) lines.push_back({item_->Key(row), item_->Text(row)});
    return lines;
}

Gate Parameter::Versions() const {
    Gate gate{0};
    for (const std::size_t row : LineRows()) gate = gate | item_->GateOf(row);
    return gate;
}

std::vector<FirmwareEffect> Parameter::Firmware() const {
    std::vector<FirmwareEffect> effects;
    for (const auto version : kVersions) {
        const Target target{.version = VersionBit(version)};
        std::vector<KeyValue> lines;
        for (const std::size_t row : LineRows()) {
            bool sent = false;
            item_->EachLine([&](std::size_t line, Gate gate, bool met) {
                sent = sent || (line == row && met && target.Opens(gate));
            });
            if (sent) lines.push_back({item_->Key(row), item_->Text(row, target)});
        }
        const auto same =
            std::find_if(effects.begin(), effects.end(), [&](const auto& e) { return e.lines == lines; });
        if (same != effects.end()) {
            same->versions = same->versions | Gate{target.version};
        } else {
            effects.push_back({Gate{target.version}, std::move(lines)});
        }
    }
    if (effects.size() == 1) effects.front().versions = Gate{};
    return effects;
}

std::optional<Parameter> FindParameter(const CIndicator& document, std::string_view section,
                                       std::string_view key) {
    const Section* owner = FindSection(document, section);
    if (owner == nullptr) return std::nullopt;
    for (const Item* item : owner->Items()) {
        if (const auto row = item->Find(key)) return Parameter(*item, *row);
    }
    return std::nullopt;
}

std::vector<std::string> FormKeys(const CIndicator& document, const ItemRef& ref) {
    std::vector<std::string> keys;
    const Section* owner = FindSection(document, ref.section);
    if (owner == nullptr) return keys;
    for (const Item* item : owner->Items()) {
        if (item->Number() != ref.number || (ref.kind != 0 && item->Title() != ref.kind)) continue;
        for (std::size_t i = 0; i < item->RowCount(); ++i) {
            if (item->Info(i).more.group != 0) keys.push_back(item->Key(i));
        }
    }
    return keys;
}

}  // namespace calyx::ui::form
