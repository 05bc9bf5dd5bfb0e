#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/cards/analog_out.h"
#include "model/cards/card_lists.h"
#include "model/cards/card_types.h"
#include "model/cards/digital_io.h"
#include "model/database/memory_card.h"
#include "model/hardware/slot_fields.h"
#include "model/language/section.h"
#include "model/ports/comm_port.h"

namespace calyx {

// The installed hardware: which card sits in which of the 14 expansion slots, and what the cards bring:
// serial ports, analog outputs, digital points, a memory card. Ports 1 to 4 and the digital points of
// number 0 belong to the main board and always exist.
//
// Everything before Initialize raises 10006. Operations on cards raise 10002 for a slot outside 1 to 14 or an
// object that is not there.
class CHardware : public Section {
  public:
    explicit CHardware(const ModelContext& context);

    std::string_view Name() const override { return "hardware"; }
    int Title() const override { return 2121; }
    std::vector<Item*> Items() override;
    void Initialize() override;
    void RestoreState(Dictionary& lines, ReadReport& report) override;
    // HARDWARE, every port with its stream, analog outputs, digital points, memory cards.
    void AppendState(std::string& out) const override;
    void AppendLines(std::string& out, const Target& target) const override;  // the same, gated
    // The line HARDWARE alone, which no version gates.
    void AppendText(std::string& out, const Target& target) const override;
    std::string GetPrintOutput() const override;
    std::string GetIWriteImportDef() const override;
    bool Owns(std::string_view key) const override;
    bool IsDirty() const override;
    void MarkSaved() override;

    std::int32_t CardType(int slot) const;  // card::kEmptySlot for none
    // Puts a card into a slot; what it brings starts from its defaults. Code 14 leaves the slot as it is,
    // on purpose; codes from 18 on are kept and bring nothing.
    void AddNewCard(int slot, std::int32_t code);
    void RemoveExistingCard(int slot);  // with what the card brought
    // The text of the line HARDWARE with another card in a slot.
    std::string HardwareWith(int slot, std::int32_t code) const;

    // What a connected indicator reports: the value of its own line HARDWARE. Empty: none is connected.
    void UpdateFromIndicator(std::string_view reported);
    bool HasLiveCards() const { return live_.has_value(); }
    std::int32_t LiveCardType(int slot) const;  // card::kEmptySlot also where nothing was reported
    bool DiffersFromLive(int slot) const;       // never while nothing was reported
    CBrokenRules ValidateLiveHardware() const;  // where the slots differ from the reported ones

    bool HasPort(int port) const;
    const CCommPort& CommPort(int port) const;
    CCommPort& CommPort(int port);
    std::vector<int> CommPorts() const;   // ascending
    std::string InputOf(int port) const;  // "" for a port that does not exist
    int MaxCommPorts() const;             // the highest port number there is

    bool HasAnalogOutput(int channel) const;
    const CAnalogOut& AnalogOutput(int channel) const;
    CAnalogOut& AnalogOutput(int channel);
    std::vector<int> AnalogOutputs() const;

    bool HasDigitalIO(int number) const;  // 0 the main board, else the slot
    const CDigitalIO& DigitalIO(int number) const;
    CDigitalIO& DigitalIO(int number);
    std::vector<int> DigitalIOs() const;
    int MaxDigitalIOCards() const { return card::kSlots; }

    bool HasMemoryCard(int slot) const;
    const CMemoryCard& MemoryCard(int slot) const;
    CMemoryCard& MemoryCard(int slot);
    std::vector<int> MemoryCards() const;  // slots

    bool ExpansionBoardPresent() const;  // any card in any slot
    std::vector<int> SlotsWith(std::int32_t code) const;

    const CCommPortLists& PortLists() const { return portLists_; }
    const CAnalogLists& AnalogLists() const { return analogLists_; }
    const CDigitalIOLists& DigitalIOLists() const { return digitalLists_; }

    // What a download sends of each part, gated by the target.
    void AppendPorts(std::string& out, const Target& target) const;
    void AppendAnalog(std::string& out, const Target& target) const;
    void AppendDigitalIO(std::string& out, const Target& target) const;
    void AppendDatabase(std::string& out, const Target& target) const;

    // The rules that each kind of object keeps by itself.
    void ValidateCommPorts(CBrokenRules& rules) const;
    void ValidateAnalog(CBrokenRules& rules) const;
    void ValidateDigital(CBrokenRules& rules) const;

  protected:
    void Prepare(std::vector<Change>& changes, Check check, const ValueOf& valueOf) override;
    void AddBrokenRules(CBrokenRules& rules) const override;

  private:
    void Need(const char* operation) const;
    std::int32_t CodeIn(int slot) const;  // of a slot that is one
    void SetCard(int slot, std::int32_t code);
    void MakeRoom();  // makes the objects that the slots call for and that are not there
    template <class Map>
    auto& NeedObject(Map& objects, int number, bool exists, const char* operation) const;
    void NeedSlot(int slot, const char* operation) const;

    CCommPortLists portLists_;
    CAnalogLists analogLists_;
    CDigitalIOLists digitalLists_;
    RowItem<SlotFields> slots_;
    bool initialised_ = false;
    // Objects whose card was taken out stay here until the next save: putting the card back, or undoing,
    // then knows what was saved.
    std::map<int, CCommPort> ports_;
    std::map<int, CAnalogOut> analog_;
    std::map<int, CDigitalIO> digital_;
    std::map<int, CMemoryCard> memory_;
    std::optional<std::array<std::int32_t, card::kSlots>> live_;
};

}  // namespace calyx
