// How changes get into the document: edits, imports, undo, what an indicator tells.

#include <algorithm>
#include <iterator>
#include <unordered_set>

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
        if (!change.after || !EqualNoCase(change.key, key)) continue;
        // A line that comes with the name that makes it a parameter is none before.
        const auto sections = Sections();
        const bool owned = std::any_of(sections.begin(), sections.end(),
                                       [key](const Section* section) { return section->Owns(key); });
        return owned ? change.after : std::nullopt;
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
        FollowFieldbusCards(changes, Section::Check::Strict);
        Taken taken = TakeChanges(changes, Section::Check::Strict);
        std::move(refused.begin(), refused.end(), std::back_inserter(taken.refused));
        return taken;
    });
}

std::vector<Refusal> CIndicator::NotKept(const std::vector<std::string>& keys) const {
    constexpr int kNotKept = 2922;  // {1} key, {2} what it reads as again
    NeedDocument("NotKept");
    CIndicator again(*context_);
    again.LoadText(FileText(), filename_);
    std::vector<Refusal> lost;
    for (const std::string& key : keys) {
        const auto now = Value(key), then = again.Value(key);
        // A place that waited for a line that was refused holds nothing that could be lost.
        if (!now || now == then || (now->empty() && !then)) continue;
        lost.push_back({key, *now, context_->texts.Format(kNotKept, {key, then.value_or("")})});
    }
    return lost;
}

CIndicator::Taken CIndicator::TakeLines(const std::vector<KeyValue>& lines) {
    std::vector<Change> changes;
    std::unordered_set<std::string> seen;
    for (const KeyValue& line : lines) {
        if (seen.insert(Upper(line.key)).second) changes.push_back({line.key, std::nullopt, line.value});
    }
    FollowFieldbusCards(changes, Section::Check::Lenient);
    return TakeChanges(changes, Section::Check::Lenient);
}

CIndicator::Taken CIndicator::Merge(const std::vector<KeyValue>& lines) {
    return As("Calyx.CIndicator.Merge", [&] {
        NeedDocument("Merge");
        return TakeLines(lines);
    });
}

CIndicator::Taken CIndicator::UpdateFromIndicator(std::string_view dump) {
    return As("Calyx.CIndicator.UpdateFromIndicator", [&] {
        NeedDocument("UpdateFromIndicator");
        return TakeLines(ReadLines(dump));
    });
}

CIndicator::Taken CIndicator::Apply(const ChangeSet& changes) {
    return As("Calyx.CIndicator.Apply", [&] {
        NeedDocument("Apply");
        return TakeChanges(changes.Changes(), Section::Check::None);
    });
}

// A fieldbus card comes and goes with its slot. Lines of it that the changes name themselves go before, and
// one that never had a slot stays: its lines are all that it has. The lines of a file or an indicator, where
// they tell of fieldbus cards, tell of all that come: files number them otherwise, too.
void CIndicator::FollowFieldbusCards(std::vector<Change>& changes, Section::Check check) const {
    const bool told = check == Section::Check::Lenient &&
                      std::any_of(changes.begin(), changes.end(),
                                  [&](const Change& change) { return FieldbusCards().Owns(change.key); });
    std::vector<Change> more;
    for (const Change& change : changes) {
        if (!EqualNoCase(change.key, "HARDWARE") || !change.after) continue;
        SlotFields wanted;
        const auto read = kSlotTable.rows[0].take(wanted, *change.after);
        const bool refused =
            read == calyx::Taken::Not || (read != calyx::Taken::Whole && check == Section::Check::Strict);
        if (refused) continue;
        for (int slot = 1; slot <= card::kSlots; ++slot) {
            const bool was = card::IsFieldbus(Hardware().CardType(slot));
            const bool is = card::IsFieldbus(wanted.codes[static_cast<std::size_t>(slot - 1)]);
            const bool exists = FieldbusCards().Exists(slot);
            const auto lines = is && !exists && !told ? FieldbusCards().Adding(slot)
                               : was && !is && exists ? FieldbusCards().Removing(slot)
                                                      : std::vector<Change>();
            more.insert(more.end(), lines.begin(), lines.end());
        }
    }
    std::erase_if(more, [&](const Change& line) {
        return std::any_of(changes.begin(), changes.end(),
                           [&](const Change& named) { return EqualNoCase(named.key, line.key); });
    });
    changes.insert(changes.end(), more.begin(), more.end());
}

CIndicator::Taken CIndicator::ChangeCard(int slot, std::int32_t code) {
    return As("Calyx.CIndicator.ChangeCard", [&] {
        NeedDocument("ChangeCard");
        if (code == card::kReserved) return Taken{};
        std::vector<Change> changes{{"HARDWARE", std::nullopt, Hardware().HardwareWith(slot, code)}};
        FollowFieldbusCards(changes, Section::Check::Strict);
        return TakeChanges(changes, Section::Check::Strict);
    });
}

}  // namespace calyx
