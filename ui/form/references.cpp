#include "ui/form/references.h"

#include <algorithm>
#include <array>

#include "model/language/text.h"
#include "model/setpoints/setpoint_batch.h"
#include "ui/form/form_texts.h"

namespace calyx::ui::form {

namespace {

class Finder {
  public:
    Finder(const CIndicator& document, int number)
        : document_(document), texts_(document.Context().texts), number_(number) {}

    void StreamedScales() {
        Add("SCALE0", {}, Say(texts_, kNoScale));
        Scales();
    }
    void ScalesOrProgram() {
        Add("PROG", {}, Say(texts_, kByProgram));
        Scales();
    }
    void WatchedScales() {
        const SetpointKind kind = Own().kind;
        if (WatchesPulses(kind)) return;
        const bool spare = kind == SetpointKind::Delay || kind == SetpointKind::TimeOfDay;
        if (spare) Add("SCALE0", {}, Say(texts_, kNoScale));
        Scales();
    }
    void OtherSetpoints() {
        Setpoints([this](const CSetpoint& setpoint) { return setpoint.Number() != number_; });
    }
    void BatchSteps() {
        Add("0", {}, Say(texts_, kNoBranch));
        Setpoints([](const CSetpoint& setpoint) { return IsBatchStep(setpoint.Values()); });
    }
    void OutputSlots() {
        Add("NONE", {}, Say(texts_, kNoOutput));
        Slots();
    }
    void InputSlots() {
        Add("SLOT0", Say(texts_, kMainBoard), Say(texts_, kMainBoard));
        Slots();
    }
    void Points() { AddPoints(); }
    void PointsOrNone() {
        Add("NONE", {}, Say(texts_, kNoOutput));
        AddPoints();
    }

    std::vector<Reference> found;

  private:
    const SetpointFields& Own() const { return document_.Setpoints().Item(number_).Values(); }

    void Add(std::string text, const QString& name, const QString& words) {
        found.push_back({std::move(text), name, words});
    }
    // "2: SiloW, Analog Scale"; beside the number stands what tells most.
    void AddNamed(std::string_view word, int number, std::string_view alias, const QString& what) {
        const QString name = ToShown(alias), shown = QString::number(number);
        Add(std::string(word) + std::to_string(number), name.isEmpty() ? what : name,
            name.isEmpty() ? Say(texts_, kNumberAndName, shown, what)
                           : Say(texts_, kNumberNameAndKind, shown, name, what));
    }
    void Scales() {
        const CScales& scales = document_.Scales();
        for (int number = 1; number <= kScaleCount; ++number) {
            const CScale& scale = scales.Scale(number);
            if (scale.ScaleType() == scale_kind::kNone) continue;
            const std::string* kind = scales.Lists().Kinds().Item(std::to_string(scale.ScaleType()));
            AddNamed("SCALE", number, scale.Values().alias.Trimmed(), ToShown(kind == nullptr ? "" : *kind));
        }
    }
    template <class Fits>
    void Setpoints(Fits&& fits) {
        for (const CSetpoint& setpoint : document_.Setpoints()) {
            if (setpoint.Values().IsOff() || !fits(setpoint)) continue;
            AddNamed("", setpoint.Number(), setpoint.Values().alias.Trimmed(),
                     Say(texts_, KindName(setpoint.Values().kind)));
        }
    }
    void Slots() {
        for (const int slot : document_.Hardware().DigitalIOs()) {
            if (slot == 0) continue;
            const QString words = Say(texts_, kSlotPoints, QString::number(slot),
                                      QString::number(document_.Hardware().DigitalIO(slot).NumberOfPoints()));
            Add("SLOT" + std::to_string(slot), {}, words);
        }
    }
    // Points that work as inputs cannot be switched.
    void AddPoints() {
        const CHardware& hardware = document_.Hardware();
        const int slot = Own().digOutCard;
        if (slot <= 0 || !hardware.HasDigitalIO(slot)) return;
        const CDigitalIO& card = hardware.DigitalIO(slot);
        for (int point = 1; point <= card.NumberOfPoints(); ++point) {
            const std::string_view function = card.PointDefinition(point);
            if (function != "OFF" && function != "OUTPUT") continue;
            const std::string* shown = card.PointDefinitions().Item(function);
            AddNamed("BIT", point, Trim(card.Alias(point)),
                     ToShown(shown == nullptr ? function : std::string_view(*shown)));
        }
    }

    const CIndicator& document_;
    const ResourceTexts& texts_;
    int number_;
};

struct Kind {
    std::string_view stem;
    void (Finder::*find)();
};
constexpr std::array<Kind, 13> kKinds{{
    {"SP.SOURCE", &Finder::WatchedScales},
    {"SP.RELNUM", &Finder::OtherSetpoints},
    {"SP.BRANCH", &Finder::BatchSteps},
    {"SP.START", &Finder::OtherSetpoints},
    {"SP.END", &Finder::OtherSetpoints},
    {"SP.DSLOT", &Finder::OutputSlots},
    {"SP.DISLOT", &Finder::InputSlots},
    {"SP.DIGOUT", &Finder::Points},
    {"SP.DUNDER", &Finder::PointsOrNone},
    {"SP.DOVER", &Finder::PointsOrNone},
    {"SP.DACCEPT", &Finder::PointsOrNone},
    {"EDP.SOURCE", &Finder::StreamedScales},
    {"ALG.SOURCE", &Finder::ScalesOrProgram},
}};

const Kind* Find(std::string_view key) {
    const std::string_view stem = key.substr(0, key.find('#'));
    const auto* const found = std::find_if(kKinds.begin(), kKinds.end(),
                                           [&](const Kind& kind) { return EqualNoCase(kind.stem, stem); });
    return found == kKinds.end() ? nullptr : found;
}

}  // namespace

bool IsReference(std::string_view key) {
    return Find(key) != nullptr;
}

std::vector<Reference> References(const CIndicator& document, std::string_view key) {
    const Kind* kind = Find(key);
    const std::size_t sharp = key.find('#');
    const auto number = sharp == std::string_view::npos ? std::nullopt : ReadInteger(key.substr(sharp + 1));
    if (kind == nullptr || !number) return {};
    Finder finder(document, number->value);
    (finder.*kind->find)();
    return std::move(finder.found);
}

}  // namespace calyx::ui::form
