#pragma once

#include <QPlainTextEdit>
#include <optional>
#include <string>
#include <string_view>

#include "model/language/resource_texts.h"
#include "model/tickets/ticket_tokens.h"
#include "ui/tickets/ticket_script.h"

class QCompleter;

namespace calyx::ui {

class TicketHighlighter;

// The editor of a ticket text, laid out in the lines of the ticket: Enter breaks a line, and behind each
// break stands its token. Tokens are coloured and explained by tool tips; typing "<" or Ctrl+Space offers
// those that fit. Its undo is the document's. The clipboard gets the text with its tokens.
class ctlTicketText : public QPlainTextEdit {
    Q_OBJECT

  public:
    // Both outlive it.
    ctlTicketText(const TicketTokens& tokens, const ResourceTexts& texts, QWidget* parent = nullptr);

    // Silently; the cursor stays where it is.
    void ShowBytes(std::string_view bytes);
    std::optional<std::string> Bytes() const { return script_.Bytes(Held()); }
    const TicketScript& Script() const { return script_; }
    // What it holds as it stands, also where that cannot be stored; and back, as if it had been typed.
    QString Held() const;
    void TakeHeld(const QString& held);
    // At the cursor, in the place of what is selected.
    void InsertToken(const QString& name);
    QStringList UnknownTokens() const;

  signals:
    void Edited();  // by the person

  protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;

  private:
    void Settle();
    void Replace(const QString& wanted);
    void Offer(bool always);
    void Complete(const QString& name);
    std::optional<QString> Started() const;
    QString TipAt(const QPoint& at) const;

    const TicketTokens& tokens_;
    const ResourceTexts& texts_;
    TicketScript script_;
    TicketHighlighter* highlighter_;
    QCompleter* completer_;
    bool settling_ = false;
};

}  // namespace calyx::ui
