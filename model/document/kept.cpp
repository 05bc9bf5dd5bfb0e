#include "model/document/kept.h"

#include <set>
#include <utility>

#include "model/language/text.h"

namespace calyx {

namespace {

// What an indicator tells and no file holds is not lost by saving.
bool IsOnlyRead(const CIndicator& document, const std::string& key) {
    for (const Section* section : document.Sections()) {
        for (const Item* item : section->Items()) {
            if (const auto row = item->Find(key)) return item->Info(*row).more.use == Use::ReadOnly;
        }
    }
    return false;
}

}  // namespace

std::vector<Refusal> NotKept(const std::vector<KeyValue>& before, const CIndicator& after,
                             std::vector<std::string> named) {
    std::set<std::string> known;
    for (const std::string& key : named) known.insert(Upper(key));
    for (const KeyValue& line : after.Lines()) known.insert(Upper(line.key));
    for (const KeyValue& line : before) {
        if (known.insert(Upper(line.key)).second) named.push_back(line.key);
    }
    if (named.empty()) return {};
    std::vector<Refusal> lost = after.NotKept(named);
    std::erase_if(lost, [&](const Refusal& value) { return IsOnlyRead(after, value.key); });
    return lost;
}

}  // namespace calyx
