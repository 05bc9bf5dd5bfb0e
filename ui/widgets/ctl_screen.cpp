#include "ui/widgets/ctl_screen.h"

#include <QApplication>
#include <QHelpEvent>
#include <QMimeData>
#include <algorithm>
#include <cmath>

#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/tokens.h"
#include "ui/widgets/screen_accessible.h"
#include "ui/widgets/screen_marks.h"
#include "ui/widgets/widget_texts.h"
#include "ui/widgets/widget_words.h"

namespace calyx::ui {

using namespace widget_text;

namespace {

constexpr int kMargin = 12;  // around the display, for handles at its edge
constexpr int kBezel = 3;

}  // namespace

ctlScreen::ctlScreen(DocumentSession& session, ScreenState& state, ScreenEdits& edits,
                     const Settings& settings)
    : session_(session), state_(state), edits_(edits), settings_(settings) {
    InstallScreenAccess();
    setObjectName(QStringLiteral("ctlScreen"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAcceptDrops(true);
    const auto name = [this] {
        setAccessibleName(Say(state_.Texts(), kCanvasName, QString::number(state_.Screen())));
        CancelGesture();
        update();
    };
    setAccessibleDescription(Say(state_.Texts(), kCanvasHelp));
    name();
    connect(&state_, &ScreenState::ScreenShown, this, name);
    connect(&state_, &ScreenState::WidgetsChanged, this, name);
    connect(&state_, &ScreenState::ChosenChanged, this, [this] {
        update();
        TellFocus(*this);
    });
    // Names and units of scales stand on the display as well.
    connect(&session_, &DocumentSession::Changed, this, qOverload<>(&QWidget::update));
    SetZoom(1);
}

void ctlScreen::SetZoom(double zoom) {
    zoom_ = zoom;
    const int edge = 2 * (kMargin + kBezel);
    setMinimumSize(static_cast<int>(std::ceil(kScreenWidth * zoom)) + edge,
                   static_cast<int>(std::ceil(kScreenHeight * zoom)) + edge);
    update();
}

double ctlScreen::FittingZoom(QSize room) {
    const int edge = 2 * (kMargin + kBezel);
    return std::min(static_cast<double>(room.width() - edge) / kScreenWidth,
                    static_cast<double>(room.height() - edge) / kScreenHeight);
}

QSize ctlScreen::sizeHint() const {
    return minimumSize();
}

QPointF ctlScreen::Corner() const {
    return {std::floor((width() - kScreenWidth * zoom_) / 2),
            std::floor((height() - kScreenHeight * zoom_) / 2)};
}

QRectF ctlScreen::ToWindow(const QRect& rect) const {
    return {Corner() + QPointF(rect.topLeft()) * zoom_, QSizeF(rect.size()) * zoom_};
}

QPoint ctlScreen::ToDisplay(QPointF place) const {
    const QPointF at = (place - Corner()) / zoom_;
    return {static_cast<int>(std::floor(at.x())), static_cast<int>(std::floor(at.y()))};
}

QSize ctlScreen::Grid(Qt::KeyboardModifiers keys) const {
    if (!settings_.SnapToGrid || keys.testFlag(Qt::AltModifier)) return {0, 0};
    return {settings_.GridWidth, settings_.GridHeight};
}

int ctlScreen::WidgetAt(QPoint place) const {
    const std::vector<int> numbers = state_.OnScreen();
    const auto found = std::find_if(numbers.rbegin(), numbers.rend(), [&](int number) {
        return HitRect(state_.Widgets(), number).contains(place);
    });
    return found == numbers.rend() ? 0 : *found;
}

std::optional<Handle> ctlScreen::HandleAt(QPointF place) const {
    if (state_.Chosen().size() != 1 || settings_.LockWidgets) return std::nullopt;
    const int number = state_.Lead();
    const QRectF rect = ToWindow(ShownRect(state_.Widgets(), number));
    for (const marks::Grip& grip : marks::GripsOf(rect, state_.Widgets().widget(number).WidgetType())) {
        if (grip.place.adjusted(-2, -2, 2, 2).contains(place)) return grip.handle;
    }
    return std::nullopt;
}

CWidgets ctlScreen::Shown() const {
    CWidgets widgets = state_.Widgets();
    for (const auto& [number, rect] : gesture_.Result()) {
        CWidget& widget = widgets.widget(number);
        WidgetArea area = widget.WidgetControl();
        area.left = rect.x();
        area.top = rect.y();
        area.width = rect.width();
        area.height = rect.height();
        widget.SetControlToClass(area);
    }
    return widgets;
}

void ctlScreen::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRectF display = ToWindow(kScreenRect);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(hasFocus() ? role::kAccent : role::kBorder));
    painter.drawRoundedRect(display.adjusted(-kBezel, -kBezel, kBezel, kBezel), kBezel, kBezel);
    painter.setRenderHint(QPainter::Antialiasing, false);
    const ScaleDisplays scales = DisplaysOf(std::as_const(session_).Document().Scales());
    const bool moving =
        gesture_.What() == ScreenGesture::Kind::Move || gesture_.What() == ScreenGesture::Kind::Pull;
    const CWidgets shown = moving ? Shown() : state_.Widgets();
    ScreenPainter screen(shown, scales);
    screen.SetGhosts(true);
    painter.save();
    painter.translate(Corner());
    painter.scale(zoom_, zoom_);
    screen.Paint(painter, state_.Screen());
    painter.restore();
    PaintMarks(painter, shown);
}

void ctlScreen::PaintMarks(QPainter& painter, const CWidgets& widgets) const {
    painter.save();
    painter.setClipRect(ToWindow(kScreenRect));
    if (settings_.SnapToGrid)
        marks::Grid(painter, Corner(), {settings_.GridWidth, settings_.GridHeight}, zoom_);
    for (const int number : widgets.OnScreen(state_.Screen())) {
        const bool scale = widgets.widget(number).WidgetType() == WidgetKind::Scale;
        if (!state_.IsChosen(number) && !scale) marks::Outline(painter, ToWindow(ShownRect(widgets, number)));
    }
    painter.restore();
    for (const int number : state_.Chosen()) {
        const QRectF rect = ToWindow(ShownRect(widgets, number));
        marks::Chosen(painter, rect, number == state_.Lead());
        if (state_.Chosen().size() == 1 && !settings_.LockWidgets)
            marks::Grips(painter, marks::GripsOf(rect, widgets.widget(number).WidgetType()));
    }
    if (gesture_.What() == ScreenGesture::Kind::Band && gesture_.HasMoved())
        marks::Band(painter, ToWindow(gesture_.Band()));
}

void ctlScreen::Choose(int number, Qt::KeyboardModifiers keys) {
    if (keys.testFlag(Qt::ControlModifier) || keys.testFlag(Qt::ShiftModifier)) {
        state_.Toggle(number);
    } else if (!state_.IsChosen(number)) {
        state_.Choose({number});
    } else {
        clicked_ = number;  // several may be dragged; a mere click chooses this one alone
        state_.Choose(state_.Chosen(), number);
    }
}

void ctlScreen::mousePressEvent(QMouseEvent* event) {
    const QPointF place = event->position();
    if (event->button() != Qt::LeftButton) {
        const int number = WidgetAt(ToDisplay(place));
        if (event->button() == Qt::RightButton && number != 0 && !state_.IsChosen(number))
            state_.Choose({number});
        return;
    }
    if (placing_) return PlaceAt(*placing_, place, event->modifiers());
    session_.EndTyping();
    pressed_ = place;
    clicked_ = 0;
    const QPoint at = ToDisplay(place);
    if (const auto handle = HandleAt(place)) {
        const int number = state_.Lead();
        return gesture_.BeginPull(at, number, ShownRect(state_.Widgets(), number), *handle);
    }
    const int number = WidgetAt(at);
    if (number == 0) {
        if (!event->modifiers().testFlag(Qt::ControlModifier) &&
            !event->modifiers().testFlag(Qt::ShiftModifier)) {
            state_.Choose({});
        }
        return gesture_.BeginBand(at);
    }
    Choose(number, event->modifiers());
    if (!state_.IsChosen(number)) return;
    Areas areas;
    for (const int chosen : state_.Chosen()) {
        if (HasPlace(state_.Widgets().widget(chosen).WidgetType()))
            areas.emplace(chosen, ShownRect(state_.Widgets(), chosen));
    }
    gesture_.BeginMove(at, std::move(areas), number);
}

void ctlScreen::mouseMoveEvent(QMouseEvent* event) {
    using Kind = ScreenGesture::Kind;
    if (gesture_.What() == Kind::None) return ShowCursor(event->position());
    // A trembling hand moves nothing.
    constexpr double kStill = 3;
    if (!gesture_.HasMoved() && (event->position() - pressed_).manhattanLength() < kStill) return;
    if (gesture_.What() != Kind::Band && (gesture_.Result().empty() || settings_.LockWidgets)) {
        edits_.Tell(gesture_.Result().empty() ? kNoPlace : kLocked);
        return CancelGesture();
    }
    const bool straight = event->modifiers().testFlag(Qt::ShiftModifier) && gesture_.What() == Kind::Move;
    gesture_.DragTo(ToDisplay(event->position()), Grid(event->modifiers()), straight);
    update();
}

void ctlScreen::mouseReleaseEvent(QMouseEvent* event) {
    using Kind = ScreenGesture::Kind;
    if (event->button() != Qt::LeftButton) return;
    const Kind what = gesture_.What();
    const Areas result = gesture_.Result();
    const bool moved = gesture_.HasMoved();
    if (what == Kind::Band && moved) FinishBand(event->modifiers());
    gesture_.End();
    update();
    if (!moved && clicked_ != 0) state_.Choose({clicked_});
    if (!moved || (what != Kind::Move && what != Kind::Pull)) return;
    // Back where it was is no step.
    const bool changed = std::any_of(result.begin(), result.end(), [this](const auto& area) {
        return ShownRect(state_.Widgets(), area.first) != area.second;
    });
    if (changed) edits_.SetAreas(result, what == Kind::Move ? kStepMove : kStepResize);
}

void ctlScreen::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && !placing_ && WidgetAt(ToDisplay(event->position())) != 0)
        emit PropertiesWanted();
}

void ctlScreen::FinishBand(Qt::KeyboardModifiers keys) {
    std::vector<int> numbers;
    if (keys.testFlag(Qt::ControlModifier) || keys.testFlag(Qt::ShiftModifier)) numbers = state_.Chosen();
    for (const int number : state_.OnScreen()) {
        if (HitRect(state_.Widgets(), number).intersects(gesture_.Band())) numbers.push_back(number);
    }
    state_.Choose(std::move(numbers));
}

void ctlScreen::CancelGesture() {
    gesture_.End();
    clicked_ = 0;
    update();
}

void ctlScreen::SetPlacing(std::optional<WidgetKind> kind) {
    if (placing_ == kind) return;
    placing_ = kind;
    setCursor(kind ? Qt::CrossCursor : Qt::ArrowCursor);
    if (!kind) return emit PlacingEnded();
    emit session_.Told(Say(state_.Texts(), kPlacing, KindWords(state_.Texts(), *kind)));
}

void ctlScreen::PlaceAt(WidgetKind kind, QPointF place, Qt::KeyboardModifiers keys) {
    SetPlacing(std::nullopt);
    edits_.Add(kind, Snapped(ToDisplay(place), Grid(keys)));
    setFocus(Qt::MouseFocusReason);
}

void ctlScreen::PlaceFree(WidgetKind kind) {
    constexpr int kStep = 8;
    CWidgets scratch = state_.Widgets();
    const QSize size = ShownRect(scratch, scratch.Add(kind, state_.Screen())).size();
    std::vector<QRect> taken;
    for (const int number : state_.OnScreen()) taken.push_back(HitRect(state_.Widgets(), number));
    SetPlacing(std::nullopt);
    for (int y = kStep; y + size.height() <= kScreenHeight; y += kStep) {
        for (int x = kStep; x + size.width() <= kScreenWidth; x += kStep) {
            const QRect rect({x, y}, size);
            const bool free = std::none_of(taken.begin(), taken.end(),
                                           [&](const QRect& other) { return other.intersects(rect); });
            if (free) return edits_.Add(kind, rect.topLeft());
        }
    }
    edits_.Add(kind, {kStep, kStep});
}

void ctlScreen::ShowCursor(QPointF place) {
    if (placing_) return setCursor(Qt::CrossCursor);
    const auto handle = HandleAt(place);
    if (handle) return setCursor(marks::CursorOf(*handle));
    const int number = WidgetAt(ToDisplay(place));
    const bool movable =
        number != 0 && !settings_.LockWidgets && HasPlace(state_.Widgets().widget(number).WidgetType());
    setCursor(movable ? Qt::SizeAllCursor : Qt::ArrowCursor);
}

void ctlScreen::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) return event->ignore();
    if (event->angleDelta().y() != 0) emit ZoomTurned(event->angleDelta().y() > 0 ? 1 : -1);
    event->accept();
}

bool ctlScreen::Arrow(const QKeyEvent& event) {
    QPoint step;
    switch (event.key()) {
        case Qt::Key_Left:
            step = {-1, 0};
            break;
        case Qt::Key_Right:
            step = {1, 0};
            break;
        case Qt::Key_Up:
            step = {0, -1};
            break;
        case Qt::Key_Down:
            step = {0, 1};
            break;
        default:
            return false;
    }
    if (event.modifiers().testFlag(Qt::AltModifier)) return false;  // the window's
    if (event.modifiers().testFlag(Qt::ShiftModifier)) {
        step = {step.x() * std::max(1, settings_.GridWidth), step.y() * std::max(1, settings_.GridHeight)};
    }
    if (event.modifiers().testFlag(Qt::ControlModifier)) {
        edits_.Grow(step, event.isAutoRepeat());
    } else {
        edits_.Nudge(step, event.isAutoRepeat());
    }
    return true;
}

void ctlScreen::keyPressEvent(QKeyEvent* event) {
    if (Arrow(*event)) return;
    switch (event->key()) {
        case Qt::Key_Escape:
            if (placing_) return SetPlacing(std::nullopt);
            if (gesture_.What() != ScreenGesture::Kind::None) return CancelGesture();
            if (!state_.Chosen().empty()) return state_.Choose({});
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return emit PropertiesWanted();
        default:
            break;
    }
    QWidget::keyPressEvent(event);
}

// From widget to widget; behind the last one, and before the first, on to the page's other controls.
bool ctlScreen::focusNextPrevChild(bool next) {
    const std::vector<int> numbers = state_.OnScreen();
    const auto at = std::find(numbers.begin(), numbers.end(), state_.Lead());
    if (numbers.empty()) return QWidget::focusNextPrevChild(next);
    if (at == numbers.end()) {
        state_.Choose({next ? numbers.front() : numbers.back()});
        return true;
    }
    if (next ? at + 1 == numbers.end() : at == numbers.begin()) return QWidget::focusNextPrevChild(next);
    state_.Choose({next ? *(at + 1) : *(at - 1)});
    return true;
}

void ctlScreen::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void ctlScreen::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    session_.EndTyping();
    update();
}

void ctlScreen::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() != QContextMenuEvent::Keyboard) return emit MenuWanted(event->globalPos());
    const QRectF at =
        state_.Lead() == 0 ? ToWindow(kScreenRect) : ToWindow(ShownRect(state_.Widgets(), state_.Lead()));
    emit MenuWanted(mapToGlobal(at.center().toPoint()));
}

bool ctlScreen::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    auto* help = static_cast<QHelpEvent*>(event);
    const int number = WidgetAt(ToDisplay(help->pos()));
    setToolTip(number == 0 ? QString() : PlaceWords(state_.Texts(), state_.Widgets(), number));
    return QWidget::event(event);
}

void ctlScreen::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasFormat(kKindFormat)) event->acceptProposedAction();
}

void ctlScreen::dropEvent(QDropEvent* event) {
    const int code = event->mimeData()->data(kKindFormat).toInt();
    if (code < 1 || code > static_cast<int>(kWidgetKinds.size())) return;
    event->acceptProposedAction();
    PlaceAt(static_cast<WidgetKind>(code), event->position(), event->modifiers());
}

}  // namespace calyx::ui
