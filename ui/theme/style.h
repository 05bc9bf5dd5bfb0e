#pragma once

#include <QProxyStyle>

namespace calyx::ui {

// Fusion with our measures and flat frames. Colours come from the palette alone, so a change of the
// palette is a change of the look. A style and no style sheet: a sheet would take over the boxes of
// whole controls and with them their native measures.
class CalyxStyle : public QProxyStyle {
    Q_OBJECT

  public:
    // `stroke`: width of borders in pixels.
    explicit CalyxStyle(int stroke);

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;

  private:
    void DrawBox(QPainter* painter, const QStyleOption* option, QRect rect, const QColor& fill) const;
    void DrawCheckBox(const QStyleOption* option, QPainter* painter) const;
    void DrawButton(const QStyleOption* option, QPainter* painter) const;
    void DrawComboBox(const QStyleOptionComplex* option, QPainter* painter, const QWidget* widget) const;
    void DrawRadioButton(const QStyleOption* option, QPainter* painter) const;
    void DrawSpinBox(const QStyleOptionComplex* option, QPainter* painter, const QWidget* widget) const;
    void DrawArrow(QPainter* painter, const QStyleOption* option, QRect rect, bool up = false) const;

    int stroke_;
};

}  // namespace calyx::ui
