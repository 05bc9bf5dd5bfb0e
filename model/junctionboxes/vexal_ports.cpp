#include "model/junctionboxes/vexal_ports.h"

#include "model/language/text.h"

namespace calyx {

namespace {

constexpr int kLastPort = 32, kBoardPorts = 4;
constexpr std::size_t kSlots = 14;
constexpr int kDualSerialCard = 1;

// The codes of the cards; a line of another length says nothing.
std::vector<std::string_view> Cards(const Dictionary& lines) {
    const Dictionary::Entry* entry = lines.Peek("HARDWARE");
    if (entry == nullptr) return {};
    auto cards = Split(entry->value, ',');
    if (cards.size() != kSlots) cards.clear();
    return cards;
}

}  // namespace

bool IsVexal(std::string_view inputType) {
    return Upper(Trim(inputType)) == "VEXAL";
}

std::vector<int> VexalPorts(const Dictionary& lines) {
    const auto cards = Cards(lines);
    std::vector<int> ports;
    for (int port = 1; port <= kLastPort; ++port) {
        const Dictionary::Entry* input = lines.Peek("EDP.INPUT#" + std::to_string(port));
        if (input == nullptr || !IsVexal(input->value)) continue;
        if (port > kBoardPorts) {
            const auto place = static_cast<std::size_t>(port - kBoardPorts - 1) / 2;  // two ports a card
            const auto card = place < cards.size() ? ReadInteger(cards[place]) : std::nullopt;
            if (!card || card->value != kDualSerialCard) continue;
        }
        ports.push_back(port);
    }
    return ports;
}

}  // namespace calyx
