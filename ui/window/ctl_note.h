#pragma once

#include <QFrame>
#include <vector>

#include "model/language/section.h"

class QLabel;

namespace calyx::ui {

class DocumentSession;

// A strip above the page, seen only while there is something to tell: that an edit has taken the lines of
// values, which saving would lose, with the way back.
class ctlNote : public QFrame {
    Q_OBJECT

  public:
    explicit ctlNote(DocumentSession& session);

    void ShowUnkept(const std::vector<Refusal>& values);  // empty: nothing to tell

  signals:
    void UndoWanted();

  private:
    QString Named(const std::vector<Refusal>& values) const;

    DocumentSession& session_;
    QLabel* words_;
};

}  // namespace calyx::ui
