#include "comm/send_plan.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "comm/download.h"
#include "comm/link_texts.h"
#include "model/language/text.h"

namespace calyx {

namespace {

using namespace download_option;
using Fate = PlannedLine::Fate;

std::string KeyOf(std::string_view line) {
    return std::string(line.substr(0, line.find('=')));
}

bool IsParameter(std::string_view line) {
    return line.find('=') != std::string_view::npos;
}

template <class Take>
void EachLine(const std::vector<DownloadStep>& steps, Take&& take) {
    for (std::size_t step = 0; step < steps.size(); ++step) {
        ForEachLine(steps[step].lines, [&](std::string_view line) {
            if (!Trim(line).empty()) take(step, line);
        });
    }
}

// The versions that have a line of the key; nothing for a key that no row has.
std::optional<Gate> GateOf(const CIndicator& document, std::string_view key) {
    for (const Section* section : document.Sections()) {
        if (!section->Owns(key)) continue;
        for (const Item* item : section->Items()) {
            const auto row = item->Find(key);
            if (row && item->Info(*row).more.use != Use::Page) return item->GateOf(*row);
        }
    }
    return std::nullopt;
}

int GroupText(unsigned group) {
    if (group == chkCalibration) return link_text::kNoCalibration;
    if (group == chkSetpoints) return link_text::kNoSetpoints;
    if (group == chkWidgets) return link_text::kNoWidgets;
    return group == chkSchemas ? link_text::kNoSchemas : link_text::kNoBase;
}

bool IsOfChange(const DownloadStep& step, const std::string& key) {
    return !step.clears.empty() && StartsNoCase(key, step.clears);
}

}  // namespace

std::string PlaceOf(const CIndicator& document, std::string_view key) {
    for (const Section* section : document.Sections()) {
        if (!section->Owns(key)) continue;
        std::string place = document.Context().texts.Text(section->Title());
        for (const Item* item : section->Items()) {
            if (!item->Find(key)) continue;
            const std::string title = section->ItemTitle(*item);
            return title.empty() ? place : place + ", " + title;
        }
        return place;
    }
    return {};
}

SendPlan::SendPlan(const CIndicator& document, const Held& held, const DownloadOptions& options,
                   const Target& target)
    : texts_(&document.Context().texts), steps_(PlanDownload(document, options, target)) {
    const ChangeSet changes = AgainstIndicator(document, held, options.mask, target);
    AddChosen(changes);
    AddUnknown(document, options, target);
    AddNotChosen(document, held, options.mask, target);
    AddOnlyThere(changes);
    for (PlannedLine& line : lines_) {
        if (line.key.empty() || line.fate == Fate::Same) continue;
        line.place = PlaceOf(document, line.key);
        if (line.place.empty()) line.place = PlaceOf(held.document, line.key);
        if (const std::string* text = held.Find(line.key)) line.held = *text;
    }
}

void SendPlan::AddChosen(const ChangeSet& changes) {
    std::unordered_set<std::string> differ;
    std::unordered_set<std::size_t> whole;  // steps of which nothing can be left out
    for (const Change& change : changes.Changes()) {
        differ.insert(Upper(change.key));
        for (std::size_t i = 0; i < steps_.size(); ++i) {
            if (IsOfChange(steps_[i], change.key)) whole.insert(i);
        }
    }
    bool boxes = false;
    EachLine(steps_, [&](std::size_t step, std::string_view line) {
        PlannedLine planned{.line = std::string(line), .step = step};
        const bool parameter = steps_[step].parameters && IsParameter(line);
        if (parameter) planned.key = KeyOf(line);
        bool send = whole.contains(step) || !steps_[step].parameters;
        if (parameter && differ.contains(Upper(planned.key))) send = true;
        // The boxes take over only what has been sent to them.
        if (parameter && send && StartsNoCase(planned.key, "SJ.")) boxes = true;
        if (StartsNoCase(line, "SJ.DOWNLOAD#")) send = boxes;
        planned.fate = send ? Fate::Send : Fate::Same;
        lines_.push_back(std::move(planned));
    });
}

void SendPlan::AddUnknown(const CIndicator& document, const DownloadOptions& options, const Target& target) {
    std::unordered_set<std::string> sent;
    EachLine(steps_, [&](std::size_t, std::string_view line) { sent.insert(Upper(KeyOf(line))); });
    DownloadOptions all = options;
    all.mask &= ~chkCODFile;
    const Target open{.version = target.version, .cb2 = target.cb2, .all = true};
    EachLine(PlanDownload(document, all, open), [&](std::size_t step, std::string_view line) {
        std::string key = KeyOf(line);
        if (!IsParameter(line) || !sent.insert(Upper(key)).second) return;
        const auto gate = GateOf(document, key);
        const std::string versions = gate ? Words(*gate) : std::string();
        lines_.push_back({.fate = Fate::NotKnown,
                          .key = std::move(key),
                          .line = std::string(line),
                          .reason = texts_->Format(link_text::kGated, {versions}),
                          .step = step});
    });
}

void SendPlan::AddNotChosen(const CIndicator& document, const Held& held, unsigned chosen,
                            const Target& target) {
    constexpr unsigned kAll = chkBase | chkCalibration | chkSetpoints | chkWidgets | chkSchemas;
    // Calibration is sent with the base only, so that alone it is not chosen either.
    if ((chosen & chkBase) == 0) chosen &= ~chkCalibration;
    const std::vector<DownloadStep> all = PlanDownload(document, {.mask = kAll}, target);
    EachLine(all, [&](std::size_t step, std::string_view line) {
        const unsigned group = all[step].group;
        if (!IsParameter(line) || group == 0 || (chosen & group) != 0) return;
        std::string key = KeyOf(line);
        if (held.Holds({key, std::string(line.substr(key.size() + 1))}, target)) return;
        lines_.push_back({.fate = Fate::NotChosen,
                          .key = std::move(key),
                          .line = std::string(line),
                          .reason = texts_->Text(GroupText(group)),
                          .step = step});
    });
}

void SendPlan::AddOnlyThere(const ChangeSet& changes) {
    for (const Change& change : changes.Changes()) {
        const bool cleared = std::any_of(steps_.begin(), steps_.end(), [&](const DownloadStep& step) {
            return IsOfChange(step, change.key);
        });
        if (change.before || cleared) continue;
        lines_.push_back(
            {.fate = Fate::OnlyThere, .key = change.key, .reason = texts_->Text(link_text::kOnlyThere)});
    }
}

std::size_t SendPlan::Count(Fate fate) const {
    return static_cast<std::size_t>(std::count_if(
        lines_.begin(), lines_.end(), [fate](const PlannedLine& line) { return line.fate == fate; }));
}

std::vector<DownloadStep> SendPlan::Steps() const {
    std::vector<DownloadStep> chosen = steps_;
    std::vector<std::string> ticked(steps_.size());
    std::unordered_set<std::size_t> used;
    bool boxes = false;
    for (const PlannedLine& line : lines_) {
        if (line.fate != Fate::Send || !line.ticked) continue;
        const bool reset = StartsNoCase(line.line, "SJ.DOWNLOAD#");
        if (reset && !boxes) continue;
        boxes = boxes || StartsNoCase(line.key, "SJ.");
        ticked[line.step] += line.line + "\r\n";
        // A command alone is no reason to clear anything.
        if (!line.key.empty() || reset || !steps_[line.step].parameters) used.insert(line.step);
        if (!line.key.empty() || steps_[line.step].clears.empty()) continue;
        // Nothing is left to send but what the indicator alone has: clearing is all that the step does.
        if (CountLines({steps_[line.step]}) == 1) used.insert(line.step);
    }
    for (std::size_t i = 0; i < chosen.size(); ++i) {
        if (!used.contains(i)) {
            chosen[i].lines.clear();
            chosen[i].probe = false;
        } else if (chosen[i].clears.empty()) {
            chosen[i].lines = ticked[i];
        }
    }
    // The first step that sends anything asks for setup mode.
    for (DownloadStep& step : chosen) {
        if (step.lines.empty()) continue;
        step.probe = true;
        break;
    }
    return chosen;
}

}  // namespace calyx
