#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>

#include "ui/form/control.h"

// Controls in which a value is chosen, or only shown.
namespace calyx::ui::form {

// A combo box that leaves the wheel to the page: turning it while reading on must not change a value.
class ChoiceBox : public QComboBox {
    Q_OBJECT

  public:
    using QComboBox::QComboBox;

  protected:
    void wheelEvent(QWheelEvent* event) override;
};

// The words of a list by their display texts.
class ChoiceControl : public Control {
    Q_OBJECT

  public:
    ChoiceControl(const CTextList& list, QWidget* parent);
    QWidget* Widget() const override { return box_; }
    void Show(const std::string& text) override;
    Entry Read(bool leaving) const override;

  private:
    ChoiceBox* box_;
};

class SwitchControl final : public Control {
    Q_OBJECT

  public:
    SwitchControl(SwitchWords words, QWidget* parent);
    QWidget* Widget() const override { return box_; }
    void Show(const std::string& text) override;
    Entry Read(bool leaving) const override;
    bool ShowsText() const override { return false; }

  private:
    SwitchWords words_;
    QCheckBox* box_;
};

// A value that the indicator alone decides; it can be selected and copied.
class ReadOnlyControl final : public Control {
    Q_OBJECT

  public:
    ReadOnlyControl(const Parameter& parameter, const ResourceTexts& texts, QWidget* parent);
    QWidget* Widget() const override { return label_; }
    void Show(const std::string& text) override;
    Entry Read(bool) const override { return {.text = text_}; }

  private:
    const ResourceTexts& texts_;
    ValueKind kind_;
    const CTextList* list_;
    QLabel* label_;
    std::string text_;
};

}  // namespace calyx::ui::form
