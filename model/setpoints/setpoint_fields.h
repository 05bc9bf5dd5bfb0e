#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/language/row.h"
#include "model/language/text.h"
#include "model/setpoints/day_time.h"
#include "model/setpoints/setpoint_kinds.h"

namespace calyx {

inline constexpr int kSetpoints = 100;  // numbered from 1

// What one setpoint holds; its initial values stand in the rows. The fields that its kind has no line for
// keep their values while the program runs, so that a change of kind can be taken back by another.
struct SetpointFields {
    SetpointKind kind = SetpointKind::Off;
    FixedText<8> alias;
    bool enabled = false;

    double value = 0;         // weight, count, time or percent, as the kind has it
    std::int32_t source = 0;  // number of a scale or of a pulse input; 0: none chosen
    std::int32_t relNum = 0;  // setpoint that a relative one refers to; 0: none
    bool batch = false;
    FixedText<10> trip;  // "HIGHER", "LOWER", "INBAND", "OUTBAND"
    double hysteresis = 0;

    FixedText<10> preact;
    double preValue = 0, preAdj = 0;
    std::int32_t preCount = 0, preStab = 0;
    double tolBand = 0;
    std::int32_t tolCount = 0;
    double bandValue = 0;
    std::int32_t nSample = 0;

    std::int32_t branch = 0;  // setpoint; 0: none
    bool clearAccum = false, clearTare = false, pushTare = false;
    FixedText<10> pushAccum, pushPrint;
    bool alarm = false;
    FixedText<10> access;
    std::int32_t nameNumber = 0;

    std::int32_t digOutCard = 0, digOutPos = 0;  // slot and point; slot 0: no output
    std::int32_t digInCard = 0, inputMask = 0;   // slot, 0 the main board; point n is bit n - 1
    FixedText<10> sense;
    std::int32_t coastTime = 0;
    double start = 0, end = 0;  // setpoints between which a timer runs
    DayTime time, duration;

    double chVUnder = 0, chVOver = 0;                       // limits of the checkweigher
    std::int32_t chDUnder = 0, chDOver = 0, chDAccept = 0;  // its output points; 0: none

    bool IsOff() const { return kind == SetpointKind::Off; }
    bool TripsInBand() const { return trip.Trimmed() != "HIGHER" && trip.Trimmed() != "LOWER"; }
    bool ToleranceInUse() const { return tolBand != 0 || tolCount != 0; }
    friend bool operator==(const SetpointFields&, const SetpointFields&) = default;
};

extern const RowTable<SetpointFields> kSetpointTable;

// "SP.DIGOUT#3"
std::string SetpointKey(std::string_view stem, int number);
// Whether the setpoint writes that line at present.
bool HasSetpointLine(const SetpointFields& fields, std::string_view stem);

}  // namespace calyx
