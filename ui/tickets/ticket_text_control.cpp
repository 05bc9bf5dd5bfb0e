#include "ui/tickets/ticket_text_control.h"

#include "model/language/text.h"
#include "model/tickets/ticket_fields.h"
#include "ui/text.h"
#include "ui/tickets/ticket_texts.h"

namespace calyx::ui {

TicketTextControl::TicketTextControl(const TicketTokens& tokens, const ResourceTexts& texts, QWidget* parent)
    : texts_(texts), text_(new ctlTicketText(tokens, texts, parent)) {
    connect(text_, &ctlTicketText::Edited, this, [this] { emit Edited(true); });
}

form::Entry TicketTextControl::Read(bool) const {
    const auto wrong = [](const QString& words) {
        return form::Entry{form::Entry::State::Wrong, {}, words, true};
    };
    const auto bytes = text_->Bytes();
    if (!bytes) return wrong(Say(texts_, say::kNotOfAlphabet, text_->Script().Lacking(text_->Held())));
    const std::size_t length = TrimRight(*bytes).size();
    if (length <= TicketFields::kLongest) return {.text = *bytes};
    return wrong(Say(texts_, say::kTextTooLong, QString::number(length - TicketFields::kLongest),
                     QString::number(TicketFields::kLongest)));
}

}  // namespace calyx::ui
