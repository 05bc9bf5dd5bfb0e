#include "model/language/item.h"

#include <bit>

#include "model/language/error.h"

namespace calyx {

Gate Item::GateOf(std::size_t row) const {
    Gate gate{0};
    EachLine([&](std::size_t line, Gate opens, bool) {
        if (line == row) gate = gate | opens;
    });
    return gate;
}

bool Item::IsWritten(std::size_t row) const {
    bool written = false;
    EachLine([&](std::size_t line, Gate, bool met) { written = written || (line == row && met); });
    return written;
}

std::vector<bool> Item::WrittenRows() const {
    std::vector<bool> written(RowCount(), false);
    EachLine([&](std::size_t line, Gate, bool met) {
        if (met) written[line] = true;
    });
    return written;
}

std::string DisplayText(const Item& item, std::size_t row) {
    std::string text = item.Text(row);
    const CTextList* list = item.List(row);
    const std::string* shown = list == nullptr ? nullptr : list->Item(text);
    return shown == nullptr ? text : *shown;
}

StemIndex::StemIndex(std::size_t most)
    : places_(std::bit_ceil(2 * most + 1)), shift_(64 - std::countr_zero(places_.size())) {}

void StemIndex::Add(std::string_view stem, std::size_t row) {
    Place& place = places_[At(stem)];
    if (place.row == kNone) place = {stem, row};
}

std::size_t StemIndex::At(std::string_view stem) const {
    std::size_t at = HashNoCase(stem) >> shift_;
    while (places_[at].row != kNone && !EqualNoCase(places_[at].stem, stem)) at = (at + 1) % places_.size();
    return at;
}

namespace detail {

std::string Numbered(std::string_view pattern, int number) {
    const std::size_t place = pattern.find("{n}");
    std::string text(pattern);
    if (place != std::string_view::npos) text.replace(place, 3, std::to_string(number));
    return text;
}

std::string InitialText(const RowInfo& info, int number, const CTextList* list) {
    if (info.more.initialOf != nullptr) return info.more.initialOf(number, list);
    if (info.initial.empty() && list != nullptr) return list->Default();
    return Numbered(info.initial, number);
}

bool IsNumbered(const RowInfo& info) {
    return info.more.initialOf != nullptr || info.more.listOf != nullptr ||
           info.initial.find("{n}") != std::string_view::npos;
}

const CTextList* FindList(const RowInfo& info, int number, const ModelContext& context) {
    if (!info.HasList()) return nullptr;
    return NeedList(info.more.listOf != nullptr ? info.more.listOf(number) : info.more.list, context);
}

const CTextList* NeedList(std::string_view name, const ModelContext& context) {
    const CTextList* list = context.lists.List(name);
    if (list != nullptr) return list;
    throw Error(code::kNoList, "Calyx.ListCatalogue.List", context.texts.Format(code::kNoList, {name}));
}

void ReportUnwritten(ReadReport& report, const Dictionary::Entry& entry) {
    report.Add({ReadNote::Kind::NotWritten,
                report.Section(),
                std::string(entry.key),
                std::string(entry.value),
                {},
                entry.line});
}

Checked CheckList(const RowInfo& info, const CTextList* list, std::string_view value,
                  const std::string& initial) {
    if (list != nullptr && info.more.older != nullptr) value = info.more.older(value, *list);
    if (list == nullptr || info.more.offered || list->ValidateItem(Trim(value))) return {value};
    if (info.more.emptyKeeps && Trim(value).empty()) return {value};
    switch (info.more.unknown) {
        case Unknown::First:
            return {list->First(), true};
        case Unknown::Last:
            return {list->Last(), true};
        case Unknown::Initial:
            return {initial, true};
        case Unknown::Default:
            break;
    }
    return {list->Default(), true};
}

void Report(ReadReport& report, const Dictionary::Entry& entry, Taken taken, bool replaced,
            std::string became) {
    using Kind = ReadNote::Kind;
    const Kind kind = replaced               ? Kind::ListValue
                      : taken == Taken::Part ? Kind::PartlyRead
                      : taken == Taken::Cut  ? Kind::Cut
                                             : Kind::NotUnderstood;
    report.Add({kind, report.Section(), std::string(entry.key), std::string(entry.value), std::move(became),
                entry.line});
}

}  // namespace detail

}  // namespace calyx
