#pragma once

#include <QWidget>

#include "model/language/resource_texts.h"
#include "model/tickets/ticket_tokens.h"

class QLabel;
class QLineEdit;
class QSortFilterProxyModel;
class QTreeView;

namespace calyx::ui {

// The tokens with what they print, to be searched. Enter, in the list as in the search box, or a double click
// chooses one.
class ctlTicketTokens : public QWidget {
    Q_OBJECT

  public:
    // Both outlive it.
    ctlTicketTokens(const TicketTokens& tokens, const ResourceTexts& texts);

  signals:
    void Chosen(const QString& name);  // without brackets

  protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Search(const QString& words);
    void ChooseCurrent();
    void ShowWhetherEmpty();

    const ResourceTexts& texts_;
    QLineEdit* search_;
    QSortFilterProxyModel* fitting_;
    QTreeView* list_;
    QLabel* none_;
};

}  // namespace calyx::ui
