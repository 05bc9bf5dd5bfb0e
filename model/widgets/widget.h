#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "model/language/row_object.h"
#include "model/widgets/widget_data.h"

namespace calyx {

// What the six classes have in common: they are their kind's table over one struct of fields.
class CWidget : public IWidgetData, protected RowObject<WidgetFields> {
  public:
    using IWidgetData::IsValid;

    void Initialize(int number);
    // As Initialize, with the lists of another widget of the kind: for many.
    void Initialize(int number, const CWidget& like);

    WidgetKind WidgetType() const override { return info_->kind; }
    int WidgetNumber() const override {
        static_cast<void>(Parameters());  // 10006
        return number_;
    }
    void SetWidgetNumber(int number) override;
    int ScreenNumber() const override { return Values().screenNumber; }
    void SetScreenNumber(int screen) override { Set(&WidgetFields::screenNumber, screen, "ScreenNumber"); }
    void SetClassToControl(WidgetArea& control) const override;
    void SetControlToClass(const WidgetArea& control) override;
    std::string Record() const override;
    std::string StoreState() const override;
    bool IsDirty() const override { return Parameters().IsDirty(); }
    void MarkSaved() { Parameters().MarkSaved(); }
    void Validate(CBrokenRules& rules) const override;
    const Item& Properties() const override { return Parameters(); }
    Item& Properties() override { return Parameters(); }
    std::string GetIWriteImportDef() const override;

    // Not gated: every firmware that has screens knows the record.
    std::string GetTextOutput(bool /*allParameters*/) const { return StoreState(); }
    std::string TextView() const { return StoreState(); }
    std::string GetPrintOutput() const;  // a heading and its properties
    void RestoreState(Dictionary& lines, ReadReport& report);
    void GetFromIndicator(Dictionary& lines, ReadReport& report) { RestoreState(lines, report); }
    // Sends the one line. False: stopped by the callback.
    bool SendToIndicator(ILineSender& sender, IDownload& download) const {
        return SendLines(StoreState(), sender, download);
    }

    // Fields that are not understood get their initial value. Not: malformed or of another kind, the widget
    // stays as it is.
    Taken TakeRecord(std::string_view record);
    // The same, quicker, with the fields of a new widget of the kind.
    Taken TakeRecord(std::string_view record, const WidgetFields& fresh);

    using RowObject::IsInitialised;
    using RowObject::Values;

  protected:
    CWidget(const ModelContext& context, WidgetKind kind, const char* name)
        : RowObject(context, *InfoOf(kind).table, name), info_(&InfoOf(kind)) {}

    // Checked against the row of the kind's table.
    void Set(std::int32_t WidgetFields::*member, int value, const char* operation);
    bool Has(const void* member) const { return FindRow(member) != nullptr; }

  private:
    const Row<WidgetFields>* FindRow(const void* member) const;
    void NeedNumber(int number) const;
    void Check(std::int32_t WidgetFields::*member, int value, const char* operation) const;

    const WidgetKindInfo* info_;
    int number_ = 0;
};

// Widgets with a place and a name.
class CPlacedWidget : public CWidget {
  public:
    int Left() const { return Values().left; }
    void SetLeft(int left) { Set(&WidgetFields::left, left, "Left"); }
    int Top() const { return Values().top; }
    void SetTop(int top) { Set(&WidgetFields::top, top, "Top"); }
    std::string_view Name() const { return Values().name.Trimmed(); }
    void SetName(std::string_view name);  // at most 8 characters, else 10001; no comma
    bool Visible() const { return Values().visible; }
    void SetVisible(bool visible) { Fields().visible = visible; }

  protected:
    using CWidget::CWidget;
};

// Widgets that show a value or change with one.
class CBoundWidget : public CPlacedWidget {
  public:
    int DataSource() const { return Values().dataSource; }
    void SetDataSource(int source) { Set(&WidgetFields::dataSource, source, "DataSource"); }
    int DataField() const { return Values().dataField; }
    void SetDataField(int field) { Set(&WidgetFields::dataField, field, "DataField"); }
    int DataSubField() const { return Values().dataSubField; }
    void SetDataSubField(int field) { Set(&WidgetFields::dataSubField, field, "DataSubField"); }

  protected:
    using CPlacedWidget::CPlacedWidget;
};

// A scale's weight; the style decides its place and size.
class CWidgetScale final : public CWidget {
  public:
    explicit CWidgetScale(const ModelContext& context)
        : CWidget(context, WidgetKind::Scale, "CWidgetScale") {}
    std::unique_ptr<IWidgetData> Copy() const override { return std::make_unique<CWidgetScale>(*this); }

    int Style() const { return Values().style; }
    void SetStyle(int style) { Set(&WidgetFields::style, style, "Style"); }
    int NumberDisplayed() const { return Values().numberDisplayed; }
    void SetNumberDisplayed(int scale) { Set(&WidgetFields::numberDisplayed, scale, "NumberDisplayed"); }
};

class CWidgetBitmap final : public CPlacedWidget {
  public:
    explicit CWidgetBitmap(const ModelContext& context)
        : CPlacedWidget(context, WidgetKind::Bitmap, "CWidgetBitmap") {}
    std::unique_ptr<IWidgetData> Copy() const override { return std::make_unique<CWidgetBitmap>(*this); }

    int Width() const { return Values().width; }
    void SetWidth(int width) { Set(&WidgetFields::width, width, "Width"); }
    int Height() const { return Values().height; }
    void SetHeight(int height) { Set(&WidgetFields::height, height, "Height"); }
    int BorderStyle() const { return Values().borderStyle; }
    void SetBorderStyle(int style) { Set(&WidgetFields::borderStyle, style, "BorderStyle"); }
    int Style() const { return Values().style; }
    void SetStyle(int style) { Set(&WidgetFields::style, style, "Style"); }
};

class CWidgetBargraph final : public CBoundWidget {
  public:
    explicit CWidgetBargraph(const ModelContext& context)
        : CBoundWidget(context, WidgetKind::Bargraph, "CWidgetBargraph") {}
    std::unique_ptr<IWidgetData> Copy() const override { return std::make_unique<CWidgetBargraph>(*this); }

    int Width() const { return Values().width; }
    void SetWidth(int width) { Set(&WidgetFields::width, width, "Width"); }
    int Height() const { return Values().height; }
    void SetHeight(int height) { Set(&WidgetFields::height, height, "Height"); }
    int BorderStyle() const { return Values().borderStyle; }
    void SetBorderStyle(int style) { Set(&WidgetFields::borderStyle, style, "BorderStyle"); }
    int Style() const { return Values().style; }
    void SetStyle(int style) { Set(&WidgetFields::style, style, "Style"); }
    bool Graduations() const { return Values().graduations; }
    void SetGraduations(bool graduations) { Fields().graduations = graduations; }
    int Orientation() const { return Values().orientation; }
    void SetOrientation(int orientation) { Set(&WidgetFields::orientation, orientation, "Orientation"); }
};

class CWidgetLabel final : public CBoundWidget {
  public:
    explicit CWidgetLabel(const ModelContext& context)
        : CBoundWidget(context, WidgetKind::Label, "CWidgetLabel") {}
    std::unique_ptr<IWidgetData> Copy() const override { return std::make_unique<CWidgetLabel>(*this); }

    int Width() const { return Values().width; }
    void SetWidth(int width) { Set(&WidgetFields::width, width, "Width"); }
    const std::string& Caption() const { return Values().caption; }
    void SetCaption(std::string_view caption);  // at most 64 characters, else 10001
    int BorderStyle() const { return Values().borderStyle; }
    void SetBorderStyle(int style) { Set(&WidgetFields::borderStyle, style, "BorderStyle"); }
    int Justification() const { return Values().justification; }
    void SetJustification(int side) { Set(&WidgetFields::justification, side, "Justification"); }
    int FontSize() const { return Values().fontSize; }
    void SetFontSize(int size) { Set(&WidgetFields::fontSize, size, "FontSize"); }
};

class CWidgetNumeric final : public CBoundWidget {
  public:
    explicit CWidgetNumeric(const ModelContext& context)
        : CBoundWidget(context, WidgetKind::Numeric, "CWidgetNumeric") {}
    std::unique_ptr<IWidgetData> Copy() const override { return std::make_unique<CWidgetNumeric>(*this); }

    int Width() const { return Values().width; }
    void SetWidth(int width) { Set(&WidgetFields::width, width, "Width"); }
    int BorderStyle() const { return Values().borderStyle; }
    void SetBorderStyle(int style) { Set(&WidgetFields::borderStyle, style, "BorderStyle"); }
    int Justification() const { return Values().justification; }
    void SetJustification(int side) { Set(&WidgetFields::justification, side, "Justification"); }
    int FontSize() const { return Values().fontSize; }
    void SetFontSize(int size) { Set(&WidgetFields::fontSize, size, "FontSize"); }
};

class CWidgetSymbol final : public CBoundWidget {
  public:
    explicit CWidgetSymbol(const ModelContext& context)
        : CBoundWidget(context, WidgetKind::Symbol, "CWidgetSymbol") {}
    std::unique_ptr<IWidgetData> Copy() const override { return std::make_unique<CWidgetSymbol>(*this); }

    int Style() const { return Values().style; }
    void SetStyle(int style) { Set(&WidgetFields::style, style, "Style"); }
};

// A widget of some kind, or none.
using AnyWidget = std::variant<std::monostate, CWidgetScale, CWidgetBitmap, CWidgetBargraph, CWidgetLabel,
                               CWidgetNumeric, CWidgetSymbol>;
AnyWidget MakeWidget(WidgetKind kind, const ModelContext& context);  // not initialised yet
CWidget* Get(AnyWidget& widget);                                     // nullptr for none
const CWidget* Get(const AnyWidget& widget);

}  // namespace calyx
