#pragma once

#include <array>
#include <cstdint>

#include "model/language/row.h"

namespace calyx {

// One analog output channel.
struct AnalogFields {
    FixedText<8> alias;
    std::int32_t source = 0;  // scale number, 0: a Scrivo program
    FixedText<10> mode, offset, errorAction, minNeg, maxNeg;
    std::int32_t minimum = 0, maximum = 10000;  // weights at both ends of the output
    std::int32_t zeroCal = 0, spanCal = 0;      // calibration counts

    friend bool operator==(const AnalogFields&, const AnalogFields&) = default;
};

// The digital points of the main board or of one card.
struct DigitalFields {
    static constexpr int kBoardPoints = 8;
    static constexpr int kCardPoints = 24;

    std::array<FixedText<10>, kCardPoints> definition;
    std::array<FixedText<8>, kCardPoints> alias;

    friend bool operator==(const DigitalFields&, const DigitalFields&) = default;
};

struct FieldbusFields {
    std::int32_t size = 8;  // bytes exchanged in each direction
    FixedText<10> swapByte;

    friend bool operator==(const FieldbusFields&, const FieldbusFields&) = default;
};

extern const RowTable<AnalogFields> kAnalogTable;
extern const RowTable<DigitalFields> kBoardDigitalTable;  // 8 points
extern const RowTable<DigitalFields> kCardDigitalTable;   // 24 points
extern const RowTable<FieldbusFields> kFieldbusTable;

namespace alias {
// A rule for alias rows: 0, or the number of what is wrong ({1} label, {2} value).
int Check(std::string_view value);
}  // namespace alias

}  // namespace calyx
