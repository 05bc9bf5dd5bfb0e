#include "model/widgets/widget.h"

#include <utility>

#include "model/widgets/widget_record.h"

namespace calyx {

namespace {

constexpr int kLastNumber = 32767;
constexpr std::size_t kNameWidth = 8, kCaptionWidth = 64;
// What is wrong, in words.
constexpr int kPastTheEdge = 5582;  // {1} widget, {2} last column and {3} last row that it takes
constexpr int kNoComma = 5583;
constexpr int kHeading = 5585;  // {1} number, {2} kind, {3} screen

std::string Key(int number) {
    return "WDGT#" + std::to_string(number);
}

}  // namespace

void CWidget::NeedNumber(int number) const {
    if (number >= 1 && number <= kLastNumber) return;
    Fail(code::kOutOfRange, "WidgetNumber", {std::to_string(number), "1 to 32767"});
}

void CWidget::Initialize(int number) {
    NeedNumber(number);
    Begin(0, {});
    number_ = number;
}

void CWidget::Initialize(int number, const CWidget& like) {
    NeedNumber(number);
    BeginLike(like, 0, {});
    number_ = number;
}

void CWidget::SetWidgetNumber(int number) {
    static_cast<void>(Parameters());  // 10006
    NeedNumber(number);
    number_ = number;
}

const Row<WidgetFields>* CWidget::FindRow(const void* member) const {
    for (const auto& row : info_->table->rows) {
        if (row.member(Values()) == member) return &row;
    }
    return nullptr;
}

void CWidget::Check(std::int32_t WidgetFields::*member, int value, const char* operation) const {
    const auto* row = FindRow(&(Values().*member));
    if (row == nullptr || !row->more.HasRange() || (value >= row->more.min && value <= row->more.max)) return;
    const auto bound = [](double limit) { return std::to_string(static_cast<int>(limit)); };
    Fail(code::kOutOfRange, operation,
         {std::to_string(value), bound(row->more.min) + " to " + bound(row->more.max)});
}

void CWidget::Set(std::int32_t WidgetFields::*member, int value, const char* operation) {
    Check(member, value, operation);
    Fields().*member = value;
}

void CWidget::SetClassToControl(WidgetArea& control) const {
    const WidgetFields& fields = Values();
    if (Has(&fields.left)) control.left = fields.left;
    if (Has(&fields.top)) control.top = fields.top;
    if (Has(&fields.width)) control.width = fields.width;
    if (Has(&fields.height)) control.height = fields.height;
    if (Has(&fields.visible)) control.visible = fields.visible;
}

void CWidget::SetControlToClass(const WidgetArea& control) {
    WidgetFields& fields = Fields();
    const std::pair<std::int32_t WidgetFields::*, int> numbers[] = {{&WidgetFields::left, control.left},
                                                                    {&WidgetFields::top, control.top},
                                                                    {&WidgetFields::width, control.width},
                                                                    {&WidgetFields::height, control.height}};
    for (const auto& [member, value] : numbers) Check(member, value, "SetControlToClass");
    for (const auto& [member, value] : numbers) {
        if (Has(&(fields.*member))) fields.*member = value;
    }
    if (Has(&fields.visible)) fields.visible = control.visible;
}

std::string CWidget::Record() const {
    std::string record;
    AppendRecord(record, *info_, Parameters());
    return record;
}

std::string CWidget::StoreState() const {
    return Key(number_) + "=" + Record() + "\r\n";
}

Taken CWidget::TakeRecord(std::string_view record) {
    RowItem<WidgetFields> fresh = Parameters();
    fresh.ReloadDefaults();
    return TakeRecord(record, fresh.fields);
}

Taken CWidget::TakeRecord(std::string_view record, const WidgetFields& fresh) {
    if (KindOfRecord(record) != info_) return Taken::Not;
    const WidgetFields before = std::exchange(Fields(), fresh);
    const Taken taken = calyx::TakeRecord(*info_, Parameters(), record);
    if (taken == Taken::Not) Fields() = before;
    return taken;
}

void CWidget::RestoreState(Dictionary& lines, ReadReport& report) {
    const Dictionary::Entry* entry = lines.Find(Key(number_));
    if (entry == nullptr) return;
    const Taken taken = TakeRecord(entry->value);
    if (taken != Taken::Whole) detail::Report(report, *entry, taken, false, Record());
    MarkSaved();
}

std::string CWidget::GetIWriteImportDef() const {
    const auto name = Values().name.Trimmed();
    if (name.empty()) return {};
    return std::string(name) + " : constant integer := " + std::to_string(number_) + ";\r\n";
}

std::string CWidget::GetPrintOutput() const {
    const ResourceTexts& texts = Context().texts;
    const Item& item = Parameters();
    std::string listing = texts.Format(
        kHeading, {std::to_string(number_), texts.Text(info_->name), std::to_string(ScreenNumber())});
    listing += "\r\n";
    for (std::size_t i = 0; i < item.RowCount(); ++i) {
        const std::string value = DisplayText(item, i);
        if (value.empty()) continue;
        const More& more = item.Info(i).more;
        listing.append("  ").append(texts.Text(more.label)).append(": ").append(value);
        if (!more.unit.empty()) listing.append(" ").append(more.unit);
        listing += "\r\n";
    }
    return listing;
}

void CWidget::Validate(CBrokenRules& rules) const {
    const ResourceTexts& texts = Context().texts;
    const auto add = [&](std::string words) {
        rules.Add({"widgets", number_, Key(number_), std::move(words)});
    };
    const Item& item = Parameters();
    for (std::size_t i = 0; i < item.RowCount(); ++i) {
        const More& more = item.Info(i).more;
        const int broken = more.rule == nullptr ? 0 : more.rule(item.Text(i));
        if (broken != 0) add(texts.Format(broken, {texts.Text(more.label), item.Text(i)}));
    }
    const WidgetArea area = WidgetControl(), screen = ScreenControl();
    const int right = area.left + area.width, bottom = area.top + area.height;
    if (right > screen.width || bottom > screen.height) {
        add(texts.Format(kPastTheEdge,
                         {std::to_string(number_), std::to_string(right), std::to_string(bottom)}));
    }
}

void CPlacedWidget::SetName(std::string_view name) {
    name = Trim(name);
    FixedText<8>& own = Fields().name;
    if (name.size() > kNameWidth) Fail(code::kTextTooLong, "Name");
    if (name.find_first_of(",\r\n") != std::string_view::npos) {
        Fail(code::kOutOfRange, "Name", {name, Context().texts.Text(kNoComma)});
    }
    own.Assign(name);
}

void CWidgetLabel::SetCaption(std::string_view caption) {
    caption = TrimRight(caption);
    std::string& own = Fields().caption;
    if (caption.size() > kCaptionWidth) Fail(code::kTextTooLong, "Caption");
    if (caption.find_first_of("\r\n") != std::string_view::npos) {
        Fail(code::kOutOfRange, "Caption", {caption, Context().texts.Text(kNoComma)});
    }
    own = caption;
}

AnyWidget MakeWidget(WidgetKind kind, const ModelContext& context) {
    switch (kind) {
        case WidgetKind::Scale:
            return CWidgetScale(context);
        case WidgetKind::Bitmap:
            return CWidgetBitmap(context);
        case WidgetKind::Bargraph:
            return CWidgetBargraph(context);
        case WidgetKind::Label:
            return CWidgetLabel(context);
        case WidgetKind::Numeric:
            return CWidgetNumeric(context);
        case WidgetKind::Symbol:
            return CWidgetSymbol(context);
    }
    return {};
}

namespace {
template <class Widget>
auto Reach(Widget& any) {
    return std::visit(
        [](auto& widget) -> std::conditional_t<std::is_const_v<Widget>, const CWidget*, CWidget*> {
            if constexpr (std::is_same_v<std::remove_cvref_t<decltype(widget)>, std::monostate>) {
                return nullptr;
            } else {
                return &widget;
            }
        },
        any);
}
}  // namespace

CWidget* Get(AnyWidget& widget) {
    return Reach(widget);
}
const CWidget* Get(const AnyWidget& widget) {
    return Reach(widget);
}

}  // namespace calyx
