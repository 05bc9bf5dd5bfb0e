#include "comm/comparison.h"

#include <unordered_set>

#include "model/language/text.h"

namespace calyx {

namespace {

constexpr std::string_view kVersion = "VERSION";  // the firmware's own; never sent

// Whether the parameter understands the indicator's text and would write it as it was sent.
bool SaysTheSame(const Item& item, std::size_t row, std::string_view held, const std::string& sent,
                 const Target& target) {
    const RowInfo& info = item.Info(row);
    const CTextList* list = item.List(row);
    if (list != nullptr && info.more.older != nullptr) held = info.more.older(held, *list);
    const auto trial = item.Clone();
    return trial->Take(row, held) == Taken::Whole && trial->Text(row, target) == sent;
}

bool SaysTheSame(const CIndicator& document, const KeyValue& sent, const std::string& held,
                 const Target& target) {
    for (const Section* section : document.Sections()) {
        if (!section->Owns(sent.key)) continue;
        for (const Item* item : section->Items()) {
            // Lines that are only kept have no second way of writing.
            if (item->Adopts(sent.key)) return false;
            const auto row = item->Find(sent.key);
            if (row && item->Info(*row).more.use != Use::Page)
                return SaysTheSame(*item, *row, held, sent.value, target);
        }
    }
    return false;
}

}  // namespace

Held::Held(const ModelContext& context, std::string dump, const std::string& where)
    : lines(ReadLines(dump)), document(context), text(dump) {
    std::erase_if(lines, [](const KeyValue& line) { return EqualNoCase(line.key, kVersion); });
    index_.reserve(lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) index_.emplace(Upper(lines[i].key), i);
    document.LoadText(std::move(dump), where);
}

const std::string* Held::Find(std::string_view key) const {
    const auto found = index_.find(Upper(key));
    return found == index_.end() ? nullptr : &lines[found->second].value;
}

bool Held::Holds(const KeyValue& sent, const Target& target) const {
    const std::string* held = Find(sent.key);
    return held != nullptr && (*held == sent.value || SaysTheSame(document, sent, *held, target));
}

std::vector<KeyValue> SentLines(const CIndicator& document, unsigned groups, const Target& target) {
    DownloadOptions options;
    options.mask = groups & ~download_option::chkCODFile;
    std::vector<KeyValue> lines;
    for (const std::string& line : SendingOrder(document, options, target)) {
        const std::size_t equals = line.find('=');  // none: a command
        if (equals != std::string::npos) lines.push_back({line.substr(0, equals), line.substr(equals + 1)});
    }
    return lines;
}

ChangeSet AgainstIndicator(const CIndicator& document, const Held& held, unsigned groups,
                           const Target& target) {
    const std::vector<KeyValue> sent = SentLines(document, groups, target);
    std::vector<KeyValue> holds;
    std::unordered_set<std::string> seen;
    for (const KeyValue& line : sent) {
        const std::string key = Upper(line.key);
        seen.insert(key);
        const std::string* text = held.Find(key);
        if (text == nullptr) continue;
        const bool same = *text == line.value || SaysTheSame(document, line, *text, target);
        holds.push_back({line.key, same ? line.value : *text});
    }
    for (const KeyValue& line : SentLines(held.document, groups, target)) {
        const std::string key = Upper(line.key);
        const std::string* text = held.Find(key);
        if (text != nullptr && seen.insert(key).second) holds.push_back({line.key, *text});
    }
    return Difference(sent, holds);
}

}  // namespace calyx
