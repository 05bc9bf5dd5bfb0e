#include "model/cards/card_types.h"

namespace calyx::card {

namespace {

constexpr int kNames = 4600;     // + code; 4620 an unknown card
constexpr int kBringing = 4630;  // + code, as far as a card brings anything
constexpr int kUnknownCard = 4620;
constexpr int kNothing = 4650;

}  // namespace

int Name(std::int32_t code) {
    if (IsEmpty(code)) return kNames;
    return code >= 1 && code <= kLast ? kNames + code : kUnknownCard;
}

int Brings(std::int32_t code) {
    const bool some = code == kDualSerial || code == kAnalogOutput || code == kDualAnalogOutput ||
                      code == kDigitalIO || code == kMemory || IsFieldbus(code);
    if (!some) return kNothing;
    return kBringing + (IsFieldbus(code) ? kFirstFieldbus : code);
}

}  // namespace calyx::card
