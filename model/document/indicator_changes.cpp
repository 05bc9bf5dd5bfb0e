// How changes get into the document: edits, imports, undo, what an indicator tells.

#include <algorithm>
#include <iterator>

#include "model/cards/card_types.h"
#include "model/document/indicator.h"
#include "model/language/text.h"

namespace calyx {

namespace {

constexpr int kUnknownParameter = 2906;  // {1} key

// Runs a change on a section and adds what it changed, parameter by parameter.
template <class Edit>
void Record(Section& section, ChangeSet& changes, Edit&& edit) {
    const auto before = section.State();
    edit();
    changes = changes.Then(Difference(before, section.State()));
}

}  // namespace

std::optional<std::string> CIndicator::ValueAfter(const std::vector<Change>& changes,
                                                  std::string_view key) const {
    for (const Change& change : changes) {
        if (change.after && EqualNoCase(change.key, key)) return change.after;
    }
    return Value(key);
}

CIndicator::Taken CIndicator::TakeChanges(const std::vector<Change>& changes, Section::Check check) {
    Taken taken;
    std::vector<bool> owned(changes.size(), false);
    const ValueOf valueOf = [&](std::string_view key) { return ValueAfter(changes, key); };
    for (Section* section : Sections()) {
        const auto gather = [&] {
            std::vector<Change> own;
            for (std::size_t i = 0; i < changes.size(); ++i) {
                if (owned[i] || !section->Owns(changes[i].key)) continue;
                owned[i] = true;
                own.push_back(changes[i]);
            }
            return own;
        };
        const auto take = [&](const std::vector<Change>& own) {
            auto refused = section->Take(own, check, valueOf);
            std::move(refused.begin(), refused.end(), std::back_inserter(taken.refused));
        };
        const auto own = gather();
        // Boxes come and go with the input types of the ports, which have been taken by now.
        const bool boxes =
            section == &sections_->junctionBoxes && BoxPorts(*sections_) != sections_->junctionBoxes.Ports();
        if (own.empty() && !boxes) continue;
        Record(*section, taken.changes, [&] {
            if (boxes) sections_->junctionBoxes.SetPorts(BoxPorts(*sections_));
            take(own);
            // A custom parameter's key is known once its name has been taken.
            if (const auto more = gather(); !more.empty()) take(more);
        });
    }
    for (std::size_t i = 0; i < changes.size(); ++i) {
        if (owned[i]) continue;
        taken.refused.push_back({changes[i].key, changes[i].after.value_or(""),
                                 context_->texts.Format(kUnknownParameter, {changes[i].key})});
    }
    indicatorVersion_ = sections_->general.Version();
    return taken;
}

CIndicator::Taken CIndicator::Import(const std::vector<KeyValue>& lines) {
    return As("Calyx.CIndicator.Import", [&] {
        NeedDocument("Import");
        std::vector<Change> changes;
        std::vector<Refusal> refused;
        for (const KeyValue& line : lines) {
            // A version that opening would reject.
            if (EqualNoCase(line.key, "VERSION") && !VersionIsAccepted(line.value)) {
                refused.push_back(
                    {line.key, line.value,
                     context_->texts.Format(code::kIndicatorRevision,
                                            {filename_, line.value, context_->programVersion})});
                continue;
            }
            changes.push_back({line.key, std::nullopt, line.value});
        }
        Taken taken = TakeChanges(changes, Section::Check::Strict);
        std::move(refused.begin(), refused.end(), std::back_inserter(taken.refused));
        return taken;
    });
}

CIndicator::Taken CIndicator::UpdateFromIndicator(std::string_view dump) {
    return As("Calyx.CIndicator.UpdateFromIndicator", [&] {
        NeedDocument("UpdateFromIndicator");
        std::vector<Change> changes;
        for (const KeyValue& line : ReadLines(dump)) changes.push_back({line.key, std::nullopt, line.value});
        return TakeChanges(changes, Section::Check::Lenient);
    });
}

CIndicator::Taken CIndicator::Apply(const ChangeSet& changes) {
    return As("Calyx.CIndicator.Apply", [&] {
        NeedDocument("Apply");
        return TakeChanges(changes.Changes(), Section::Check::None);
    });
}

CIndicator::Taken CIndicator::ChangeCard(int slot, std::int32_t code) {
    return As("Calyx.CIndicator.ChangeCard", [&] {
        NeedDocument("ChangeCard");
        const std::string slots = Hardware().HardwareWith(slot, code);
        std::vector<Change> changes{{"HARDWARE", std::nullopt, slots}};
        const auto append = [&](const std::vector<Change>& more) {
            changes.insert(changes.end(), more.begin(), more.end());
        };
        const bool fieldbus = card::IsFieldbus(code);
        if (!fieldbus && card::IsFieldbus(Hardware().CardType(slot))) append(FieldbusCards().Removing(slot));
        if (fieldbus && !FieldbusCards().Exists(slot)) append(FieldbusCards().Adding(slot));
        return TakeChanges(changes, Section::Check::Strict);
    });
}

}  // namespace calyx
