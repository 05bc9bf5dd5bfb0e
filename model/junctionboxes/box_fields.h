#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "model/language/row.h"
#include "model/language/text.h"

namespace calyx {

// One junction box. Its numbers are kept as the texts that they were read as.
struct BoxFields {
    static constexpr int kCells = 16, kPlatforms = 4, kSystems = 1, kPoints = 8;
    static constexpr int kLinearPoints = 5;  // of each platform

    std::string serialNumber;  // as the indicator tells it
    FixedText<7> hardwareConfig;
    FixedText<8> sectionType;
    bool cellSimulation = false;

    std::array<std::string, kCells> cellId, cellSerialNumber, cellCapacity, cellSensitivity, cellTrim,
        cellZero;

    std::array<std::string, kPlatforms> platformName;
    std::array<std::string, kPlatforms> platformCells;  // "1,2,3,4"
    std::array<std::string, kPlatforms> platformSimulatedCell, platformWVal, platformWSpan;
    // The five points of platform 1, those of platform 2 and so on.
    std::array<std::string, std::size_t{kPlatforms * kLinearPoints}> linearWeight, linearSpan;
    std::array<FixedText<8>, kPlatforms> calType;
    std::array<float, kPlatforms> calMultiplier{};

    std::string systemName;
    std::string systemPlatforms;  // "1,2"

    std::array<FixedText<10>, kPoints> digitalIO;
    std::string analogSource, analogFullScale;

    bool cellBalance = false;
    std::string cbTolerance, cbThreshold, cbLoad;
    bool loadDrift = false;
    std::string ldPLimit, ldLimit, ldTime, ldLoad;
    bool peakToPeak = false;
    std::string pkLimit;
    bool zeroReference = false;
    std::string zrThreshold, zrDelay, zrPThreshold;
    std::string motionBand;
    FixedText<10> cellEmuType, temperatureCompensation;

    friend bool operator==(const BoxFields&, const BoxFields&) = default;
};

extern const RowTable<BoxFields> kBoxTable;

// The numbers of a list such as "1,2,5", each from 1 to `most` and once; `whole`: nothing else stood there.
struct NumberList {
    std::vector<int> numbers;
    bool whole = true;

    bool Has(int number) const;
};
NumberList ReadNumberList(std::string_view text, int most);
std::string JoinNumbers(const std::vector<int>& numbers);

}  // namespace calyx
