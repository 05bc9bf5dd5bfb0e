#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/language/context.h"
#include "model/language/dictionary.h"
#include "model/language/read_report.h"
#include "model/language/row.h"

namespace calyx {

// One item of a section (a scale, a port, the general features) as everyone outside sees it: numbered
// rows, each with its row information, its key and its text. Row numbers are places in the table.
class Item {
  public:
    virtual ~Item() = default;

    virtual int Number() const = 0;          // 1-based; 0: the section has no numbered items
    virtual int Title() const { return 0; }  // resource text of its name, {1} the number; 0: none
    virtual std::size_t RowCount() const = 0;
    virtual const RowInfo& Info(std::size_t row) const = 0;
    virtual std::string Key(std::size_t row) const = 0;
    virtual const CTextList* List(std::size_t row) const = 0;  // nothing: the row has no list
    virtual std::string Text(std::size_t row, const Target& target = Target::Everything()) const = 0;
    virtual std::string InitialText(std::size_t row) const = 0;
    virtual Taken Take(std::size_t row, std::string_view text) = 0;
    // Where the row's value stands; rows of one place share a field. Empty: it shares with none.
    virtual std::span<const std::byte> Place(std::size_t) const { return {}; }
    // The row of a key, without regard to case.
    virtual std::optional<std::size_t> Find(std::string_view key) const = 0;
    // The layout's entries in the order of writing. `met`: the entry's condition holds at present.
    virtual void EachLine(const std::function<void(std::size_t row, Gate gate, bool met)>& visit) const = 0;

    virtual void Initialize() = 0;
    virtual void Restore(Dictionary& lines, ReadReport& report) = 0;
    // The lines of one part, or of all; calibration stands behind the parameters.
    virtual void Append(std::string& out, const Target& target,
                        std::optional<LinePart> part = std::nullopt) const = 0;
    // What the values decide together, once lines have been taken as a file has them.
    virtual void Settle() {}
    virtual bool IsDirty() const = 0;
    virtual void MarkSaved() = 0;
    virtual std::unique_ptr<Item> Clone() const = 0;

    // Items whose parameters are not a fixed table take in and give up lines.
    virtual bool Adopts(std::string_view) const { return false; }
    virtual void Adopt(std::string_view /*key*/, std::string_view /*value*/) {}
    virtual void Drop(std::string_view /*key*/) {}

    // All versions in which the row's line may be written; ungated where one of its entries is.
    virtual Gate GateOf(std::size_t row) const;
    // Whether the row's line is in the file at present.
    virtual bool IsWritten(std::size_t row) const;
    std::vector<bool> WrittenRows() const;  // the same for all rows
};

// The value with the display text of its list entry, or as it stands.
std::string DisplayText(const Item& item, std::size_t row);

namespace detail {
std::string Numbered(std::string_view pattern, int number);  // "{n}" becomes the number
std::string InitialText(const RowInfo& info, int number, const CTextList* list);
// 20005 for a list that the catalogue does not have.
const CTextList* NeedList(std::string_view name, const ModelContext& context);
// Whether the initial value depends on the item's number.
bool IsNumbered(const RowInfo& info);
// Nothing for a row without a list.
const CTextList* FindList(const RowInfo& info, int number, const ModelContext& context);
// The text to take for a value read from a file: itself, or what a word outside its list becomes.
struct Checked {
    std::string_view text;
    bool replaced = false;
};
Checked CheckList(const RowInfo& info, const CTextList* list, std::string_view value,
                  const std::string& initial);
void Report(ReadReport& report, const Dictionary::Entry& entry, Taken taken, bool replaced,
            std::string became);
void ReportUnwritten(ReadReport& report, const Dictionary::Entry& entry);
}  // namespace detail

// Finds rows by their stems, without regard to case.
class StemIndex {
  public:
    static constexpr std::size_t kNone = ~std::size_t{0};

    explicit StemIndex(std::size_t most = 0);
    void Add(std::string_view stem, std::size_t row);  // of rows with one stem the first counts
    std::size_t Find(std::string_view stem) const { return places_[At(stem)].row; }

  private:
    struct Place {
        std::string_view stem;
        std::size_t row = kNone;
    };
    std::size_t At(std::string_view stem) const;

    std::vector<Place> places_;  // size a power of two, never full
    int shift_;                  // from a hash to its place
};

// What the items of one table and the same lists have in common; made once and shared.
template <class F>
struct RowPlan {
    std::vector<const CTextList*> lists;  // one a row
    StemIndex read;                       // the rows that are read from their own lines
    F initial{};                          // the initial values, but for these rows:
    std::vector<std::uint16_t> numbered;  // rows whose initial value depends on the item's number
};

// The item of a table of rows over one struct of fields. The struct is open to its section.
template <class F>
class RowItem final : public Item {
  public:
    // `suffix` stands behind every stem: "#3", or "" for a plain key.
    RowItem(const RowTable<F>& table, const ModelContext& context, int number = 0, std::string suffix = {})
        : table_(&table), context_(&context), number_(number), suffix_(std::move(suffix)) {
        MakePlan();
    }
    // One more of the same kind.
    RowItem(const RowItem& like, int number, std::string suffix)
        : table_(like.table_),
          context_(like.context_),
          number_(number),
          suffix_(std::move(suffix)),
          plan_(like.plan_) {
        if (!HasListsOf(like)) MakePlan();
    }

    F fields{};

    int Number() const override { return number_; }
    int Title() const override { return table_->title; }
    std::size_t RowCount() const override { return table_->rows.size(); }
    const Row<F>& Info(std::size_t row) const override { return table_->rows[row]; }
    const CTextList* List(std::size_t row) const override {
        const Row<F>& r = Info(row);
        return r.listBy == nullptr ? plan_->lists[row] : detail::NeedList(r.listBy(fields), *context_);
    }
    std::string Key(std::size_t row) const override { return KeyOf(Info(row).stem); }

    std::string Text(std::size_t row, const Target& target = Target::Everything()) const override {
        std::string text;
        Info(row).write(text, fields, target);
        return text;
    }
    std::string InitialText(std::size_t row) const override {
        return detail::InitialText(Info(row), number_, List(row));
    }
    Taken Take(std::size_t row, std::string_view text) override { return Info(row).take(fields, text); }
    std::span<const std::byte> Place(std::size_t row) const override { return Info(row).place(fields); }

    std::optional<std::size_t> Find(std::string_view key) const override {
        const std::size_t around = table_->prefix.size() + suffix_.size();
        if (key.size() <= around || !StartsNoCase(key, table_->prefix)) return std::nullopt;
        if (!EqualNoCase(key.substr(key.size() - suffix_.size()), suffix_)) return std::nullopt;
        const std::string_view stem = key.substr(table_->prefix.size(), key.size() - around);
        for (std::size_t i = 0; i < RowCount(); ++i) {
            if (EqualNoCase(stem, Info(i).stem)) return i;
        }
        return std::nullopt;
    }

    void EachLine(const std::function<void(std::size_t, Gate, bool)>& visit) const override {
        for (const Line<F>& line : table_->layout(fields)) {
            visit(line.row, line.gate, line.when == nullptr || line.when(fields));
        }
    }

    void Initialize() override {
        ReloadDefaults();
        MarkSaved();
    }
    // The initial values; against what was saved that is a change.
    void ReloadDefaults() {
        fields = plan_->initial;
        if (table_->begin != nullptr) table_->begin(fields, number_);
        for (const std::size_t i : plan_->numbered) {
            if (Info(i).more.use != Use::Page) Take(i, InitialText(i));
        }
    }

    void Restore(Dictionary& lines, ReadReport& report) override {
        if (table_->startOver) ReloadDefaults();
        std::vector<const Dictionary::Entry*> found = FindLines(lines);
        for (std::size_t i = 0; i < RowCount(); ++i) {
            if (!HasLine(Info(i))) continue;
            RestoreRow(i, found[i], report);
            if (!Info(i).more.readAs.empty()) ReportPassedOver(i, lines, report);
        }
        Settle();
        ReportUnwritten(std::move(found), report);
        MarkSaved();
    }
    void Settle() override {
        if (table_->settle != nullptr) table_->settle(fields);
    }

    void Append(std::string& out, const Target& target,
                std::optional<LinePart> part = std::nullopt) const override {
        for (const Line<F>& line : table_->layout(fields)) {
            if (part && line.part != *part) continue;
            if (!target.Opens(line.gate) || (line.when != nullptr && !line.when(fields))) continue;
            const Row<F>& r = table_->rows[line.row];
            out.append(table_->prefix).append(r.stem).append(suffix_).append(1, '=');
            r.write(out, fields, target);
            out.append("\r\n");
        }
    }

    bool IsDirty() const override { return !(fields == saved_); }
    void MarkSaved() override { saved_ = fields; }
    std::unique_ptr<Item> Clone() const override { return std::make_unique<RowItem>(*this); }

  private:
    void MakePlan() {
        auto plan = std::make_shared<RowPlan<F>>();
        plan->lists.reserve(RowCount());
        plan->read = StemIndex(RowCount());
        for (const Row<F>& r : table_->rows) plan->lists.push_back(detail::FindList(r, number_, *context_));
        plan_ = plan;
        for (std::size_t i = 0; i < RowCount(); ++i) {
            if (HasLine(Info(i)) && Info(i).more.readAs.empty()) plan->read.Add(Info(i).stem, i);
            if (detail::IsNumbered(Info(i))) plan->numbered.push_back(static_cast<std::uint16_t>(i));
            if (Info(i).more.use != Use::Page) Take(i, InitialText(i));
        }
        plan->initial = std::exchange(fields, F{});
    }
    bool HasListsOf(const RowItem& other) const {
        return std::all_of(table_->rows.begin(), table_->rows.end(), [&](const RowInfo& info) {
            const auto listOf = info.more.listOf;
            return listOf == nullptr || listOf(number_) == listOf(other.number_);
        });
    }

    static bool HasLine(const RowInfo& info) {
        return info.more.use == Use::Line || info.more.use == Use::ReadOnly;
    }

    std::string KeyOf(std::string_view stem) const {
        std::string key;
        key.reserve(table_->prefix.size() + stem.size() + suffix_.size());
        return key.append(table_->prefix).append(stem).append(suffix_);
    }

    // The entries that the rows are read from, one a row; nothing where there is none.
    std::vector<const Dictionary::Entry*> FindLines(Dictionary& lines) const {
        std::vector<const Dictionary::Entry*> found(RowCount());
        const bool grouped = Dictionary::IsGrouped(table_->prefix, suffix_);
        if (grouped) FindGroup(lines, found);
        for (std::size_t i = 0; i < found.size(); ++i) {
            const RowInfo& info = Info(i);
            if (!HasLine(info) || (grouped && info.more.readAs.empty())) continue;
            found[i] =
                lines.Find(info.more.readAs.empty() ? Key(i) : detail::Numbered(info.more.readAs, number_));
        }
        return found;
    }
    static bool IsReadFrom(const RowInfo& info, std::string_view stem) {
        return info.stem == stem && HasLine(info) && info.more.readAs.empty();
    }
    void FindGroup(Dictionary& lines, std::vector<const Dictionary::Entry*>& found) const {
        std::size_t next = 0;  // lines mostly follow one another as the rows do
        for (const Dictionary::Entry& entry : lines.GroupOf(table_->prefix, suffix_)) {
            std::string_view stem = entry.key.substr(table_->prefix.size());
            stem.remove_suffix(suffix_.size());
            const std::size_t row =
                next < found.size() && IsReadFrom(Info(next), stem) ? next : plan_->read.Find(stem);
            if (row == StemIndex::kNone) continue;
            next = row + 1;
            found[row] = &entry;
            lines.MarkAsked(entry);
        }
    }

    // Lines that were read and that saving will not write again. What only the indicator keeps is no loss.
    void ReportUnwritten(std::vector<const Dictionary::Entry*> found, ReadReport& report) const {
        for (const Line<F>& line : table_->layout(fields)) {
            if (found[line.row] != nullptr && (line.when == nullptr || line.when(fields)))
                found[line.row] = nullptr;
        }
        for (std::size_t row = 0; row < found.size(); ++row) {
            const bool lost = found[row] != nullptr && Info(row).more.use != Use::ReadOnly;
            if (lost) detail::ReportUnwritten(report, *found[row]);
        }
    }

    // A row that is read under another key than its line's passes its own line over.
    void ReportPassedOver(std::size_t i, Dictionary& lines, ReadReport& report) {
        const Dictionary::Entry* own = lines.Find(Key(i));
        if (own != nullptr && own->value != Text(i)) detail::Report(report, *own, Taken::Not, false, Text(i));
    }
    void RestoreRow(std::size_t i, const Dictionary::Entry* entry, ReadReport& report) {
        const Row<F>& r = Info(i);
        if (entry == nullptr) {
            if (r.more.absent == Absent::Initial) Take(i, InitialText(i));
            if (r.more.absent == Absent::Value) Take(i, detail::Numbered(r.more.absentValue, number_));
            return;
        }
        const CTextList* list = List(i);
        detail::Checked checked = detail::CheckList(r, list, entry->value, {});
        const bool becomesInitial = checked.replaced && r.more.unknown == Unknown::Initial;
        const std::string initial = becomesInitial ? InitialText(i) : std::string();
        if (becomesInitial) checked.text = initial;
        const Taken taken = Take(i, checked.text);
        if (taken != Taken::Whole || checked.replaced) {
            detail::Report(report, *entry, taken, checked.replaced, Text(i));
        }
    }

    const RowTable<F>* table_;
    const ModelContext* context_;
    int number_;
    std::string suffix_;
    std::shared_ptr<const RowPlan<F>> plan_;
    F saved_{};
};

}  // namespace calyx
