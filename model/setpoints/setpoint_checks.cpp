#include "model/setpoints/setpoint_checks.h"

#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <string>
#include <utility>

#include "model/setpoints/setpoint_batch.h"
#include "model/setpoints/setpoint_codecs.h"

namespace calyx {

namespace {

// What is wrong: {1} label of the parameter, then as said.
constexpr int kAliasTwice = 3902;    // {2} the other setpoint, {3} alias
constexpr int kAliasUnsaved = 3903;  // {2} alias
constexpr int kIsOff = 3904;         // {2} setpoint referred to
constexpr int kNoneChosen = 3905;
constexpr int kItself = 3906;          // {2} its own number
constexpr int kOutsideBatch = 3907;    // {2} setpoint branched to
constexpr int kOutputTwice = 3908;     // {2} point, {3} slot, {4} the other setpoint
constexpr int kNoOutputChosen = 3909;  // {2} slot
constexpr int kNoScaleChosen = 3910;
constexpr int kNoPulseChosen = 3911;
constexpr int kNoSuchScale = 3912;      // {2} scale
constexpr int kNoSuchPulse = 3913;      // {2} pulse input
constexpr int kNoDigitalCard = 3914;    // {2} slot
constexpr int kOutputTwiceHere = 3915;  // {2} point, {3} slot
constexpr int kBeyondCard = 40100;      // {2} slot, {3} its points
constexpr int kInputBeyond = 40101;     // {2} where, {3} its points, {4} input
constexpr int kNoInputChosen = 40102;
constexpr int kNoSlotChosen = 40103;
constexpr int kInputIsOutput = 40105;           // {2} point, {3} where
constexpr int kNoSetpoint = 42000;              // {2} number
constexpr int kMainBoard = 3880, kSlot = 3881;  // {1} slot
constexpr int kMostInputs = 31;                 // that a mask can hold

// Adds rules about one setpoint, each under one of its lines.
class Findings {
  public:
    Findings(const CSetpoint& setpoint, const ResourceTexts& texts, CBrokenRules& rules)
        : setpoint_(setpoint), texts_(texts), rules_(rules) {}

    void Add(std::string_view stem, int text, std::string_view second = {}, std::string_view third = {},
             std::string_view fourth = {}) const {
        const auto& item = setpoint_.Parameters();
        std::string key = SetpointKey(stem, setpoint_.Number());
        const auto row = item.Find(key);
        const std::string label = row ? texts_.Text(item.Info(*row).more.label) : key;
        rules_.Add({"setpoints", setpoint_.Number(), std::move(key),
                    texts_.Format(text, {label, second, third, fourth})});
    }

  private:
    const CSetpoint& setpoint_;
    const ResourceTexts& texts_;
    CBrokenRules& rules_;
};

class Checks {
  public:
    Checks(const CSetpoints& setpoints, const ResourceTexts& texts, CBrokenRules& rules)
        : setpoints_(setpoints), texts_(texts), rules_(rules) {}

    void Run() {
        for (const CSetpoint& setpoint : setpoints_) {
            const Findings findings(setpoint, texts_, rules_);
            CheckAlias(setpoint, findings);
            if (setpoint.Values().IsOff()) continue;
            CheckReferences(setpoint, findings);
            CheckSource(setpoint.Values(), findings);
            CheckOutputs(setpoint, findings);
            if (HasSetpointLine(setpoint.Values(), "MASK") && setpoint.Values().inputMask == 0)
                findings.Add("MASK", kNoInputChosen);
        }
    }

  private:
    void CheckAlias(const CSetpoint& setpoint, const Findings& findings) {
        const std::string_view alias = setpoint.Values().alias.Trimmed();
        if (alias.empty()) return;
        if (setpoint.Values().IsOff()) {
            findings.Add("ALIAS", kAliasUnsaved, alias);
            return;
        }
        // Constants of the indicator's language: their case does not tell them apart.
        const auto [first, fresh] = aliases_.emplace(Upper(alias), setpoint.Number());
        if (!fresh) findings.Add("ALIAS", kAliasTwice, std::to_string(first->second), alias);
    }

    // The setpoint of a number that stands in a reference. Nothing outside 1 to 100, which is the range's to
    // tell, and none between two setpoints.
    const SetpointFields* Target(double number) const {
        if (number < 1 || number > kSetpoints || number != std::floor(number)) return nullptr;
        return &setpoints_.Item(static_cast<int>(number)).Values();
    }

    void CheckReferences(const CSetpoint& setpoint, const Findings& findings) {
        const SetpointFields& fields = setpoint.Values();
        const std::pair<std::string_view, double> references[] = {{"RELNUM", fields.relNum},
                                                                  {"BRANCH", fields.branch},
                                                                  {"START", fields.start},
                                                                  {"END", fields.end}};
        for (const auto& [stem, number] : references) {
            if (!HasSetpointLine(fields, stem)) continue;
            const bool relative = stem == "RELNUM";
            // Only a branch may lead nowhere.
            if (number == 0 && stem != "BRANCH") findings.Add(stem, kNoneChosen);
            if (number != std::floor(number)) {
                std::string given;
                AppendNumber(given, number);
                findings.Add(stem, kNoSetpoint, given);
            }
            const SetpointFields* target = Target(number);
            if (target == nullptr) continue;
            const std::string shown = std::to_string(static_cast<int>(number));
            if (target->IsOff()) {
                findings.Add(stem, kIsOff, shown);
            } else if (relative && target == &fields) {
                findings.Add(stem, kItself, shown);
            } else if (stem == "BRANCH" && !IsBatchStep(*target)) {
                findings.Add(stem, kOutsideBatch, shown);
            }
        }
    }

    // A delay and a time of day watch no scale; they need one only for what they do on trip.
    static void CheckSource(const SetpointFields& fields, const Findings& findings) {
        const bool spare = fields.kind == SetpointKind::Delay || fields.kind == SetpointKind::TimeOfDay;
        if (spare || fields.source != 0 || !HasSetpointLine(fields, "SOURCE")) return;
        findings.Add("SOURCE", WatchesPulses(fields.kind) ? kNoPulseChosen : kNoScaleChosen);
    }

    void CheckOutputs(const CSetpoint& setpoint, const Findings& findings) {
        const SetpointFields& fields = setpoint.Values();
        const int slot = fields.digOutCard;
        if (slot == 0) {
            const bool weighs = fields.chDUnder != 0 || fields.chDOver != 0 || fields.chDAccept != 0;
            if (weighs && HasSetpointLine(fields, "DUNDER")) findings.Add("DSLOT", kNoSlotChosen);
            return;
        }
        const std::pair<std::string_view, int> points[] = {{"DIGOUT", fields.digOutPos},
                                                           {"DUNDER", fields.chDUnder},
                                                           {"DOVER", fields.chDOver},
                                                           {"DACCEPT", fields.chDAccept}};
        for (const auto& [stem, point] : points) {
            if (!HasSetpointLine(fields, stem)) continue;
            const std::string shownSlot = std::to_string(slot), shownPoint = std::to_string(point);
            if (point == 0) {
                // A checkweigher may do without one of its outputs.
                if (stem == "DIGOUT") findings.Add(stem, kNoOutputChosen, shownSlot);
                continue;
            }
            const auto [first, fresh] = outputs_.emplace(std::pair(slot, point), setpoint.Number());
            if (fresh) continue;
            if (first->second == setpoint.Number()) {
                findings.Add(stem, kOutputTwiceHere, shownPoint, shownSlot);
            } else {
                findings.Add(stem, kOutputTwice, shownPoint, shownSlot, std::to_string(first->second));
            }
        }
    }

    const CSetpoints& setpoints_;
    const ResourceTexts& texts_;
    CBrokenRules& rules_;
    std::map<std::string, int> aliases_;          // first setpoint of each
    std::map<std::pair<int, int>, int> outputs_;  // slot and point
};

// The digital points that one setpoint switches and watches.
class PointChecks {
  public:
    PointChecks(const SetpointFields& fields, const SetpointSurroundings& surroundings,
                const ResourceTexts& texts, const Findings& findings)
        : fields_(fields), surroundings_(surroundings), texts_(texts), findings_(findings) {}

    void Run() const {
        if (!surroundings_.digitalPoints) return;
        if (fields_.digOutCard != 0) CheckOutputs();
        if (HasSetpointLine(fields_, "DISLOT")) CheckInputs();
    }

  private:
    void CheckOutputs() const {
        if (!HasSetpointLine(fields_, "DSLOT")) return;
        const int slot = fields_.digOutCard, points = surroundings_.digitalPoints(slot);
        if (points == 0) return findings_.Add("DSLOT", kNoDigitalCard, std::to_string(slot));
        const std::pair<std::string_view, int> chosen[] = {{"DIGOUT", fields_.digOutPos},
                                                           {"DUNDER", fields_.chDUnder},
                                                           {"DOVER", fields_.chDOver},
                                                           {"DACCEPT", fields_.chDAccept}};
        for (const auto& [stem, point] : chosen) {
            if ((point < 0 || point > points) && HasSetpointLine(fields_, stem))
                findings_.Add(stem, kBeyondCard, std::to_string(slot), std::to_string(points));
        }
    }
    // One finding a mask: its first bit that is wrong.
    void CheckInputs() const {
        const int slot = fields_.digInCard, points = surroundings_.digitalPoints(slot);
        if (points == 0) return findings_.Add("DISLOT", kNoDigitalCard, std::to_string(slot));
        const std::string where =
            slot == 0 ? texts_.Text(kMainBoard) : texts_.Format(kSlot, {std::to_string(slot)});
        for (int point = 1; point <= kMostInputs; ++point) {
            if ((static_cast<std::uint32_t>(fields_.inputMask) >> (point - 1) & 1u) == 0) continue;
            const std::string shown = std::to_string(point);
            if (point > points)
                return findings_.Add("MASK", kInputBeyond, where, std::to_string(points), shown);
            if (surroundings_.isOutput && surroundings_.isOutput(slot, point))
                return findings_.Add("MASK", kInputIsOutput, shown, where);
        }
    }

    const SetpointFields& fields_;
    const SetpointSurroundings& surroundings_;
    const ResourceTexts& texts_;
    const Findings& findings_;
};

}  // namespace

void CheckSetpoints(const CSetpoints& setpoints, const ResourceTexts& texts, CBrokenRules& rules) {
    Checks(setpoints, texts, rules).Run();
}

void CheckSetpointSurroundings(const CSetpoints& setpoints, const SetpointSurroundings& surroundings,
                               const ResourceTexts& texts, CBrokenRules& rules) {
    for (const CSetpoint& setpoint : setpoints) {
        const SetpointFields& fields = setpoint.Values();
        if (fields.IsOff()) continue;
        const Findings findings(setpoint, texts, rules);
        const auto check = [&](const std::function<bool(int)>& exists, int number, std::string_view stem,
                               int text) {
            if (!exists || exists(number) || !HasSetpointLine(fields, stem)) return;
            findings.Add(stem, text, std::to_string(number));
        };
        if (fields.source != 0) {
            const bool pulses = WatchesPulses(fields.kind);
            check(pulses ? surroundings.pulseInputExists : surroundings.scaleExists, fields.source, "SOURCE",
                  pulses ? kNoSuchPulse : kNoSuchScale);
        }
        PointChecks(fields, surroundings, texts, findings).Run();
    }
}

}  // namespace calyx
