#pragma once

#include <QLineEdit>
#include <QLocale>

#include "ui/form/control.h"
#include "ui/form/words.h"

// Controls in which a value is typed.
namespace calyx::ui::form {

class LineControl : public Control {
    Q_OBJECT

  public:
    // `characters`: how many the box has room for; 0: it grows with the page.
    LineControl(QWidget* parent, int characters);

    QWidget* Widget() const override { return line_; }
    void Show(const std::string& text) override { ShowText(ToText(text)); }

  protected:
    virtual QString ToText(const std::string& text) = 0;
    QLineEdit* Line() const { return line_; }
    QString Typed() const { return line_->text(); }
    void ShowText(const QString& text);

  private:
    void Clean(const QString& text);

    QLineEdit* line_;
};

class TextControl final : public LineControl {
    Q_OBJECT

  public:
    TextControl(const RowInfo& info, const ResourceTexts& texts, QWidget* parent);
    Entry Read(bool leaving) const override;

  private:
    QString ToText(const std::string& text) override;

    const ResourceTexts& texts_;
    std::size_t width_;  // bytes; 0: no limit
    std::string old_;
};

// Whole numbers and decimals, with the range of the row. What a codec writes around the number stays out
// of the box. Wrong input is kept and told, never refused.
class NumberControl : public LineControl {
    Q_OBJECT

  public:
    NumberControl(const RowInfo& info, const ResourceTexts& texts, QWidget* parent);
    Entry Read(bool leaving) const override;
    QString Sign() const override { return sign_; }

  protected:
    QString ToText(const std::string& text) override;

  private:
    Entry Refuse(double number, bool understood, const QString& typed) const;

    const ResourceTexts& texts_;
    bool whole_, hasRange_;
    double min_, max_;
    RangeEnds ends_;
    QLocale locale_;
    QString sign_;
};

// A date in the locale's short form, typed or chosen from a calendar; empty for no date.
class DateControl final : public LineControl {
    Q_OBJECT

  public:
    DateControl(const ResourceTexts& texts, QWidget* parent);
    Entry Read(bool leaving) const override;

  private:
    QString ToText(const std::string& text) override;
    QDate Parse(const QString& typed, bool leaving) const;
    void OpenCalendar();

    const ResourceTexts& texts_;
    QLocale locale_;
    QString pattern_;
};

}  // namespace calyx::ui::form
