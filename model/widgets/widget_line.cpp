#include "model/widgets/widget_line.h"

#include "model/widgets/widget_record.h"

namespace calyx {

namespace {

constexpr RowInfo kRecordRow{.stem = "WDGT",
                             .initial = {},
                             .kind = ValueKind::Text,
                             .width = 0,
                             .words = "the record of a widget, its fields separated by commas",
                             .more = {.label = 5520, .group = 5570, .help = 5540}};
// A gap that awaits a record has no line.
constexpr RowInfo Awaiting() {
    RowInfo info = kRecordRow;
    info.more.use = Use::Page;
    return info;
}
constexpr RowInfo kAwaitingRow = Awaiting();

}  // namespace

WidgetPatterns::WidgetPatterns(const ModelContext& context) {
    for (std::size_t i = 0; i < patterns_.size(); ++i) {
        patterns_[i] = MakeWidget(kWidgetKinds[i].kind, context);
        Get(patterns_[i])->Initialize(1);
    }
}

AnyWidget WidgetPatterns::Make(WidgetKind kind, int number) const {
    AnyWidget made = patterns_[static_cast<std::size_t>(kind) - 1];
    Get(made)->SetWidgetNumber(number);
    return made;
}

std::string WidgetKey(int number) {
    return std::string(WidgetKeyStart()) + std::to_string(number);
}

int WidgetNumberOf(std::string_view key) {
    if (!StartsNoCase(key, WidgetKeyStart())) return 0;
    const std::string_view digits = key.substr(WidgetKeyStart().size());
    const auto number = ReadInteger(digits);
    if (!number || number->value < 1 || number->value > kLastWidget) return 0;
    // Exactly as it is written: no sign, no leading zero.
    return digits == std::to_string(number->value) ? number->value : 0;
}

void WidgetLine::MoveFrom(WidgetLine& other) {
    widget_ = std::move(other.widget_);
    if (CWidget* widget = Widget()) widget->SetWidgetNumber(number_);
    other.Clear();
}

void WidgetLine::CopyFrom(const WidgetLine& other) {
    widget_ = other.widget_;
    if (CWidget* widget = Widget()) widget->SetWidgetNumber(number_);
}

const RowInfo& WidgetLine::Info(std::size_t) const {
    return IsGap() ? kAwaitingRow : kRecordRow;
}

std::string WidgetLine::Text(std::size_t, const Target&) const {
    const CWidget* widget = Widget();
    return widget == nullptr ? std::string() : widget->Record();
}

std::string WidgetLine::InitialText(std::size_t) const {
    const CWidget* widget = Widget();
    if (widget == nullptr) return {};
    return patterns_->Of(widget->WidgetType()).Record();
}

Taken WidgetLine::Take(std::size_t, std::string_view record) {
    const WidgetKindInfo* kind = KindOfRecord(record);
    if (kind == nullptr) return Taken::Not;
    const WidgetFields& fresh = patterns_->Of(kind->kind).Values();
    if (!IsGap() && Widget()->WidgetType() == kind->kind) return Widget()->TakeRecord(record, fresh);
    AnyWidget made = patterns_->Make(kind->kind, number_);
    const Taken taken = Get(made)->TakeRecord(record, fresh);
    if (taken != Taken::Not) widget_ = std::move(made);
    return taken;
}

std::optional<std::size_t> WidgetLine::Find(std::string_view key) const {
    if (RowCount() == 0 || WidgetNumberOf(key) != number_) return std::nullopt;
    return 0;
}

void WidgetLine::EachLine(const std::function<void(std::size_t, Gate, bool)>& visit) const {
    if (RowCount() != 0) visit(0, Gate{}, !IsGap());
}

void WidgetLine::Initialize() {
    Clear();
    MarkSaved();
}

void WidgetLine::Restore(Dictionary& lines, ReadReport& report) {
    if (const Dictionary::Entry* entry = lines.Find(WidgetKey(number_))) {
        const Taken taken = Take(0, entry->value);
        if (taken != Taken::Whole) detail::Report(report, *entry, taken, false, Text(0));
    }
    MarkSaved();
}

void WidgetLine::Append(std::string& out, const Target&, std::optional<LinePart>) const {
    if (const CWidget* widget = Widget()) out += widget->StoreState();
}

bool WidgetLine::IsDirty() const {
    const CWidget* widget = Widget();
    if (widget == nullptr || !savedKind_) return (widget == nullptr) == savedKind_.has_value();
    return widget->WidgetType() != *savedKind_ || widget->Values() != saved_;
}

void WidgetLine::MarkSaved() {
    CWidget* widget = Widget();
    savedKind_.reset();
    if (widget == nullptr) return;
    savedKind_ = widget->WidgetType();
    saved_ = widget->Values();
    widget->MarkSaved();
}

}  // namespace calyx
