#pragma once

#include <QWidget>
#include <array>
#include <optional>

#include "model/language/resource_texts.h"
#include "model/widgets/widget_fields.h"

class QToolButton;

namespace calyx::ui {

// The six kinds of widgets. A click takes one up, to be placed by the next click on the screen; a drag puts
// it there at once; Enter and the space bar place it without a pointer.
class ctlPalette : public QWidget {
    Q_OBJECT

  public:
    explicit ctlPalette(const ResourceTexts& texts);

    void ShowTaken(std::optional<WidgetKind> kind);

  signals:
    void Taken(calyx::WidgetKind kind);
    void GivenBack();
    void PlaceWanted(calyx::WidgetKind kind);  // by keyboard

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Drag(std::size_t place);

    std::array<QToolButton*, kWidgetKinds.size()> buttons_;
    QPoint pressed_;
};

}  // namespace calyx::ui
