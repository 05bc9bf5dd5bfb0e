#pragma once

#include <QPalette>
#include <QPoint>
#include <optional>
#include <set>

#include "ui/boxes/box_plan.h"

class QPainter;

namespace calyx::ui {

// What a person is at in the picture.
struct BoxMarks {
    std::set<int> cells;  // chosen
    int focus = -1;       // part with the keyboard
    bool hasFocus = false;
    int drop = -1;  // band, by its platform, that would take what is dragged; -1: none
    bool dropOnSystem = false;
    std::optional<QPointF> dragged;  // where the dragged parts are
    QString draggedWords;
};

// Draws the picture of a junction box from its plan, in the colours of a palette.
class BoxPainter {
  public:
    BoxPainter(QPainter& painter, const QPalette& palette, const ResourceTexts& texts)
        : painter_(painter), palette_(palette), texts_(texts) {}

    void Draw(const BoxPlan& plan, const BoxMarks& marks);

  private:
    QColor Colour(QPalette::ColorRole role) const { return palette_.color(role); }
    void DrawLanes(const BoxPlan& plan);
    void DrawBand(const BoxPlan::Band& band, const BoxPlan& plan, bool drop);
    void DrawLinks(const BoxPlan& plan);
    void DrawArrow(const QPointF& from, const QPointF& to, double bend);
    void DrawPart(const BoxPlan::Part& part, const BoxMarks& marks, bool focused);
    void DrawCell(const BoxPlan::Part& part, const QColor& text);
    void DrawBox(const BoxPlan::Part& part, const QColor& text);
    void DrawDragged(const BoxMarks& marks);
    void DrawProblem(const QPointF& corner, const QColor& colour);

    QPainter& painter_;
    const QPalette& palette_;
    const ResourceTexts& texts_;
};

}  // namespace calyx::ui
