#include "ui/window/chrome_style.h"

#include <QDateTime>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>

#include "ui/theme/metrics.h"
#include "ui/theme/tokens.h"

namespace calyx::ui {

namespace {

constexpr int kCellMargin = 7;   // beside the text of a cell; the views add one
constexpr int kGrip = 5;         // of a divider, of which one pixel is seen
constexpr int kUnderline = 2;    // of the chosen tab
constexpr int kSliderInset = 4;  // of a scroll bar
constexpr int kLeastSlider = 32;
constexpr int kMenuArrow = 20;  // beside a tool button with a menu

bool Has(const QStyleOption* option, QStyle::StateFlag flag) {
    return option->state.testFlag(flag);
}

bool HasWordsBesideIcon(const QStyleOption* option) {
    const auto* button = qstyleoption_cast<const QStyleOptionToolButton*>(option);
    return button != nullptr && button->toolButtonStyle == Qt::ToolButtonTextBesideIcon &&
           !button->icon.isNull() && !button->text.isEmpty();
}

bool Upright(const QStyleOption* option) {
    return !Has(option, QStyle::State_Horizontal);
}

}  // namespace

int ChromeStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
        case PM_FocusFrameHMargin:
        case PM_HeaderMargin:
            return kCellMargin;
        case PM_SplitterWidth:
            return kGrip;
        case PM_MenuButtonIndicator:
            return kMenuArrow;
        case PM_TabBarTabHSpace:
            return 2 * metrics::kGroups;
        case PM_TabBarTabShiftVertical:
        case PM_TabBarBaseOverlap:
        case PM_TabBarTabOverlap:
            return 0;
        case PM_ToolBarItemSpacing:
        case PM_ToolBarItemMargin:
            return metrics::kHalf;
        default:
            return CalyxStyle::pixelMetric(metric, option, widget);
    }
}

int ChromeStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* result) const {
    switch (hint) {
        case SH_ScrollBar_Transient:
        case SH_ItemView_ActivateItemOnSingleClick:
            return 0;
        default:
            return CalyxStyle::styleHint(hint, option, widget, result);
    }
}

QSize ChromeStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                    const QWidget* widget) const {
    const QSize whole = CalyxStyle::sizeFromContents(type, option, size, widget);
    // Room beside the words of a button, and beside a menu's title.
    if (type == CT_PushButton) return whole + QSize(metrics::kRelated, 0);
    if (type == CT_ToolButton && HasWordsBesideIcon(option)) return whole + QSize(metrics::kRelated, 0);
    if (type == CT_MenuBarItem) return {whole.width(), std::max(whole.height(), metrics::kControlHeight)};
    return whole;
}

// A scroll bar is all groove: the wheel and the slider do what arrows did.
QRect ChromeStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                  const QWidget* widget) const {
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control != CC_ScrollBar || bar == nullptr)
        return CalyxStyle::subControlRect(control, option, part, widget);
    const bool upright = bar->orientation == Qt::Vertical;
    const int length = upright ? bar->rect.height() : bar->rect.width();
    const int range = bar->maximum - bar->minimum;
    const int wanted =
        static_cast<int>(static_cast<qint64>(length) * bar->pageStep / std::max(1, range + bar->pageStep));
    const int slider = range == 0 ? length : std::clamp(wanted, std::min(kLeastSlider, length), length);
    const int start = sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition,
                                              length - slider, bar->upsideDown);
    const auto along = [&](int from, int size) {
        return upright ? QRect(0, from, bar->rect.width(), size) : QRect(from, 0, size, bar->rect.height());
    };
    switch (part) {
        case SC_ScrollBarSlider:
            return along(start, slider);
        case SC_ScrollBarSubPage:
            return along(0, start);
        case SC_ScrollBarAddPage:
            return along(start + slider, length - start - slider);
        case SC_ScrollBarGroove:
            return along(0, length);
        default:
            return {};
    }
}

void ChromeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const {
    switch (element) {
        case PE_PanelItemViewItem:
        case PE_PanelItemViewRow:
            return DrawRow(option, painter);
        case PE_FrameTabBarBase:
            return painter->fillRect(
                QRect(option->rect.left(), option->rect.bottom(), option->rect.width(), 1),
                option->palette.color(role::kDivider));
        case PE_FrameFocusRect:
            painter->setPen(option->palette.color(role::kAccent));
            painter->setBrush(Qt::NoBrush);
            return painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        case PE_PanelScrollAreaCorner:
            return painter->fillRect(option->rect, option->palette.color(role::kWindow));
        case PE_IndicatorToolBarSeparator: {
            const int inset = metrics::kHalf;
            return painter->fillRect(QRect(option->rect.center().x(), option->rect.top() + inset, 1,
                                           option->rect.height() - 2 * inset),
                                     option->palette.color(role::kDivider));
        }
        case PE_FrameTabWidget:
        case PE_PanelMenuBar:
        case PE_PanelStatusBar:
        case PE_FrameStatusBarItem:
            return;
        default:
            return CalyxStyle::drawPrimitive(element, option, painter, widget);
    }
}

void ChromeStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    switch (element) {
        case CE_MenuBarItem:
            return DrawMenuTitle(option, painter);
        case CE_MenuItem:
            return DrawMenuItem(option, painter, widget);
        case CE_TabBarTabShape:
            return DrawTab(option, painter);
        case CE_HeaderSection:
        case CE_HeaderEmptyArea:
            return DrawHeading(option, painter);
        case CE_Splitter:
            return DrawDivider(option, painter);
        case CE_ProgressBarGroove:
            return DrawProgress(option, painter, true);
        case CE_ProgressBarContents:
            return DrawProgress(option, painter, false);
        case CE_ToolButtonLabel:
            if (HasWordsBesideIcon(option)) return DrawToolLabel(option, painter);
            return CalyxStyle::drawControl(element, option, painter, widget);
        case CE_ToolBar:
        case CE_MenuBarEmptyArea:
            return painter->fillRect(option->rect, option->palette.color(role::kWindow));
        default:
            CalyxStyle::drawControl(element, option, painter, widget);
    }
}

void ChromeStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                     QPainter* painter, const QWidget* widget) const {
    if (control == CC_ScrollBar) return DrawScrollBar(option, painter, widget);
    CalyxStyle::drawComplexControl(control, option, painter, widget);
}

void ChromeStyle::DrawRow(const QStyleOption* option, QPainter* painter) {
    const QPalette& palette = option->palette;
    if (Has(option, State_Selected)) {
        painter->fillRect(option->rect, palette.color(role::kAccent));
    } else if (Has(option, State_MouseOver) && Has(option, State_Enabled)) {
        painter->fillRect(option->rect, palette.color(role::kRaised));
    }
}

// The chosen one's icon is as light as its words: the style underneath asks for that of a plain one.
void ChromeStyle::DrawMenuItem(const QStyleOption* option, QPainter* painter, const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (item == nullptr || item->icon.isNull() || !Has(option, State_Selected) || !Has(option, State_Enabled))
        return CalyxStyle::drawControl(CE_MenuItem, option, painter, widget);
    QStyleOptionMenuItem chosen(*item);
    const int size = pixelMetric(PM_SmallIconSize, option, widget);
    const qreal ratio = painter->device()->devicePixelRatioF();
    chosen.icon = QIcon(item->icon.pixmap(QSize(size, size), ratio, QIcon::Selected));
    CalyxStyle::drawControl(CE_MenuItem, &chosen, painter, widget);
}

void ChromeStyle::DrawMenuTitle(const QStyleOption* option, QPainter* painter) {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (item == nullptr) return;
    const bool open = Has(option, State_Selected);
    painter->fillRect(item->rect, item->palette.color(open ? role::kHeld : role::kWindow));
    painter->setPen(item->palette.color(role::kText));
    painter->drawText(item->rect, Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextSingleLine, item->text);
}

void ChromeStyle::DrawToolLabel(const QStyleOption* option, QPainter* painter) {
    const auto* button = qstyleoption_cast<const QStyleOptionToolButton*>(option);
    QRect room = button->rect.adjusted(metrics::kHalf, 0, -metrics::kHalf, 0);
    const bool enabled = Has(option, State_Enabled);
    const QRect icon(room.left(), room.center().y() - button->iconSize.height() / 2 + 1,
                     button->iconSize.width(), button->iconSize.height());
    button->icon.paint(painter, icon, Qt::AlignCenter, enabled ? QIcon::Normal : QIcon::Disabled);
    room.setLeft(icon.right() + 1 + metrics::kRelated);
    painter->setFont(button->font);
    painter->setPen(button->palette.color(enabled ? QPalette::ButtonText : role::kQuietText));
    painter->drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextHideMnemonic | Qt::TextSingleLine,
                      button->text);
}

void ChromeStyle::DrawTab(const QStyleOption* option, QPainter* painter) {
    const QPalette& palette = option->palette;
    const QRect& rect = option->rect;
    const bool chosen = Has(option, State_Selected);
    if (!chosen && Has(option, State_MouseOver)) painter->fillRect(rect, palette.color(role::kRaised));
    painter->fillRect(QRect(rect.left(), rect.bottom(), rect.width(), 1), palette.color(role::kDivider));
    if (!chosen) return;
    painter->fillRect(QRect(rect.left(), rect.bottom() - kUnderline + 1, rect.width(), kUnderline),
                      palette.color(role::kAccent));
}

void ChromeStyle::DrawHeading(const QStyleOption* option, QPainter* painter) {
    painter->fillRect(option->rect, option->palette.color(role::kWindow));
    painter->fillRect(QRect(option->rect.left(), option->rect.bottom(), option->rect.width(), 1),
                      option->palette.color(role::kDivider));
}

void ChromeStyle::DrawDivider(const QStyleOption* option, QPainter* painter) {
    const QRect& rect = option->rect;
    // The state tells how the splitter's parts lie; its divider lies across.
    const QRect line = Upright(option) ? QRect(rect.left(), rect.center().y(), rect.width(), 1)
                                       : QRect(rect.center().x(), rect.top(), 1, rect.height());
    const bool hover = Has(option, State_MouseOver);
    painter->fillRect(line, option->palette.color(hover ? role::kAccent : role::kDivider));
}

void ChromeStyle::DrawProgress(const QStyleOption* option, QPainter* painter, bool groove) {
    const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option);
    if (bar == nullptr) return;
    const QPalette& palette = option->palette;
    QRectF rect(option->rect.adjusted(0, option->rect.height() / 2 - 3, 0, 0));
    rect.setHeight(6);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(palette.color(groove ? role::kDivider : role::kAccent));
    if (!groove) {
        const bool endless = bar->minimum == bar->maximum;
        const double part =
            endless ? 0.3 : static_cast<double>(bar->progress - bar->minimum) / (bar->maximum - bar->minimum);
        // Endless: the piece stands where the clock says, there and back in two seconds.
        const auto phase = static_cast<double>(QDateTime::currentMSecsSinceEpoch() % 2000) / 1000.0;
        if (endless) rect.translate(rect.width() * 0.7 * (phase < 1 ? phase : 2 - phase), 0);
        rect.setWidth(rect.width() * std::clamp(part, 0.0, 1.0));
    }
    painter->drawRoundedRect(rect, 3, 3);
    painter->restore();
}

void ChromeStyle::DrawScrollBar(const QStyleOptionComplex* option, QPainter* painter,
                                const QWidget* widget) const {
    const QPalette& palette = option->palette;
    painter->fillRect(option->rect, palette.color(role::kWindow));
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (bar == nullptr || bar->minimum == bar->maximum) return;
    const bool upright = bar->orientation == Qt::Vertical;
    const QRect slider = proxy()
                             ->subControlRect(CC_ScrollBar, option, SC_ScrollBarSlider, widget)
                             .adjusted(upright ? kSliderInset : 1, upright ? 1 : kSliderInset,
                                       upright ? -kSliderInset : -1, upright ? -1 : -kSliderInset);
    const bool held = Has(option, State_Sunken) || (option->activeSubControls & SC_ScrollBarSlider) != 0;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(palette.color(held ? role::kQuietText : role::kBorder));
    painter->drawRoundedRect(slider, 3, 3);
    painter->restore();
}

Theme LookOf(const std::string& word) {
    if (word == "light") return Theme::Light;
    if (word == "dark") return Theme::Dark;
    return word == "contrast" ? Theme::HighContrast : Theme::System;
}

void PutOn(QApplication& application, Theme theme) {
    ApplyTheme(application, theme, [](int stroke) -> QStyle* { return new ChromeStyle(stroke); });
}

}  // namespace calyx::ui
