#include "model/language/section.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "model/language/text.h"

namespace calyx {

namespace {

// Resource texts of the generic checks.
constexpr int kNotInList = 2901;          // {1} label, {2} value, {3} the allowed words
constexpr int kOutOfRangeText = 2902;     // {1} label, {2} value, {3} least, {4} most, {5} unit
constexpr int kNotUnderstood = 2903;      // {1} label, {2} value, {3} what is expected
constexpr int kTooLong = 2904;            // {1} label, {2} most characters, {3} what was kept
constexpr int kDecidedElsewhere = 2905;   // {1} key, {2} value that stands
constexpr int kNoSuchItem = 2908;         // {1} key
constexpr int kLineBreak = 2909;          // {1} key
constexpr int kReadOnlyParameter = 2907;  // {1} label
constexpr int kNoChoice = 2919;           // stands for an empty choice in listings
constexpr int kKindWords = 2910;          // 2910 + kind: "text", "a whole number", ...

std::string Label(const ModelContext& context, const Item& item, std::size_t row) {
    const int label = item.Info(row).more.label;
    return label == 0 ? item.Key(row) : context.texts.Text(label);
}

std::string Number(double value) {
    std::string text;
    AppendInteger(text, static_cast<std::int64_t>(value));
    if (value != std::floor(value)) {
        text.clear();
        AppendSingle(text, static_cast<float>(value));
    }
    return text;
}

std::string JoinKeys(const CTextList& list) {
    std::string keys;
    for (const auto& entry : list) keys += (keys.empty() ? "" : ", ") + entry.key;
    return keys;
}

// Why a value that the row has taken is out of its range; empty when it is not.
std::string RangeFault(const ModelContext& context, const Item& item, std::size_t row,
                       const std::string& text) {
    const More& more = item.Info(row).more;
    if (!more.HasRange()) return {};
    // A word may stand before the number: "SCALE3".
    const std::size_t start = text.find_first_of("0123456789+-.");
    const auto number = start == std::string::npos ? std::nullopt : ReadDecimal(text.substr(start));
    if (!number || (number->value >= more.min && number->value <= more.max)) return {};
    std::string unit(more.unit);
    if (!unit.empty()) unit.insert(0, " ");
    return context.texts.Format(kOutOfRangeText,
                                {Label(context, item, row), text, Number(more.min), Number(more.max), unit});
}

// Why a word is not one of the row's list; empty when it is.
std::string ListFault(const ModelContext& context, const Item& item, std::size_t row, std::string_view word) {
    const CTextList* list = item.Info(row).IsHeldToList() ? item.List(row) : nullptr;
    if (list == nullptr || list->ValidateItem(Trim(word))) return {};
    return context.texts.Format(kNotInList, {Label(context, item, row), word, JoinKeys(*list)});
}

// A key and a value that fit in one line.
bool FitsInALine(const Change& change) {
    constexpr const char* kLineEnds = "\r\n";
    if (change.key.empty() || change.key.find_first_of("=\r\n") != std::string::npos) return false;
    return !change.after || change.after->find_first_of(kLineEnds) == std::string::npos;
}

// Rows that are read under another key than they are written: as in a file, only that one counts.
bool IsPassedOver(const Item& item, std::string_view key) {
    const auto row = item.Find(key);
    return row && !item.Info(*row).more.readAs.empty();
}

std::optional<std::size_t> RowFor(const Item& item, std::string_view key, Section::Check check) {
    for (std::size_t row = 0; check == Section::Check::Lenient && row < item.RowCount(); ++row) {
        const std::string_view readAs = item.Info(row).more.readAs;
        if (!readAs.empty() && EqualNoCase(key, detail::Numbered(readAs, item.Number()))) return row;
    }
    return item.Find(key);
}

// The changes of one item, merged into its own: rows that share a field with a changed one are read
// again in table order, so that the item ends as if a file had these lines.
class Merge {
  public:
    Merge(const ModelContext& context, Item& item) : context_(context), item_(item), scratch_(item.Clone()) {}

    void Add(std::size_t row, const Change& change, Section::Check check, std::vector<Refusal>& refused) {
        std::string value = change.after ? *change.after : item_.InitialText(row);
        // Words of older firmware are taken wherever lines are.
        const auto older = item_.Info(row).more.older;
        if (older != nullptr && check != Section::Check::None && item_.List(row) != nullptr)
            value = std::string(older(value, *item_.List(row)));
        if (check == Section::Check::Lenient) {
            const std::string initial = item_.InitialText(row);
            value = detail::CheckList(item_.Info(row), item_.List(row), value, initial).text;
        }
        std::string fault = check == Section::Check::None ? std::string() : Fault(row, value, check);
        const bool stays = !fault.empty() && check == Section::Check::Strict;
        if (fault.empty() && check != Section::Check::None && scratch_->Take(row, value) == Taken::Cut) {
            fault = context_.texts.Format(
                kTooLong,
                {Label(context_, item_, row), std::to_string(item_.Info(row).width), scratch_->Text(row)});
        }
        if (!fault.empty()) refused.push_back({change.key, change.after.value_or(""), std::move(fault)});
        if (!stays) wanted_.push_back({row, change.key, std::move(value)});
    }

    void Finish(Section::Check check, std::vector<Refusal>& refused) {
        std::vector<std::optional<std::string>> texts(wanted_.empty() ? 0 : item_.RowCount());
        for (std::size_t i = 0; i < texts.size(); ++i) {
            if (SharesWithWanted(i)) texts[i] = item_.Text(i);
        }
        for (const Wish& wish : wanted_) texts[wish.row] = wish.value;
        for (const bool page : {false, true}) {
            for (std::size_t i = 0; i < texts.size(); ++i) {
                if (texts[i] && (item_.Info(i).more.use == Use::Page) == page) item_.Take(i, *texts[i]);
            }
        }
        if (check == Section::Check::Lenient) item_.Settle();
        if (check == Section::Check::None) return;
        for (const auto& [row, key, value] : wanted_) {
            // A value that stands changes nothing when it is taken once more.
            const auto again = item_.Clone();
            again->Take(row, value);
            const std::string now = item_.Text(row);
            if (again->Text(row) == now) continue;
            refused.push_back({key, value, context_.texts.Format(kDecidedElsewhere, {key, now})});
        }
    }

  private:
    struct Wish {
        std::size_t row;
        std::string key, value;
    };

    // Why a value cannot be taken as given; empty when it can. Lenient takes what a file may hold.
    std::string Fault(std::size_t row, const std::string& value, Section::Check check) {
        const RowInfo& info = item_.Info(row);
        const std::string label = Label(context_, item_, row);
        if (check == Section::Check::Strict) {
            if (info.more.use == Use::ReadOnly) return context_.texts.Format(kReadOnlyParameter, {label});
            std::string fault = ListFault(context_, item_, row, value);
            if (!fault.empty()) return fault;
        }
        const Taken taken = scratch_->Take(row, value);
        if (taken == Taken::Not || taken == Taken::Part) {
            const std::string expected = info.words.empty()
                                             ? context_.texts.Text(kKindWords + static_cast<int>(info.kind))
                                             : std::string(info.words);
            return context_.texts.Format(kNotUnderstood, {label, value, expected});
        }
        return check == Section::Check::Strict ? RangeFault(context_, item_, row, scratch_->Text(row))
                                               : std::string();
    }

    // Another line of the same field, which has its say when this one changes.
    bool SharesWithWanted(std::size_t row) const {
        const auto place = item_.Place(row);
        return !place.empty() && item_.Info(row).more.use != Use::Page &&
               std::any_of(wanted_.begin(), wanted_.end(), [&](const Wish& wish) {
                   return item_.Info(wish.row).more.use != Use::Page &&
                          item_.Place(wish.row).data() == place.data();
               });
    }

    const ModelContext& context_;
    Item& item_;
    std::unique_ptr<Item> scratch_;  // tries values
    std::vector<Wish> wanted_;
};

}  // namespace

bool SendLines(std::string_view text, ILineSender& sender, IDownload& download) {
    bool going = true;
    ForEachLine(text, [&](std::string_view line) {
        // The trimmed form decides whether a line is empty; the line itself goes untrimmed.
        if (!going || Trim(line).empty() || sender.SendLine(line)) return;
        going = !download.ErrorAction(std::string(line));
    });
    return going;
}

void Section::Initialize() {
    for (Item* item : Items()) item->Initialize();
}

void Section::RestoreState(Dictionary& lines, ReadReport& report) {
    report.Enter(std::string(Name()));
    for (Item* item : Items()) item->Restore(lines, report);
}

void Section::AppendText(std::string& out, const Target& target) const {
    for (const Item* item : Items()) item->Append(out, target);
}

std::string Section::StoreState() const {
    std::string text;
    AppendState(text);
    return text;
}

std::string Section::GetTextOutput(bool allParameters) const {
    std::string text;
    AppendText(text, allParameters ? Target::Everything() : context_->target.Gated());
    return text;
}

std::string Section::GetPrintOutput() const {
    std::string listing;
    for (const Item* item : Items()) listing += ItemListing(*item);
    return listing.empty() ? listing : context_->texts.Text(Title()) + "\r\n" + listing;
}

std::string Section::ItemListing(const Item& item, bool titled) const {
    std::string rows;
    const std::vector<bool> written = item.WrittenRows();
    for (std::size_t i = 0; i < item.RowCount(); ++i) {
        const More& more = item.Info(i).more;
        const bool shown = more.use == Use::ReadOnly || written[i];
        std::string value = shown ? DisplayText(item, i) : std::string();
        if (shown && value.empty() && item.List(i) != nullptr) value = context_->texts.Text(kNoChoice);
        if (value.empty()) continue;
        rows.append("  ").append(Label(*context_, item, i)).append(": ").append(value);
        if (!more.unit.empty()) rows.append(" ").append(more.unit);
        rows += "\r\n";
    }
    const std::string title = titled && !rows.empty() ? ItemTitle(item) : std::string();
    return title.empty() ? rows : title + "\r\n" + rows;
}

std::string Section::ItemTitle(const Item& item) const {
    if (item.Title() == 0) return {};
    return context_->texts.Format(item.Title(), {std::to_string(item.Number())});
}

bool Section::SendToIndicator(ILineSender& sender, IDownload& download) const {
    return SendLines(GetTextOutput(false), sender, download);
}

bool Section::IsDirty() const {
    const auto items = Items();
    return std::any_of(items.begin(), items.end(), [](const Item* item) { return item->IsDirty(); });
}

void Section::MarkSaved() {
    for (Item* item : Items()) item->MarkSaved();
}

CBrokenRules Section::BrokenRules() const {
    CBrokenRules rules;
    for (const Item* item : Items()) {
        const std::vector<bool> written = item->WrittenRows();
        for (std::size_t i = 0; i < item->RowCount(); ++i) {
            if (!written[i]) continue;
            const More& more = item->Info(i).more;
            if (!more.HasRange() && more.rule == nullptr && !item->Info(i).IsHeldToList()) continue;
            const std::string text = item->Text(i);
            std::string fault = ListFault(*context_, *item, i, text);
            if (fault.empty()) fault = RangeFault(*context_, *item, i, text);
            const int broken = more.rule == nullptr ? 0 : more.rule(text);
            if (broken != 0) fault = context_->texts.Format(broken, {Label(*context_, *item, i), text});
            if (!fault.empty())
                rules.Add({std::string(Name()), item->Number(), item->Key(i), std::move(fault)});
        }
    }
    AddBrokenRules(rules);
    return rules;
}

std::vector<const Item*> Section::Items() const {
    // The items are the section's own members; this only looks at them.
    const auto items = const_cast<Section*>(this)->Items();
    return {items.begin(), items.end()};
}

std::vector<KeyValue> Section::State() const {
    std::vector<KeyValue> state;
    for (const Item* item : Items()) {
        for (std::size_t i = 0; i < item->RowCount(); ++i) {
            if (item->Info(i).more.use != Use::Page) state.push_back({item->Key(i), item->Text(i)});
        }
    }
    return state;
}

std::vector<Refusal> Section::Take(std::vector<Change> changes, Check check, const ValueOf& valueOf) {
    std::vector<Refusal> refused;
    Prepare(changes, check, valueOf);
    std::vector<bool> found(changes.size(), false);
    for (Item* item : Items()) {
        std::optional<Merge> merge;  // made for the items that are concerned
        for (std::size_t i = 0; i < changes.size(); ++i) {
            const Change& change = changes[i];
            if (found[i]) continue;
            if (!FitsInALine(change)) {
                refused.push_back({change.key, change.after.value_or(""),
                                   context_->texts.Format(kLineBreak, {change.key})});
                found[i] = true;
                continue;
            }
            if (check == Check::Lenient && IsPassedOver(*item, change.key)) {
                found[i] = true;
            } else if (item->Adopts(change.key)) {
                change.after ? item->Adopt(change.key, *change.after) : item->Drop(change.key);
                found[i] = true;
            } else if (const auto row = RowFor(*item, change.key, check)) {
                if (!merge) merge.emplace(*context_, *item);
                merge->Add(*row, change, check, refused);
                found[i] = true;
            }
        }
        if (merge) merge->Finish(check, refused);
    }
    for (std::size_t i = 0; i < changes.size(); ++i) {
        // A line that goes, of an item that has gone, is no fault.
        if (found[i] || check == Check::None || !changes[i].after || !Owns(changes[i].key)) continue;
        refused.push_back({changes[i].key, changes[i].after.value_or(""),
                           context_->texts.Format(kNoSuchItem, {changes[i].key})});
    }
    return refused;
}

bool Section::Owns(std::string_view key) const {
    for (const Item* item : Items()) {
        if (item->Adopts(key) || item->Find(key)) return true;
    }
    return false;
}

}  // namespace calyx
