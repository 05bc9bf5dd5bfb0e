#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>

#include "model/widgets/widget.h"

namespace calyx {

// One initialised widget of each kind, to make others like it.
class WidgetPatterns {
  public:
    explicit WidgetPatterns(const ModelContext& context);
    const CWidget& Of(WidgetKind kind) const { return *Get(patterns_[static_cast<std::size_t>(kind) - 1]); }
    AnyWidget Make(WidgetKind kind, int number) const;

  private:
    std::array<AnyWidget, kWidgetKinds.size()> patterns_;
};

// The key "WDGT#12" of a widget, and its number; 0 for another key.
constexpr std::string_view WidgetKeyStart() {
    return "WDGT#";
}
std::string WidgetKey(int number);
int WidgetNumberOf(std::string_view key);
inline constexpr int kLastWidget = 32767;

// A place in the array of widgets, which its number names: a widget, or a gap. To everyone outside an item
// of one row, the widget's line. A gap has no row, unless it awaits the record that a change brings.
class WidgetLine final : public Item {
  public:
    WidgetLine(std::shared_ptr<const WidgetPatterns> patterns, int number)
        : patterns_(std::move(patterns)), number_(number) {}

    CWidget* Widget() { return Get(widget_); }
    const CWidget* Widget() const { return Get(widget_); }
    bool IsGap() const { return Widget() == nullptr; }
    void Fill(WidgetKind kind) { widget_ = patterns_->Make(kind, number_); }
    void Clear() {
        widget_ = {};
        awaits_ = false;
    }
    // Takes the widget of another place over, which becomes a gap.
    void MoveFrom(WidgetLine& other);
    void CopyFrom(const WidgetLine& other);
    void Await(bool awaits) { awaits_ = awaits; }

    int Number() const override { return number_; }
    int Title() const override { return kTitle; }
    std::size_t RowCount() const override { return IsGap() && !awaits_ ? 0 : 1; }
    const RowInfo& Info(std::size_t row) const override;
    std::string Key(std::size_t) const override { return WidgetKey(number_); }
    const CTextList* List(std::size_t) const override { return nullptr; }
    std::string Text(std::size_t, const Target& = Target::Everything()) const override;
    std::string InitialText(std::size_t) const override;
    // A record of any kind. Not: malformed, the place stays as it is.
    Taken Take(std::size_t row, std::string_view record) override;
    std::optional<std::size_t> Find(std::string_view key) const override;
    void EachLine(const std::function<void(std::size_t row, Gate gate, bool met)>& visit) const override;

    void Initialize() override;
    void Restore(Dictionary& lines, ReadReport& report) override;
    void Append(std::string& out, const Target& target,
                std::optional<LinePart> part = std::nullopt) const override;
    bool IsDirty() const override;
    void MarkSaved() override;
    std::unique_ptr<Item> Clone() const override { return std::make_unique<WidgetLine>(*this); }

  private:
    static constexpr int kTitle = 5550;

    std::shared_ptr<const WidgetPatterns> patterns_;
    int number_;
    AnyWidget widget_;
    bool awaits_ = false;
    std::optional<WidgetKind> savedKind_;  // nothing for a gap
    WidgetFields saved_;
};

}  // namespace calyx
