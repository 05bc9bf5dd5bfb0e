#pragma once

#include <QScrollArea>
#include <array>
#include <set>
#include <string>

#include "model/cards/card_types.h"
#include "ui/window/page_factory.h"

class QLabel;
class QToolButton;

namespace calyx::ui {

// The installed hardware as a picture: the main board and the 14 expansion slots, each with its card and
// what the card brings. A click, Enter or Space on a slot offers the cards. Taking a card out asks before
// settings are dropped; every change of a card is one undo step.
class ctlHardware : public QScrollArea {
    Q_OBJECT

  public:
    ctlHardware(DocumentSession& session, const PageTools& tools);

    bool FocusKey(const QString& key);  // the line HARDWARE, tables of a memory card

  signals:
    void KeyFocused(const QString& key);
    void ParameterWanted(const QString& key);  // of what a card brings

  protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* MakeBoard();
    QWidget* MakeSlot(int slot);
    void Follow();
    void Refresh();
    void Offer(int slot);
    void Change(int slot, std::int32_t code);
    bool MayDrop(int slot, std::int32_t code);
    QString Brings(int slot, std::int32_t code) const;
    QString WordsBelow(int slot) const;
    QString FirstKey(int slot) const;  // of what the slot's card brings
    QString FirstTableKey(int slot) const;
    bool LacksSettings(int slot, std::int32_t code) const;

    DocumentSession& session_;
    const PageTools& tools_;
    std::array<QToolButton*, card::kSlots> slots_{};
    bool stale_ = false;
};

}  // namespace calyx::ui
