// What the hardware writes: lines, listing, constants.

#include "model/hardware/hardware.h"
#include "model/language/text.h"

namespace calyx {

namespace {
constexpr std::array<std::string_view, 6> kPrefixes{"HARDWARE", "EDP.", "STR.", "ALG.", "DIO.", "DB."};
}

bool CHardware::Owns(std::string_view key) const {
    if (EqualNoCase(key, kPrefixes[0])) return true;
    for (std::size_t i = 1; i < kPrefixes.size(); ++i) {
        if (StartsNoCase(key, kPrefixes[i])) return true;
    }
    return false;
}

void CHardware::AppendText(std::string& out, const Target& target) const {
    Need("GetTextOutput");
    slots_.Append(out, target);
}

void CHardware::AppendState(std::string& out) const {
    Need("StoreState");
    AppendLines(out, Target::Everything());
}

void CHardware::AppendLines(std::string& out, const Target& target) const {
    AppendText(out, target);
    for (const int number : CommPorts()) {
        const CCommPort& port = CommPort(number);
        port.Parameters().Append(out, target);
        port.Stream().Parameters().Append(out, target);
    }
    AppendAnalog(out, target);
    AppendDigitalIO(out, target);
    AppendDatabase(out, target);
}

void CHardware::AppendPorts(std::string& out, const Target& target) const {
    for (const int port : CommPorts()) CommPort(port).AppendSent(out, target);
}

void CHardware::AppendAnalog(std::string& out, const Target& target) const {
    for (const int channel : AnalogOutputs()) AnalogOutput(channel).Parameters().Append(out, target);
}

void CHardware::AppendDigitalIO(std::string& out, const Target& target) const {
    for (const int number : DigitalIOs()) DigitalIO(number).Parameters().Append(out, target);
}

void CHardware::AppendDatabase(std::string& out, const Target& target) const {
    for (const int slot : MemoryCards()) MemoryCard(slot).AppendText(out, target);
}

std::string CHardware::GetPrintOutput() const {
    Need("GetPrintOutput");
    // The slots by the names of their cards, then what they bring. A stream is listed where it is in use.
    const ResourceTexts& texts = Context().texts;
    constexpr int kSlotLine = 4590;  // {1} slot, {2} card
    std::string listing = texts.Text(Title()) + "\r\n";
    for (int slot = 1; slot <= card::kSlots; ++slot) {
        if (card::IsEmpty(CardType(slot))) continue;
        listing += "  " +
                   texts.Format(kSlotLine, {std::to_string(slot), texts.Text(card::Name(CardType(slot)))}) +
                   "\r\n";
    }
    const auto add = [&](const Item& item, bool titled = true) { listing += ItemListing(item, titled); };
    for (const int port : CommPorts()) {
        add(CommPort(port).Parameters());
        if (CommPort(port).Values().streamFormat.Trimmed() == "CUSTOM") {
            add(CommPort(port).Stream().Parameters(), false);
        }
    }
    for (const int channel : AnalogOutputs()) add(AnalogOutput(channel).Parameters());
    for (const int number : DigitalIOs()) add(DigitalIO(number).Parameters());
    CHardware copy = *this;  // the card's tables are asked for as items
    for (const int slot : MemoryCards()) {
        for (const Item* table : copy.MemoryCard(slot).Items()) add(*table);
    }
    return listing;
}

std::string CHardware::GetIWriteImportDef() const {
    Need("GetIWriteImportDef");
    std::string text = "-- Serial Port Aliases\r\n";
    for (const int port : CommPorts()) text += CommPort(port).GetIWriteImportDef();
    text += "-- Analog Output Card Aliases\r\n";
    for (const int channel : AnalogOutputs()) text += AnalogOutput(channel).GetIWriteImportDef();
    text += "-- Digital I/O Aliases\r\n";
    for (const int number : DigitalIOs()) text += DigitalIO(number).GetIWriteImportDef();
    text += "-- Database Type Definitions and Field Aliases\r\n";
    for (const int slot : MemoryCards()) text += MemoryCard(slot).GetIWriteImportDef();
    return text;
}

}  // namespace calyx
