#pragma once

#include <vector>

#include "model/language/section.h"
#include "ui/window/note_strip.h"

namespace calyx::ui {

class DocumentSession;

// Above the page: that an edit has taken the lines of values, which saving would lose, with the way back.
class ctlNote : public NoteStrip {
    Q_OBJECT

  public:
    explicit ctlNote(DocumentSession& session);

    void ShowUnkept(const std::vector<Refusal>& values);  // empty: nothing to tell

  signals:
    void UndoWanted();

  private:
    QString Named(const std::vector<Refusal>& values) const;

    DocumentSession& session_;
};

}  // namespace calyx::ui
