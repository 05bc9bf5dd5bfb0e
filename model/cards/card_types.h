#pragma once

#include <cstdint>

namespace calyx {

// The codes of the option cards, as the line HARDWARE holds them.
namespace card {
inline constexpr std::int32_t kDualSerial = 1;
inline constexpr std::int32_t kAnalogOutput = 4;
inline constexpr std::int32_t kDigitalIO = 5;
inline constexpr std::int32_t kPulseInput = 6;
inline constexpr std::int32_t kMemory = 7;
inline constexpr std::int32_t kFirstFieldbus = 8;
inline constexpr std::int32_t kLastFieldbus = 13;
// Reserved: reading keeps it and creates nothing, adding it leaves the slot as it is. On purpose.
inline constexpr std::int32_t kReserved = 14;
inline constexpr std::int32_t kDualAnalogOutput = 17;
inline constexpr std::int32_t kLast = 17;
inline constexpr std::int32_t kEmptySlot = 4000;  // in memory; the line has 0

inline constexpr int kSlots = 14;

constexpr bool IsEmpty(std::int32_t code) {
    return code == 0 || code == kEmptySlot;
}
constexpr bool IsFieldbus(std::int32_t code) {
    return code >= kFirstFieldbus && code <= kLastFieldbus;
}
// Resource text of the card's name; the empty slot has one too.
int Name(std::int32_t code);
// Resource text that says what the card brings; {1} and {2} numbers that depend on the slot.
int Brings(std::int32_t code);

// The two serial ports of a dual serial card, the channels of a dual analog output card.
constexpr int FirstPort(int slot) {
    return 2 * slot + 3;
}
constexpr int SecondChannel(int slot) {
    return slot + kSlots;
}
}  // namespace card

}  // namespace calyx
