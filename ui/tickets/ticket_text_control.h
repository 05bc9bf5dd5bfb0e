#pragma once

#include "ui/form/control.h"
#include "ui/tickets/ctl_ticket_text.h"

namespace calyx::ui {

// The ticket text as a field's control. What is too long, or has a character that the text's alphabet lacks,
// stays in the editor until it is mended.
class TicketTextControl : public form::Control {
    Q_OBJECT

  public:
    TicketTextControl(const TicketTokens& tokens, const ResourceTexts& texts, QWidget* parent);

    QWidget* Widget() const override { return text_; }
    ctlTicketText* Text() const { return text_; }
    void Show(const std::string& text) override { text_->ShowBytes(text); }
    form::Entry Read(bool leaving) const override;
    bool ShowsText() const override { return false; }  // so that the label becomes bold, not the text

  private:
    const ResourceTexts& texts_;
    ctlTicketText* text_;
};

}  // namespace calyx::ui
