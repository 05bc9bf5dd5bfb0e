#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "model/language/date.h"
#include "model/language/row.h"
#include "model/language/text.h"

namespace calyx {

// The indicator-wide features. Passwords and consecutive numbers are 0 when not in use.
struct GeneralFields {
    FixedText<10> batchingMode, dateFormat, dateSeperator, regulatoryMode, truckMode, timeFormat,
        timeSeperator;
    FixedText<10> decimalFormat, regulatoryWording, imageMode, alibi;
    FixedText<8> unitId;
    std::int32_t configurationPassword = 0, setpointPassword = 0;
    std::int32_t consecutiveNumber = 0, consecutiveStart = 0;
    std::int32_t displayRate = 0;   // milliseconds
    std::int32_t keyboardLock = 1;  // 1 nothing locked, 2 all keys, 3 all but the zero key
    bool gravityCompensation = false;
    std::int32_t latitude = 0;   // degrees
    std::int32_t elevation = 0;  // metres above sea level
    std::string contactCompany, contactEmail;
    std::array<std::string, 3> contactAddress, contactName, contactPhone;
    Date nextCal, lastCal;
    FixedText<15> alertServer;  // an IP address
    FixedText<20> alertPhone;

    friend bool operator==(const GeneralFields&, const GeneralFields&) = default;
};

// The front-panel keys in the order of their lines: true is locked.
struct KeyLockFields {
    std::array<bool, 22> locked{};
    bool inFile = false;  // the file has lines of them, so they are written though nothing is locked

    bool HasContent() const { return inFile || locked != std::array<bool, 22>{}; }
    friend bool operator==(const KeyLockFields&, const KeyLockFields&) = default;
};

// The firmware version that the document was made for, as its file has it.
struct VersionFields {
    std::string version;
    friend bool operator==(const VersionFields&, const VersionFields&) = default;
};

extern const RowTable<GeneralFields> kGeneralTable;
extern const RowTable<KeyLockFields> kKeyLockTable;
extern const RowTable<VersionFields> kVersionTable;

}  // namespace calyx
