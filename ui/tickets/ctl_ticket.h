#pragma once

#include <QWidget>
#include <memory>
#include <set>
#include <string>

#include "ui/form/field.h"
#include "ui/window/page_factory.h"

class QLabel;
class QMenu;
class QPushButton;
class QToolButton;

namespace calyx::ui {

class ctlTicketPreview;
class ctlTicketText;
class FormPage;
class TicketDrafts;
class TicketTextControl;
struct TicketSheet;

// The page of a ticket format: its text with the tokens to insert, the printed ticket as it will come out,
// and where and on what it is printed.
class ctlTicket : public QWidget {
    Q_OBJECT

  public:
    // The format has a text. What cannot be stored outlives the page in `drafts`.
    ctlTicket(DocumentSession& session, const ItemRef& ticket, const PageTools& tools,
              std::shared_ptr<TicketDrafts> drafts);
    ~ctlTicket() override;

    bool FocusKey(const QString& key);
    void SetDiffering(const std::set<std::string>& keys);

  signals:
    void KeyFocused(const QString& key);
    void ShowInLines(const QString& key);

  protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* MakeTextSide();
    QWidget* MakePreviewSide();
    QWidget* MakeForm();
    QWidget* MakeCommands();
    void FitForm();
    void Follow(bool anew);
    void Refresh();
    void ShowText();  // what follows from the text as it stands in its editor
    void ShowProposal();
    TicketSheet Sheet() const;
    void Restore();
    void FillCopyMenu();
    void CopyTo(int format);
    bool FollowPrinter(const std::string& type);
    void UseProposal();

    const CTickets& Tickets() const;
    const ResourceTexts& Texts() const { return session_.Context().texts; }
    std::string KeyOf(std::string_view part) const;  // empty: the format does not have it
    QString Title(int format) const;

    DocumentSession& session_;
    int format_;
    const PageTools& tools_;
    std::shared_ptr<TicketDrafts> drafts_;
    QWidget* textSide_;
    TicketTextControl* control_ = nullptr;  // the field's
    std::unique_ptr<form::Field> field_;
    QLabel *length_, *unknown_;
    ctlTicketPreview* preview_;
    FormPage* form_ = nullptr;  // none for a header
    QWidget* proposal_ = nullptr;
    QLabel* proposalWords_ = nullptr;
    QMenu* copyMenu_;
    std::set<std::string> differing_;  // in capitals
    bool stale_ = false, staleAnew_ = false;
};

}  // namespace calyx::ui
