#pragma once

#include "ui/theme/style.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

// The style of forms, and over it the flat look of what stands around them: tabs, list headings, rows,
// dividers, tool and scroll bars. Colours come from the palette.
class ChromeStyle final : public CalyxStyle {
    Q_OBJECT

  public:
    using CalyxStyle::CalyxStyle;

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
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
    static void DrawRow(const QStyleOption* option, QPainter* painter);
    void DrawMenuItem(const QStyleOption* option, QPainter* painter, const QWidget* widget) const;
    static void DrawMenuTitle(const QStyleOption* option, QPainter* painter);
    static void DrawToolLabel(const QStyleOption* option, QPainter* painter);
    static void DrawTab(const QStyleOption* option, QPainter* painter);
    static void DrawHeading(const QStyleOption* option, QPainter* painter);
    static void DrawDivider(const QStyleOption* option, QPainter* painter);
    static void DrawProgress(const QStyleOption* option, QPainter* painter, bool groove);
    void DrawScrollBar(const QStyleOptionComplex* option, QPainter* painter, const QWidget* widget) const;
};

// The word of the setting `Theme`: "light", "dark", "contrast"; any other is as the system.
Theme LookOf(const std::string& word);
// Puts a look on; open windows follow.
void PutOn(QApplication& application, Theme theme);

}  // namespace calyx::ui
