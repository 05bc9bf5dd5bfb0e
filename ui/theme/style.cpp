#include "ui/theme/style.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleFactory>
#include <QStyleOption>
#include <algorithm>

#include "ui/theme/metrics.h"
#include "ui/theme/tokens.h"

namespace calyx::ui {

namespace {

constexpr int kTickBox = 18;
constexpr double kRadius = 4;

bool Has(const QStyleOption* option, QStyle::StateFlag flag) {
    return option->state.testFlag(flag);
}

// A button that stays down tells it by its border too, which shows where fills hardly differ.
bool IsChosenButton(const QStyleOption* option) {
    return option->type == QStyleOption::SO_Button && Has(option, QStyle::State_On);
}

// The colour of a control's border: the accent says where typing goes.
QColor BorderOf(const QStyleOption* option) {
    const bool enabled = Has(option, QStyle::State_Enabled);
    if (enabled && (Has(option, QStyle::State_HasFocus) || IsChosenButton(option)))
        return option->palette.color(role::kAccent);
    return option->palette.color(enabled ? role::kBorder : role::kDivider);
}

}  // namespace

CalyxStyle::CalyxStyle(int stroke) : QProxyStyle(QStyleFactory::create("Fusion")), stroke_(stroke) {}

int CalyxStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
        case PM_IndicatorWidth:
        case PM_IndicatorHeight:
        case PM_ExclusiveIndicatorWidth:
        case PM_ExclusiveIndicatorHeight:
            return kTickBox;
        case PM_LayoutHorizontalSpacing:
        case PM_LayoutVerticalSpacing:
        case PM_CheckBoxLabelSpacing:
            return metrics::kRelated;
        case PM_LayoutLeftMargin:
        case PM_LayoutTopMargin:
        case PM_LayoutRightMargin:
        case PM_LayoutBottomMargin:
            return metrics::kGroups;
        case PM_SmallIconSize:
        case PM_ToolBarIconSize:
        case PM_ListViewIconSize:
            return metrics::kIconSmall;
        case PM_ScrollBarExtent:
            return 14;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int CalyxStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* result) const {
    switch (hint) {
        case SH_ComboBox_Popup:  // the list opens below the box and hides nothing of it
        case SH_EtchDisabledText:
            return 0;
        default:
            return QProxyStyle::styleHint(hint, option, widget, result);
    }
}

QSize CalyxStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                   const QWidget* widget) const {
    QSize whole = QProxyStyle::sizeFromContents(type, option, size, widget);
    switch (type) {
        case CT_CheckBox:
        case CT_RadioButton:
        case CT_ToolButton:
            whole.setWidth(std::max(whole.width(), metrics::kControlHeight));
            [[fallthrough]];
        case CT_LineEdit:
        case CT_ComboBox:
        case CT_PushButton:
        case CT_ItemViewItem:
        case CT_TabBarTab:
            whole.setHeight(std::max(whole.height(), metrics::kControlHeight));
            return whole;
        case CT_SpinBox:  // without the room that Fusion's frame takes
            whole.setHeight(std::max(size.height(), metrics::kControlHeight));
            return whole;
        case CT_MenuItem:
            if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
                item != nullptr && item->menuItemType != QStyleOptionMenuItem::Separator) {
                whole.setHeight(std::max(whole.height(), metrics::kControlHeight));
            }
            return whole;
        default:
            return whole;
    }
}

QRect CalyxStyle::subElementRect(SubElement element, const QStyleOption* option,
                                 const QWidget* widget) const {
    const QRect rect = QProxyStyle::subElementRect(element, option, widget);
    return element == SE_LineEditContents ? rect.adjusted(metrics::kHalf, 0, -metrics::kHalf, 0) : rect;
}

QRect CalyxStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                 const QWidget* widget) const {
    const QRect rect = QProxyStyle::subControlRect(control, option, part, widget);
    // Text begins where it does in a line edit.
    const bool text = control == CC_ComboBox && part == SC_ComboBoxEditField;
    return text ? rect.adjusted(metrics::kHalf / 2, 0, 0, 0) : rect;
}

void CalyxStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    switch (element) {
        case PE_PanelLineEdit:
            // Inside a combo or spin box the box itself draws the frame.
            if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
                frame != nullptr && frame->lineWidth > 0) {
                DrawBox(painter, option, option->rect, option->palette.color(role::kField));
            }
            return;
        case PE_FrameLineEdit:
            return DrawBox(painter, option, option->rect, Qt::transparent);
        case PE_IndicatorCheckBox:
            return DrawCheckBox(option, painter);
        case PE_IndicatorRadioButton:
            return DrawRadioButton(option, painter);
        case PE_PanelButtonCommand:
            return DrawButton(option, painter);
        default:
            return QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void CalyxStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (element != CE_ComboBoxLabel || combo == nullptr || combo->editable)
        return QProxyStyle::drawControl(element, option, painter, widget);
    // What a narrow box cannot show ends in dots.
    QStyleOptionComboBox shown = *combo;
    const QRect room = proxy()->subControlRect(CC_ComboBox, &shown, SC_ComboBoxEditField, widget);
    const int icon = shown.currentIcon.isNull() ? 0 : shown.iconSize.width() + metrics::kHalf;
    shown.currentText =
        painter->fontMetrics().elidedText(shown.currentText, Qt::ElideRight, room.width() - icon - 2);
    QProxyStyle::drawControl(element, &shown, painter, widget);
}

void CalyxStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
    if (control == CC_ComboBox) return DrawComboBox(option, painter, widget);
    if (control == CC_SpinBox) return DrawSpinBox(option, painter, widget);
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void CalyxStyle::DrawBox(QPainter* painter, const QStyleOption* option, QRect rect,
                         const QColor& fill) const {
    const bool focus = (Has(option, State_HasFocus) || IsChosenButton(option)) && Has(option, State_Enabled);
    const int width = focus ? stroke_ + 1 : stroke_;
    const double inset = width / 2.0;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(BorderOf(option), width));
    painter->setBrush(fill);
    painter->drawRoundedRect(QRectF(rect).adjusted(inset, inset, -inset, -inset), kRadius, kRadius);
    painter->restore();
}

void CalyxStyle::DrawCheckBox(const QStyleOption* option, QPainter* painter) const {
    const bool on = Has(option, State_On), partly = Has(option, State_NoChange);
    const QPalette& palette = option->palette;
    const bool filled = (on || partly) && Has(option, State_Enabled);
    QStyleOption box = *option;
    if (!filled) {
        DrawBox(painter, &box, option->rect, palette.color(role::kField));
        if (!on && !partly) return;
    }
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const QRectF rect(option->rect);
    if (filled) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(palette.color(role::kAccent));
        painter->drawRoundedRect(rect, kRadius, kRadius);
    }
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(palette.color(filled ? role::kOnAccent : role::kQuietText), 2, Qt::SolidLine,
                         Qt::RoundCap, Qt::RoundJoin));
    const auto at = [&](double x, double y) {
        return rect.topLeft() + QPointF(x * rect.width(), y * rect.height());
    };
    if (partly) {
        painter->drawLine(at(0.25, 0.5), at(0.75, 0.5));
    } else {
        painter->drawPolyline(QPolygonF{at(0.24, 0.52), at(0.43, 0.71), at(0.77, 0.3)});
    }
    if (filled && Has(option, State_HasFocus)) {  // a ring inside, since the box is of the accent's colour
        painter->setPen(QPen(palette.color(role::kOnAccent), 1));
        painter->drawRoundedRect(rect.adjusted(1.5, 1.5, -1.5, -1.5), kRadius - 1.5, kRadius - 1.5);
    }
    painter->restore();
}

void CalyxStyle::DrawButton(const QStyleOption* option, QPainter* painter) const {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    const bool flat = button != nullptr && button->features.testFlag(QStyleOptionButton::Flat);
    const bool pressed = Has(option, State_Sunken) || Has(option, State_On);
    const bool hover = Has(option, State_MouseOver) && Has(option, State_Enabled);
    if (flat && !pressed && !hover) return;
    DrawBox(painter, option, option->rect,
            option->palette.color(pressed || hover ? role::kHeld : role::kRaised));
}

void CalyxStyle::DrawComboBox(const QStyleOptionComplex* option, QPainter* painter,
                              const QWidget* widget) const {
    const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    const bool open = Has(option, State_On);
    const bool hover =
        Has(option, State_MouseOver) && Has(option, State_Enabled) && !(combo != nullptr && combo->editable);
    if (combo == nullptr || combo->frame) {
        DrawBox(painter, option, option->rect,
                option->palette.color(open || hover ? role::kRaised : role::kField));
    }
    DrawArrow(painter, option, proxy()->subControlRect(CC_ComboBox, option, SC_ComboBoxArrow, widget));
}

void CalyxStyle::DrawRadioButton(const QStyleOption* option, QPainter* painter) const {
    const QPalette& palette = option->palette;
    const bool enabled = Has(option, State_Enabled), focus = enabled && Has(option, State_HasFocus);
    const int width = focus ? stroke_ + 1 : stroke_;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const double inset = width / 2.0;
    const QRectF rect = QRectF(option->rect).adjusted(inset, inset, -inset, -inset);
    painter->setPen(QPen(BorderOf(option), width));
    painter->setBrush(palette.color(role::kField));
    painter->drawEllipse(rect);
    if (Has(option, State_On)) {
        const double dot = rect.width() * 0.27;
        painter->setPen(Qt::NoPen);
        painter->setBrush(palette.color(enabled ? role::kAccent : role::kQuietText));
        painter->drawEllipse(rect.adjusted(dot, dot, -dot, -dot));
    }
    painter->restore();
}

void CalyxStyle::DrawSpinBox(const QStyleOptionComplex* option, QPainter* painter,
                             const QWidget* widget) const {
    const auto* spin = qstyleoption_cast<const QStyleOptionSpinBox*>(option);
    if (spin == nullptr || spin->frame)
        DrawBox(painter, option, option->rect, option->palette.color(role::kField));
    if (spin != nullptr && spin->buttonSymbols == QAbstractSpinBox::NoButtons) return;
    for (const bool up : {true, false}) {
        const SubControl part = up ? SC_SpinBoxUp : SC_SpinBoxDown;
        const QRect rect = proxy()->subControlRect(CC_SpinBox, option, part, widget);
        const auto step = up ? QAbstractSpinBox::StepUpEnabled : QAbstractSpinBox::StepDownEnabled;
        QStyleOption arrow = *option;
        const bool can = spin == nullptr || spin->stepEnabled.testFlag(step);
        arrow.state.setFlag(State_Enabled, can && Has(option, State_Enabled));
        if (can && option->activeSubControls == part && Has(option, State_Enabled)) {
            const QRect held =
                rect.intersected(option->rect.adjusted(stroke_ + 1, stroke_ + 1, -stroke_ - 1, -stroke_ - 1));
            painter->fillRect(held, option->palette.color(role::kHeld));
        }
        DrawArrow(painter, &arrow, rect, up);
    }
}

void CalyxStyle::DrawArrow(QPainter* painter, const QStyleOption* option, QRect rect, bool up) const {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const auto part = Has(option, State_Enabled) ? role::kIcon : role::kQuietText;
    painter->setPen(QPen(option->palette.color(part), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF centre = QRectF(rect).center();
    const double half = std::min(4.0, rect.width() / 4.0), rise = up ? -half / 2 : half / 2;
    painter->drawPolyline(
        QPolygonF{centre + QPointF(-half, -rise), centre + QPointF(0, rise), centre + QPointF(half, -rise)});
    painter->restore();
}

}  // namespace calyx::ui
