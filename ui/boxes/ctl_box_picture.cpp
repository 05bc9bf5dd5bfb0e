#include "ui/boxes/ctl_box_picture.h"

#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "ui/boxes/box_accessible.h"
#include "ui/boxes/boxes_texts.h"
#include "ui/text.h"
#include "ui/theme/metrics.h"

namespace calyx::ui {

using namespace boxes_text;
using Kind = BoxPlan::Kind;

ctlBoxPicture::ctlBoxPicture(DocumentSession& session, int port) : session_(session), edits_(session, port) {
    InstallBoxAccess();
    setObjectName(QStringLiteral("boxPicture"));
    setAccessibleName(Say(session.Context().texts, kPictureName));
    setAccessibleDescription(Say(session.Context().texts, kKeys));
    setFocusPolicy(Qt::StrongFocus);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    Refresh();
    marks_.focus = 0;
}

BoxPlan ctlBoxPicture::MakePlan(int width) const {
    return BoxPlan::Of(edits_.Box(), session_.Context().texts, width, fontMetrics().height());
}

void ctlBoxPicture::Refresh() {
    if (!std::as_const(session_).Document().JunctionBoxes().Exists(edits_.Port())) return;
    const BoxPlan::Part* focused = Focused();
    const BoxPlan::Part before = focused == nullptr ? BoxPlan::Part() : *focused;
    plan_ = MakePlan(width());
    marks_.focus = std::max(0, plan_.Find(before.kind, before.number));
    std::erase_if(marks_.cells, [&](int cell) { return plan_.Find(Kind::Cell, cell) < 0; });
    updateGeometry();
    update();
}

const BoxPlan::Part* ctlBoxPicture::Focused() const {
    const auto place = static_cast<std::size_t>(marks_.focus);
    return marks_.focus >= 0 && place < plan_.parts.size() ? &plan_.parts[place] : nullptr;
}

bool ctlBoxPicture::HasFocusOn(Kind kind) const {
    return Focused() != nullptr && Focused()->kind == kind;
}

void ctlBoxPicture::AssignTo(int platform) {
    edits_.Assign(marks_.cells, platform);
}

void ctlBoxPicture::Unassign() {
    if (HasFocusOn(Kind::Platform)) return edits_.SetInSystem(Focused()->number, false);
    edits_.Unassign(marks_.cells);
}

void ctlBoxPicture::TurnInSystem() {
    const bool platform = HasFocusOn(Kind::Platform);
    edits_.SetInSystem(platform ? Focused()->number : 0, platform && !Focused()->used);
}

void ctlBoxPicture::GoTo(Kind kind, int number) {
    FocusPart(plan_.Find(kind, number));
    setFocus(Qt::OtherFocusReason);
}

void ctlBoxPicture::FocusPart(int part) {
    if (part < 0) return;
    marks_.focus = part;
    marks_.cells.clear();
    if (HasFocusOn(Kind::Cell)) marks_.cells = {Focused()->number};
    update();
    TellBoxFocus(*this);
    emit FocusMoved();
}

QSize ctlBoxPicture::minimumSizeHint() const {
    const int width = static_cast<int>(std::ceil(BoxPlan::LeastWidth()));
    return {width, heightForWidth(std::max(width, this->width()))};
}

QSize ctlBoxPicture::sizeHint() const {
    return minimumSizeHint();
}

int ctlBoxPicture::heightForWidth(int width) const {
    if (!std::as_const(session_).Document().JunctionBoxes().Exists(edits_.Port())) return 0;
    return static_cast<int>(std::ceil(MakePlan(width).height));
}

bool ctlBoxPicture::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const int part = plan_.PartAt(help->pos());
        if (part < 0) {
            QToolTip::hideText();
        } else {
            QToolTip::showText(help->globalPos(), plan_.parts[static_cast<std::size_t>(part)].spoken, this);
        }
        return true;
    }
    return QWidget::event(event);
}

void ctlBoxPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    BoxPainter(painter, palette(), session_.Context().texts).Draw(plan_, marks_);
}

void ctlBoxPicture::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Refresh();
}

void ctlBoxPicture::Walk(int dx, int dy, bool extend) {
    const int next = plan_.Next(marks_.focus, dx, dy);
    const std::set<int> before = marks_.cells;
    FocusPart(next);
    if (extend) marks_.cells.insert(before.begin(), before.end());
}

void ctlBoxPicture::Turn(int cell) {
    if (!marks_.cells.insert(cell).second) marks_.cells.erase(cell);
    update();
}

void ctlBoxPicture::keyPressEvent(QKeyEvent* event) {
    const bool extend = (event->modifiers() & Qt::ShiftModifier) != 0;
    if (event->matches(QKeySequence::SelectAll)) {
        for (const BoxPlan::Part& part : plan_.parts) {
            if (part.kind == Kind::Cell) marks_.cells.insert(part.number);
        }
        return update();
    }
    switch (event->key()) {
        case Qt::Key_Left:
            return Walk(-1, 0, extend);
        case Qt::Key_Right:
            return Walk(1, 0, extend);
        case Qt::Key_Up:
            return Walk(0, -1, extend);
        case Qt::Key_Down:
            return Walk(0, 1, extend);
        case Qt::Key_Space:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (HasFocusOn(Kind::Cell)) return Turn(Focused()->number);
            return TurnInSystem();
        case Qt::Key_Delete:
        case Qt::Key_Backspace:
        case Qt::Key_0:
            return Unassign();
        case Qt::Key_1:
        case Qt::Key_2:
        case Qt::Key_3:
        case Qt::Key_4:
            return AssignTo(event->key() - Qt::Key_0);
        case Qt::Key_Escape:
            if (marks_.dragged) return StopDragging();
            break;
        default:
            break;
    }
    QWidget::keyPressEvent(event);
}

void ctlBoxPicture::mousePressEvent(QMouseEvent* event) {
    held_ = event->button() == Qt::LeftButton ? plan_.PartAt(event->position()) : -1;
    pressed_ = event->position();
    chooseOne_ = false;
    if (event->button() != Qt::LeftButton) return;
    if (held_ < 0) {
        marks_.cells.clear();
        return update();
    }
    const BoxPlan::Part& part = plan_.parts[static_cast<std::size_t>(held_)];
    const bool more = (event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) != 0;
    if (part.kind == Kind::Cell && more) {
        const std::set<int> before = marks_.cells;
        FocusPart(held_);
        marks_.cells = before;
        return Turn(part.number);
    }
    chooseOne_ = part.kind == Kind::Cell && marks_.cells.contains(part.number);
    if (!chooseOne_) FocusPart(held_);
}

void ctlBoxPicture::mouseMoveEvent(QMouseEvent* event) {
    if (held_ < 0) return;
    const BoxPlan::Part& part = plan_.parts[static_cast<std::size_t>(held_)];
    if (part.kind == Kind::System) return;
    const double distance = (event->position() - pressed_).manhattanLength();
    if (!marks_.dragged && distance < QApplication::startDragDistance()) return;
    QStringList numbers;
    for (const int cell : marks_.cells) numbers += QString::number(cell);
    marks_.draggedWords = part.kind == Kind::Platform ? part.name : numbers.join(QStringLiteral(", "));
    marks_.dragged = event->position();
    setCursor(Qt::ClosedHandCursor);
    ShowDrop(event->position());
}

void ctlBoxPicture::ShowDrop(const QPointF& point) {
    const bool cells = plan_.parts[static_cast<std::size_t>(held_)].kind == Kind::Cell;
    const BoxPlan::Band* band = plan_.BandAt(point);
    marks_.drop = cells && band != nullptr ? band->platform : -1;
    marks_.dropOnSystem = !cells && plan_.parts.back().rect.contains(point);
    update();
}

void ctlBoxPicture::mouseReleaseEvent(QMouseEvent* event) {
    if (held_ < 0 || event->button() != Qt::LeftButton) return;
    const BoxPlan::Part part = plan_.parts[static_cast<std::size_t>(held_)];
    const int held = held_;
    const bool dragged = marks_.dragged.has_value(), alone = chooseOne_, onSystem = marks_.dropOnSystem;
    const int drop = marks_.drop;
    StopDragging();
    if (!dragged) {
        if (alone) FocusPart(held);
        return;
    }
    if (part.kind == Kind::Platform) {
        // Away from the system takes it out.
        const bool away =
            plan_.BandAt(event->position()) != nullptr && !part.rect.contains(event->position());
        if (onSystem || (away && part.used)) edits_.SetInSystem(part.number, onSystem);
        return;
    }
    if (drop > 0) AssignTo(drop);
    if (drop == 0) edits_.Unassign(marks_.cells);
}

void ctlBoxPicture::StopDragging() {
    held_ = -1;
    marks_.dragged.reset();
    marks_.drop = -1;
    marks_.dropOnSystem = false;
    unsetCursor();
    update();
}

void ctlBoxPicture::contextMenuEvent(QContextMenuEvent* event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const int part = byKey ? marks_.focus : plan_.PartAt(event->pos());
    if (part < 0) return;
    const BoxPlan::Part& at = plan_.parts[static_cast<std::size_t>(part)];
    if (at.kind != Kind::Cell || !marks_.cells.contains(at.number)) FocusPart(part);
    const ResourceTexts& texts = session_.Context().texts;
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("menuBox"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (at.kind == Kind::Cell) {
        for (int platform = 1; platform <= CJunctionBox::MaxPlatforms(); ++platform) {
            const std::string name = Utf8(PlatformName(edits_.Box(), texts, platform));
            QAction* assign = menu->addAction(Shown(texts.Format(kAssignTo, {name})));
            assign->setShortcut(QKeySequence(Qt::Key_0 + platform));
            connect(assign, &QAction::triggered, this, [this, platform] { AssignTo(platform); });
        }
        menu->addSeparator();
    } else {
        QAction* turn = menu->addAction(PlainCaption(Say(texts, kInSystem)));
        turn->setCheckable(true);
        turn->setChecked(at.kind == Kind::Platform && at.used);
        turn->setShortcut(Qt::Key_Space);
        connect(turn, &QAction::triggered, this, &ctlBoxPicture::TurnInSystem);
    }
    QAction* off = menu->addAction(PlainCaption(Say(texts, kUnassign)));
    off->setShortcut(Qt::Key_Delete);
    connect(off, &QAction::triggered, this, &ctlBoxPicture::Unassign);
    menu->popup(byKey ? mapToGlobal(at.rect.bottomLeft().toPoint()) : event->globalPos());
}

void ctlBoxPicture::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    marks_.hasFocus = true;
    update();
    TellBoxFocus(*this);
}

void ctlBoxPicture::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    marks_.hasFocus = false;
    update();
}

}  // namespace calyx::ui
