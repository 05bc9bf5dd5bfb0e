#pragma once

#include <QScrollArea>
#include <QWidget>

#include "model/language/resource_texts.h"
#include "ui/tickets/ticket_painter.h"

class QLabel;

namespace calyx::ui {

// The pages of a ticket, as large as the room allows, with nothing around them.
class TicketCanvas : public QWidget {
    Q_OBJECT

  public:
    explicit TicketCanvas(const ResourceTexts& texts);

    void Show(const TicketSheet& sheet);
    void FitTo(int width);  // pixels; no smaller than can be read
    const TicketSheet& Sheet() const { return painter_.Sheet(); }
    // In words for screen readers, from 0 on, and its place in the widget.
    QString LineWords(int line) const;
    QRect LineRect(int line) const;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void Resize();

    const ResourceTexts& texts_;
    TicketPainter painter_;
    double zoom_ = 1;
};

// The preview of a printed ticket: what the page uses and what is cut in words, the pages below. Keys scroll.
class ctlTicketPreview : public QWidget {
    Q_OBJECT

  public:
    explicit ctlTicketPreview(const ResourceTexts& texts);

    void Show(const TicketSheet& sheet);
    const TicketCanvas& Canvas() const { return *canvas_; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    const ResourceTexts& texts_;
    TicketCanvas* canvas_;
    QScrollArea* scroll_;
    QLabel *page_, *cut_;
};

}  // namespace calyx::ui
