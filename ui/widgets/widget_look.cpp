#include "ui/widgets/widget_look.h"

#include <algorithm>
#include <array>

namespace calyx::ui {

bool HasPlace(WidgetKind kind) {
    return kind != WidgetKind::Scale;
}
bool HasWidth(WidgetKind kind) {
    return HasPlace(kind) && kind != WidgetKind::Symbol;
}
bool HasHeight(WidgetKind kind) {
    return kind == WidgetKind::Bitmap || kind == WidgetKind::Bargraph;
}

int FontPixels(int code) {
    constexpr std::array kPixels{8, 10, 12, 14, 16, 20, 24, 32, 48};
    constexpr int kUsual = 3;
    const bool known = code >= 0 && code < static_cast<int>(kPixels.size());
    return kPixels[static_cast<std::size_t>(known ? code : kUsual)];
}

int LineHeight(int code) {
    return FontPixels(code) * 5 / 4 + 2;
}

ScaleCell CellOf(int style, int place) {
    // How a style shares the screen out, and the height of its figures.
    struct Sharing {
        int across, down, width, height, figures;
    };
    constexpr std::array<Sharing, 7> kSharings{{{1, 1, 320, 250, 72},
                                                {1, 2, 320, 125, 56},
                                                {2, 1, 160, 125, 36},
                                                {2, 2, 160, 125, 32},
                                                {1, 1, 320, 125, 64},
                                                {1, 1, 320, 125, 36},
                                                {1, 10, 320, 25, 18}}};
    const Sharing& sharing = kSharings[static_cast<std::size_t>(std::clamp(style, 0, 6))];
    place %= sharing.across * sharing.down;
    return {{place % sharing.across * sharing.width, place / sharing.across * sharing.height, sharing.width,
             sharing.height},
            sharing.figures};
}

ScaleCell CellOf(const CWidgets& widgets, int number) {
    const CWidget& scale = widgets.widget(number);
    int place = 0;
    for (const int other : widgets.OnScreen(scale.ScreenNumber())) {
        const CWidget& one = widgets.widget(other);
        if (other < number && one.WidgetType() == WidgetKind::Scale &&
            one.Values().style == scale.Values().style) {
            ++place;
        }
    }
    return CellOf(scale.Values().style, place);
}

QRect ShownRect(const CWidgets& widgets, int number) {
    const CWidget& widget = widgets.widget(number);
    const WidgetFields& fields = widget.Values();
    const QPoint corner(fields.left, fields.top);
    switch (widget.WidgetType()) {
        case WidgetKind::Scale:
            return CellOf(widgets, number).area;
        case WidgetKind::Symbol:
            return {corner, QSize(kSymbolSide, kSymbolSide)};
        case WidgetKind::Label:
        case WidgetKind::Numeric:
            return {corner, QSize(fields.width, LineHeight(fields.fontSize))};
        case WidgetKind::Bitmap:
        case WidgetKind::Bargraph:
            break;
    }
    return {corner, QSize(fields.width, fields.height)};
}

QRect HitRect(const CWidgets& widgets, int number) {
    constexpr int kLeast = 6;  // so that what has no size can still be met
    if (widgets.widget(number).WidgetType() == WidgetKind::Scale) {
        const ScaleCell cell = CellOf(widgets, number);
        QRect figures(0, 0, std::min(cell.area.width(), cell.figures * 4), cell.figures);
        figures.moveCenter(cell.area.center());
        return figures;
    }
    QRect rect = ShownRect(widgets, number);
    return {rect.topLeft(), rect.size().expandedTo({kLeast, kLeast})};
}

}  // namespace calyx::ui
