#include "comm/firmware_keys.h"

#include <memory>
#include <unordered_map>

#include "model/language/text.h"

namespace calyx {

CIndicator FullDocument(const ModelContext& context) {
    CIndicator document(context);
    document.Initialize();
    const std::int32_t cards[] = {card::kDualSerial, card::kDualAnalogOutput, card::kDigitalIO,
                                  card::kFirstFieldbus, card::kMemory};
    for (int slot = 1; slot <= static_cast<int>(std::size(cards)); ++slot) {
        document.ChangeCard(slot, cards[slot - 1]);
    }
    document.Hardware().MemoryCard(static_cast<int>(std::size(cards))).AddSample();
    document.Widgets().Add(WidgetKind::Label, 1);
    document.Import({{"EDP.INPUT#2", "SCALE"},
                     {"EDP.INPUT#3", "VEXAL"},
                     {"EDP.INPUT#4", "IND SC"},
                     {"EDP.SOURCE#1", "SCALE1"},
                     {"EDP.STREAM#1", "CONT"}});
    const char* sources[] = {"A,1", "S,2", "T,1", "S,3.1", "P,5", "B,1", "B,2", "B,3", "S,4"};
    int scale = 0;
    for (const char* source : sources) {
        const std::string number = std::to_string(++scale);
        document.Import({{"SC.SRC#" + number, source}, {"SC.SPLIT#" + number, "2RANGE"}});
    }
    document.Import({{"SC.INPRNG#7", "20MA"}, {"SC.INPRNG#8", "THERM"}});
    if (const CTextList* split = context.lists.List("SC.SPLIT"))
        document.Import({{"SC.SPLIT#1", split->Last()}});
    int setpoint = 0;
    const CTextList* kinds = context.lists.List("SP.KINDS");
    for (const auto& kind : *kinds) {
        const std::string number = std::to_string(++setpoint);
        document.Import({{"SP.KIND#" + number, kind.key}, {"SP.DSLOT#" + number, "SLOT3"}});
    }
    document.Import({{"SP.PREACT#2", "LEARN"}, {"SP.TOLBAND#2", "1"}, {"SP.TRIP#3", "INBAND"}});
    return document;
}

// A layout may depend on the fields; with every switch on, all that the section can write is written.
Gate WidestGate(const Item& item, std::size_t row) {
    const auto full = item.Clone();
    for (std::size_t i = 0; i < full->RowCount(); ++i) {
        const bool isSwitch = full->Info(i).kind == ValueKind::Switch && full->Info(i).more.use == Use::Line;
        if (isSwitch) full->Take(i, full->Text(i) == "False" ? "True" : "ON");
    }
    return item.GateOf(row) | full->GateOf(row);
}

std::string KeyPattern(const std::string& key) {
    const std::size_t mark = key.rfind('#');
    const bool numbered = mark != std::string::npos && mark + 1 < key.size() &&
                          key.find_first_not_of("0123456789", mark + 1) == std::string::npos;
    return numbered ? key.substr(0, mark + 1) + "n" : key;
}

std::function<bool(std::string_view key)> KeysKnownTo(const ModelContext& context, const Target& target) {
    struct Known {
        CIndicator document;
        std::unordered_map<std::string, Gate> gates;  // by pattern in capitals
    };
    const auto known = std::make_shared<Known>(Known{FullDocument(context), {}});
    for (const Section* section : known->document.Sections()) {
        for (const Item* item : section->Items()) {
            for (std::size_t row = 0; row < item->RowCount(); ++row) {
                if (item->Info(row).more.use == Use::Page) continue;
                Gate& gate =
                    known->gates.try_emplace(Upper(KeyPattern(item->Key(row))), Gate{0}).first->second;
                gate = gate | WidestGate(*item, row);
            }
        }
    }
    return [known, target](std::string_view key) {
        const auto found = known->gates.find(Upper(KeyPattern(std::string(key))));
        if (found != known->gates.end()) return target.Opens(found->second);
        // Lines without a fixed table: tables of the database.
        return known->document.OwnerOf(key) != nullptr;
    };
}

}  // namespace calyx
