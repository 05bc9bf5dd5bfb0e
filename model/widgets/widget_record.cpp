#include "model/widgets/widget_record.h"

#include <cmath>
#include <optional>
#include <vector>

namespace calyx {

namespace {

// The texts of a kind's rows in a record, in table order; nothing where their number does not fit.
std::optional<std::vector<std::string_view>> FieldsOf(const WidgetKindInfo& kind, std::string_view record) {
    std::vector<std::string_view> fields = Split(record, ',');
    const std::size_t wanted = kind.table->rows.size() + 1;
    if (fields.size() < wanted) return std::nullopt;
    const std::size_t more = fields.size() - wanted;
    if (more != 0) {
        if (kind.captionRow < 0) return std::nullopt;
        const auto caption = static_cast<std::size_t>(kind.captionRow) + 1;
        const std::string_view last = fields[caption + more];
        const char* begin = fields[caption].data();
        fields[caption] = {begin, static_cast<std::size_t>(last.data() + last.size() - begin)};
        const auto next = fields.begin() + static_cast<std::ptrdiff_t>(caption) + 1;
        fields.erase(next, next + static_cast<std::ptrdiff_t>(more));
    }
    fields.erase(fields.begin());
    return fields;
}

}  // namespace

void AppendRecord(std::string& out, const WidgetKindInfo& kind, const RowItem<WidgetFields>& item) {
    AppendInteger(out, static_cast<int>(kind.kind));
    for (std::size_t i = 0; i < item.RowCount(); ++i) {
        out += ',';
        if (static_cast<int>(i) == kind.topRow) {
            AppendInteger(out, item.fields.top + kTopOffset);
        } else {
            item.Info(i).write(out, item.fields, Target::Everything());
        }
    }
}

const WidgetKindInfo* KindOfRecord(std::string_view record) {
    const auto number = ReadDecimal(record.substr(0, record.find(',')));
    if (!number) return nullptr;
    for (const WidgetKindInfo& kind : kWidgetKinds) {
        if (std::trunc(number->value) == static_cast<int>(kind.kind)) return &kind;
    }
    return nullptr;
}

Taken TakeRecord(const WidgetKindInfo& kind, RowItem<WidgetFields>& item, std::string_view record) {
    const auto fields = FieldsOf(kind, record);
    if (!fields) return Taken::Not;
    const auto number = ReadDecimal(record.substr(0, record.find(',')));
    bool whole = number && number->whole && number->value == static_cast<int>(kind.kind), cut = false;
    for (std::size_t i = 0; i < fields->size(); ++i) {
        std::string_view text = (*fields)[i];
        std::string moved;
        if (static_cast<int>(i) == kind.topRow) {
            const auto top = ReadInteger(text);
            if (top) AppendInteger(moved, std::int64_t{top->value} - kTopOffset);
            if (top && !top->whole) moved += '?';  // what follows the number is passed over, and told
            text = moved;
        }
        const Taken taken = item.Take(i, text);
        cut = cut || taken == Taken::Cut;
        whole = whole && (taken == Taken::Whole || taken == Taken::Cut);
    }
    if (!whole) return Taken::Part;
    return cut ? Taken::Cut : Taken::Whole;
}

}  // namespace calyx
