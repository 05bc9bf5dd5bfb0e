#pragma once

#include <QObject>
#include <QString>
#include <map>

#include "ui/document_session.h"

namespace calyx::ui {

// Ticket texts that were typed and cannot be stored, while no page shows them. They come back with the page
// of their format; before the document is saved or sent they are told.
class TicketDrafts : public QObject {
    Q_OBJECT

  public:
    explicit TicketDrafts(DocumentSession& session);

    // `words`: what is wrong with it.
    void Keep(int format, const QString& held, const QString& words);
    QString Take(int format);  // null: there is none

  private:
    struct Draft {
        QString held, words;
    };

    std::map<int, Draft> drafts_;
};

}  // namespace calyx::ui
