#include "ui/tickets/ticket_drafts.h"

#include "ui/text.h"
#include "ui/tickets/ticket_texts.h"

namespace calyx::ui {

TicketDrafts::TicketDrafts(DocumentSession& session) {
    connect(&session, &DocumentSession::Finishing, this, [this, &session](QStringList* wrong) {
        const ResourceTexts& texts = session.Context().texts;
        constexpr int kTitles = 5000;  // + number of the format
        for (const auto& [format, draft] : drafts_)
            *wrong += Say(texts, say::kDraftKept, Say(texts, kTitles + format), draft.words);
    });
    connect(&session, &DocumentSession::GivingUp, this, [this] { drafts_.clear(); });
    connect(&session, &DocumentSession::Replaced, this, [this] { drafts_.clear(); });
}

void TicketDrafts::Keep(int format, const QString& held, const QString& words) {
    drafts_[format] = {held, words};
}

QString TicketDrafts::Take(int format) {
    const auto draft = drafts_.extract(format);
    return draft.empty() ? QString() : draft.mapped().held;
}

}  // namespace calyx::ui
