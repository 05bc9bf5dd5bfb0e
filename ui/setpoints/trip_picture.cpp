#include "ui/setpoints/trip_picture.h"

#include <algorithm>
#include <cmath>

#include "ui/setpoints/setpoint_texts.h"

namespace calyx::ui {

namespace {

using Style = TripPicture::Style;

bool IsRelative(SetpointKind kind) {
    return kind == SetpointKind::RelativeAbove || kind == SetpointKind::RelativeBelow ||
           kind == SetpointKind::RelativePercent || kind == SetpointKind::RelativeResettable;
}

// `left`: how many setpoints may still refer to one another; a circle has no target.
std::optional<double> Target(const CSetpoints& setpoints, int number, int left) {
    const SetpointFields& fields = setpoints.Item(number).Values();
    if (!HasSetpointLine(fields, "VALUE")) return std::nullopt;
    if (!IsRelative(fields.kind)) return fields.value;
    if (left == 0 || fields.relNum < 1 || fields.relNum > kSetpoints) return std::nullopt;
    const auto other = Target(setpoints, fields.relNum, left - 1);
    if (!other) return std::nullopt;
    switch (fields.kind) {
        case SetpointKind::RelativeBelow:
            return *other - fields.value;
        case SetpointKind::RelativePercent:
            return *other * fields.value / 100;
        default:
            return *other + fields.value;
    }
}

void AddBand(TripPicture& picture, double target, double band, bool inside) {
    const double from = target - std::abs(band), to = target + std::abs(band);
    picture.marks = {{from, Style::Trip, say::kMarkBandFrom}, {to, Style::Trip, say::kMarkBandTo}};
    if (inside) {
        picture.stretches = {{from, to, Style::Trip}};
    } else {
        picture.stretches = {{std::nullopt, from, Style::Trip}, {to, std::nullopt, Style::Trip}};
    }
}

void AddLevel(TripPicture& picture, const SetpointFields& fields, double target) {
    const bool higher = fields.trip.Trimmed() == "HIGHER";
    const auto stretch = [&](double from, double to, Style style) {
        picture.stretches.push_back({std::min(from, to), std::max(from, to), style});
    };
    picture.marks.push_back({target, Style::Trip, say::kMarkTrip});
    if (higher) {
        picture.stretches.push_back({target, std::nullopt, Style::Trip});
    } else {
        picture.stretches.push_back({std::nullopt, target, Style::Trip});
    }
    const double before = higher ? -1 : 1;  // on the side from which the weight comes
    if (HasSetpointLine(fields, "HYSTER") && fields.hysteresis != 0) {
        const double ready = target + before * fields.hysteresis;
        picture.marks.push_back({ready, Style::Ready, say::kMarkReady});
        stretch(ready, target, Style::Ready);
    }
    const auto preact = fields.preact.Trimmed();
    if (HasSetpointLine(fields, "PREVAL") && preact != "OFF" && fields.preValue != 0) {
        const double early = target + before * fields.preValue;
        picture.marks.push_back({early, Style::Preact, say::kMarkPreact});
        stretch(early, target, Style::Preact);
    }
}

}  // namespace

std::optional<double> TargetOf(const CSetpoints& setpoints, int number) {
    return Target(setpoints, number, kSetpoints);
}

std::optional<TripPicture> PictureOf(const CSetpoints& setpoints, int number) {
    const SetpointFields& fields = setpoints.Item(number).Values();
    TripPicture picture;
    if (HasSetpointLine(fields, "VUNDER")) {
        picture.marks = {{fields.chVUnder, Style::Trip, say::kMarkUnder},
                         {fields.chVOver, Style::Trip, say::kMarkOver}};
        picture.stretches = {{fields.chVUnder, fields.chVOver, Style::Ready}};
    } else {
        if (!HasSetpointLine(fields, "TRIP")) return std::nullopt;
        const auto target = TargetOf(setpoints, number);
        if (!target) return std::nullopt;
        if (fields.TripsInBand()) {
            AddBand(picture, *target, fields.bandValue, fields.trip.Trimmed() == "INBAND");
        } else {
            AddLevel(picture, fields, *target);
        }
    }
    std::stable_sort(picture.marks.begin(), picture.marks.end(),
                     [](const auto& a, const auto& b) { return a.at < b.at; });
    return picture;
}

}  // namespace calyx::ui
