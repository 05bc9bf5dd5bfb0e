#include "ui/theme/theme.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QToolTip>

#include "ui/theme/style.h"

namespace calyx::ui {

namespace {

const Tokens& TokensOf(Theme theme) {
    if (theme == Theme::HighContrast) return HighContrastTokens();
    return theme == Theme::Dark ? DarkTokens() : LightTokens();
}

QFont Scaled(QFont font, double factor) {
    if (font.pointSizeF() > 0) {
        font.setPointSizeF(font.pointSizeF() * factor);
    } else {
        font.setPixelSize(qRound(font.pixelSize() * factor));
    }
    return font;
}

}  // namespace

Theme ApplyTheme(QApplication&, Theme theme, StyleMaker make) {
    if (theme == Theme::System) {
        QApplication::setPalette(QPalette());  // ours gone, the platform's shows
        theme =
            QApplication::palette().color(QPalette::Window).lightness() < 128 ? Theme::Dark : Theme::Light;
    }
    const Tokens& tokens = TokensOf(theme);
    const QPalette palette = PaletteOf(tokens);
    // NOLINTBEGIN(clang-analyzer-cplusplus.NewDeleteLeaks): the application owns its style
    QApplication::setStyle(make != nullptr ? make(tokens.stroke) : new CalyxStyle(tokens.stroke));
    QApplication::setPalette(palette);
    // NOLINTEND(clang-analyzer-cplusplus.NewDeleteLeaks)
    QToolTip::setPalette(palette);
    return theme;
}

QFont TextFont(TextSize size) {
    const QFont body = QApplication::font();
    switch (size) {
        case TextSize::Small:
            return Scaled(body, 0.9);
        case TextSize::Heading: {
            QFont heading = Scaled(body, 1.35);
            heading.setWeight(QFont::DemiBold);
            return heading;
        }
        case TextSize::Body:
            break;
    }
    return body;
}

QFont StrongFont() {
    QFont strong = QApplication::font();
    strong.setWeight(QFont::DemiBold);
    return strong;
}

QFont FixedFont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (QApplication::font().pointSizeF() > 0) font.setPointSizeF(QApplication::font().pointSizeF());
    return font;
}

QFont FiguresFont() {
    const QFont body = QApplication::font();
    const QFontMetricsF metrics(body);
    for (char figure = '1'; figure <= '9'; ++figure) {
        if (metrics.horizontalAdvance(QLatin1Char(figure)) != metrics.horizontalAdvance(u'0'))
            return FixedFont();
    }
    return body;
}

}  // namespace calyx::ui
