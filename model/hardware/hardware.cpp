#include "model/hardware/hardware.h"

#include <algorithm>
#include <iterator>

#include "model/language/error.h"

namespace calyx {

namespace {

constexpr std::string_view kHardware = "HARDWARE";
constexpr int kBoardPorts = 4;
constexpr int kMainBoard = 0;  // number of its digital points

// The slot whose card brings the port; 0: the main board.
int SlotOfPort(int port) {
    return port <= kBoardPorts ? 0 : (port - card::FirstPort(1)) / 2 + 1;
}

std::size_t Place(int slot) {
    return static_cast<std::size_t>(slot - 1);
}

template <class Map, class Has>
std::vector<int> Numbers(const Map& objects, Has&& has) {
    std::vector<int> numbers;
    for (const auto& [number, object] : objects) {
        if (has(number)) numbers.push_back(number);
    }
    return numbers;
}

}  // namespace

CHardware::CHardware(const ModelContext& context)
    : Section(context),
      portLists_(context),
      analogLists_(context),
      digitalLists_(context),
      slots_(kSlotTable, context) {}

void CHardware::Need(const char* operation) const {
    if (initialised_) return;
    throw Error(code::kNotInitialised, std::string("Calyx.CHardware.") + operation,
                Context().texts.Text(code::kNotInitialised));
}

std::vector<Item*> CHardware::Items() {
    std::vector<Item*> items{&slots_};
    for (auto& [number, port] : ports_) {
        if (!HasPort(number)) continue;
        items.push_back(&port.Parameters());
        items.push_back(&port.Stream().Parameters());
    }
    for (auto& [number, channel] : analog_) {
        if (HasAnalogOutput(number)) items.push_back(&channel.Parameters());
    }
    for (auto& [number, points] : digital_) {
        if (HasDigitalIO(number)) items.push_back(&points.Parameters());
    }
    for (auto& [slot, memory] : memory_) {
        if (!HasMemoryCard(slot)) continue;
        const auto tables = memory.Items();
        items.insert(items.end(), tables.begin(), tables.end());
    }
    return items;
}

void CHardware::Initialize() {
    ports_.clear();
    analog_.clear();
    digital_.clear();
    memory_.clear();
    slots_.Initialize();
    initialised_ = true;
    MakeRoom();
}

// The slots first: they say which objects there are to read.
void CHardware::RestoreState(Dictionary& lines, ReadReport& report) {
    Need("RestoreState");
    if (const auto* entry = lines.Peek(kHardware)) {
        kSlotTable.rows[0].take(slots_.fields, entry->value);
        MakeRoom();
    }
    Section::RestoreState(lines, report);
    for (const int slot : MemoryCards()) memory_.at(slot).RestoreState(lines, report);
    MarkSaved();
}

void CHardware::MakeRoom() {
    const auto make = [&](auto& objects, int number) {
        const auto made = objects.try_emplace(number, Context());
        if (!made.second) return;
        auto& object = made.first->second;
        if constexpr (requires { object.InitializeLike(object, number); }) {
            if (made.first != objects.begin())
                return object.InitializeLike(std::prev(made.first)->second, number);
        }
        object.Initialize(number);
    };
    for (int port = 1; port <= kBoardPorts; ++port) make(ports_, port);
    make(digital_, kMainBoard);
    for (int slot = 1; slot <= card::kSlots; ++slot) {
        const std::int32_t code = CodeIn(slot);
        if (code == card::kDualSerial) {
            make(ports_, card::FirstPort(slot));
            make(ports_, card::FirstPort(slot) + 1);
        }
        if (code == card::kAnalogOutput || code == card::kDualAnalogOutput) make(analog_, slot);
        if (code == card::kDualAnalogOutput) make(analog_, card::SecondChannel(slot));
        if (code == card::kDigitalIO) make(digital_, slot);
        if (code == card::kMemory) make(memory_, slot);
    }
}

void CHardware::MarkSaved() {
    std::erase_if(ports_, [&](const auto& port) { return !HasPort(port.first); });
    std::erase_if(analog_, [&](const auto& channel) { return !HasAnalogOutput(channel.first); });
    std::erase_if(digital_, [&](const auto& points) { return !HasDigitalIO(points.first); });
    std::erase_if(memory_, [&](const auto& memory) { return !HasMemoryCard(memory.first); });
    for (auto& [slot, memory] : memory_) memory.MarkSaved();
    Section::MarkSaved();
}

// What new cards bring must be there before its lines are taken.
void CHardware::Prepare(std::vector<Change>& changes, Check check, const ValueOf&) {
    for (const Change& change : changes) {
        if (!EqualNoCase(change.key, kHardware)) continue;
        SlotFields wanted = slots_.fields;
        const std::string text = change.after.value_or(slots_.InitialText(0));
        const Taken taken = kSlotTable.rows[0].take(wanted, text);
        // What is going to be refused changes no card.
        if (taken == Taken::Not || (taken != Taken::Whole && check == Check::Strict)) continue;
        for (int slot = 1; slot <= card::kSlots; ++slot) {
            if (wanted.codes[Place(slot)] != CodeIn(slot)) SetCard(slot, wanted.codes[Place(slot)]);
        }
    }
    for (const int slot : MemoryCards()) memory_.at(slot).Prepare(changes, check);
}

bool CHardware::IsDirty() const {
    const auto cards = MemoryCards();
    return Section::IsDirty() ||
           std::any_of(cards.begin(), cards.end(), [&](int slot) { return memory_.at(slot).IsDirty(); });
}

std::int32_t CHardware::CodeIn(int slot) const {
    return slots_.fields.codes[Place(slot)];
}

std::int32_t CHardware::CardType(int slot) const {
    NeedSlot(slot, "CardType");
    return CodeIn(slot);
}

void CHardware::AddNewCard(int slot, std::int32_t code) {
    NeedSlot(slot, "AddNewCard");
    if (code != card::kReserved) SetCard(slot, code);
}

void CHardware::SetCard(int slot, std::int32_t code) {
    const int second = card::SecondChannel(slot);
    const bool same = CodeIn(slot) == code;
    const bool hadFirst = HasAnalogOutput(slot) && !same, hadSecond = HasAnalogOutput(second) && !same;
    slots_.fields.codes[Place(slot)] = card::IsEmpty(code) ? card::kEmptySlot : code;
    MakeRoom();
    // What the card brings starts from its defaults, also where such a card was there before. A channel
    // that the card before had, too, goes on as it is.
    const auto reload = [](auto& objects, int number) {
        if (const auto found = objects.find(number); found != objects.end()) found->second.ReloadDefaults();
    };
    if (code == card::kDualSerial) {
        for (const int port : {card::FirstPort(slot), card::FirstPort(slot) + 1}) reload(ports_, port);
    }
    if (HasDigitalIO(slot)) reload(digital_, slot);
    if (HasMemoryCard(slot)) reload(memory_, slot);
    if (HasAnalogOutput(slot) && !hadFirst) reload(analog_, slot);
    if (HasAnalogOutput(second) && !hadSecond) reload(analog_, second);
}

void CHardware::RemoveExistingCard(int slot) {
    NeedSlot(slot, "RemoveExistingCard");
    slots_.fields.codes[Place(slot)] = card::kEmptySlot;
}

std::string CHardware::HardwareWith(int slot, std::int32_t code) const {
    NeedSlot(slot, "HardwareWith");
    RowItem<SlotFields> changed = slots_;
    if (code != card::kReserved) changed.fields.codes[Place(slot)] = code;
    return changed.Text(0);
}

void CHardware::UpdateFromIndicator(std::string_view reported) {
    Need("UpdateFromIndicator");
    live_.reset();
    if (Trim(reported).empty()) return;
    SlotFields taken;
    const auto codes = Split(reported, ',');
    for (std::size_t i = 0; i < taken.codes.size() && i < codes.size(); ++i) {
        const auto code = ReadInteger(codes[i]);
        if (code && !card::IsEmpty(code->value)) taken.codes[i] = code->value;
    }
    live_ = taken.codes;
}

std::int32_t CHardware::LiveCardType(int slot) const {
    NeedSlot(slot, "LiveCardType");
    return live_ ? (*live_)[Place(slot)] : card::kEmptySlot;
}

bool CHardware::DiffersFromLive(int slot) const {
    return live_ && CardType(slot) != LiveCardType(slot);
}

bool CHardware::HasPort(int port) const {
    if (port >= 1 && port <= kBoardPorts) return true;
    const int slot = SlotOfPort(port);
    return slot >= 1 && slot <= card::kSlots && CodeIn(slot) == card::kDualSerial;
}

bool CHardware::HasAnalogOutput(int channel) const {
    if (channel < 1 || channel > card::SecondChannel(card::kSlots)) return false;
    if (channel > card::kSlots) return CodeIn(channel - card::kSlots) == card::kDualAnalogOutput;
    return CodeIn(channel) == card::kAnalogOutput || CodeIn(channel) == card::kDualAnalogOutput;
}

bool CHardware::HasDigitalIO(int number) const {
    if (number < 1 || number > card::kSlots) return number == kMainBoard;
    return CodeIn(number) == card::kDigitalIO;
}

bool CHardware::HasMemoryCard(int slot) const {
    return slot >= 1 && slot <= card::kSlots && CodeIn(slot) == card::kMemory;
}

template <class Map>
auto& CHardware::NeedObject(Map& objects, int number, bool exists, const char* operation) const {
    Need(operation);
    const auto found = objects.find(number);
    if (exists && found != objects.end()) return found->second;
    constexpr int kInstalled = 4591;
    throw Error(code::kOutOfRange, std::string("Calyx.CHardware.") + operation,
                Context().texts.Format(code::kOutOfRange,
                                       {std::to_string(number), Context().texts.Text(kInstalled)}));
}

void CHardware::NeedSlot(int slot, const char* operation) const {
    Need(operation);
    if (slot >= 1 && slot <= card::kSlots) return;
    throw Error(code::kOutOfRange, std::string("Calyx.CHardware.") + operation,
                Context().texts.Format(code::kOutOfRange, {std::to_string(slot), "1 to 14"}));
}

const CCommPort& CHardware::CommPort(int port) const {
    return NeedObject(ports_, port, HasPort(port), "CommPort");
}
CCommPort& CHardware::CommPort(int port) {
    return NeedObject(ports_, port, HasPort(port), "CommPort");
}
const CAnalogOut& CHardware::AnalogOutput(int channel) const {
    return NeedObject(analog_, channel, HasAnalogOutput(channel), "AnalogOutput");
}
CAnalogOut& CHardware::AnalogOutput(int channel) {
    return NeedObject(analog_, channel, HasAnalogOutput(channel), "AnalogOutput");
}
const CDigitalIO& CHardware::DigitalIO(int number) const {
    return NeedObject(digital_, number, HasDigitalIO(number), "DigitalIO");
}
CDigitalIO& CHardware::DigitalIO(int number) {
    return NeedObject(digital_, number, HasDigitalIO(number), "DigitalIO");
}

const CMemoryCard& CHardware::MemoryCard(int slot) const {
    return NeedObject(memory_, slot, HasMemoryCard(slot), "MemoryCard");
}
CMemoryCard& CHardware::MemoryCard(int slot) {
    return NeedObject(memory_, slot, HasMemoryCard(slot), "MemoryCard");
}
std::vector<int> CHardware::MemoryCards() const {
    return Numbers(memory_, [&](int slot) { return HasMemoryCard(slot); });
}

std::vector<int> CHardware::CommPorts() const {
    return Numbers(ports_, [&](int number) { return HasPort(number); });
}
std::vector<int> CHardware::AnalogOutputs() const {
    return Numbers(analog_, [&](int number) { return HasAnalogOutput(number); });
}
std::vector<int> CHardware::DigitalIOs() const {
    return Numbers(digital_, [&](int number) { return HasDigitalIO(number); });
}

std::string CHardware::InputOf(int port) const {
    return HasPort(port) ? std::string(CommPort(port).Values().inputType.Trimmed()) : std::string();
}

int CHardware::MaxCommPorts() const {
    Need("MaxCommPorts");
    return CommPorts().back();
}

bool CHardware::ExpansionBoardPresent() const {
    Need("ExpansionBoardPresent");
    return std::any_of(slots_.fields.codes.begin(), slots_.fields.codes.end(),
                       [](std::int32_t code) { return !card::IsEmpty(code); });
}

std::vector<int> CHardware::SlotsWith(std::int32_t code) const {
    std::vector<int> slots;
    for (int slot = 1; slot <= card::kSlots; ++slot) {
        if (CodeIn(slot) == code) slots.push_back(slot);
    }
    return slots;
}

}  // namespace calyx
