#pragma once

#include <QWidget>

#include "model/language/resource_texts.h"
#include "ui/setpoints/trip_picture.h"

namespace calyx::ui {

// The drawing of a TripPicture. What it shows it also says: its accessible description has the marks in
// words.
class ctlTripDrawing : public QWidget {
    Q_OBJECT

  public:
    ctlTripDrawing(const ResourceTexts& texts, QWidget* parent);

    void Show(const TripPicture& picture);
    const TripPicture& Picture() const { return picture_; }
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    struct Axis;
    QString Words(const TripPicture::Mark& mark) const;
    Axis MakeAxis() const;
    void DrawStretches(QPainter& painter, const Axis& axis) const;
    void DrawMarks(QPainter& painter, const Axis& axis) const;

    const ResourceTexts& texts_;
    TripPicture picture_;
};

}  // namespace calyx::ui
