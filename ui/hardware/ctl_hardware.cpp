#include "ui/hardware/ctl_hardware.h"

#include <QActionGroup>
#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QStyleOption>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/dialogs/dialogs.h"
#include "ui/hardware/hardware_texts.h"
#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/icons.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

namespace {

constexpr int kColumns = 2;
constexpr int kSlotWidth = 300, kSlotHeight = 48;

// Cards as they are offered, the commonest first.
constexpr std::int32_t kOffered[] = {card::kEmptySlot, 1, 2, 3, 4, 17, 5, 6, 7, 15, 8, 9, 10, 11, 12, 13, 16};

// A slot of the board: a socket with a broken edge while it is empty, a card once there is one.
class SlotButton final : public QToolButton {
  public:
    void SetEmpty(bool empty) {
        empty_ = empty;
        update();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QStyleOptionToolButton option;
        initStyleOption(&option);
        const bool held = option.state.testFlag(QStyle::State_MouseOver) || isDown();
        const double width = hasFocus() ? 2 : 1;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(palette().color(held ? role::kHeld : empty_ ? role::kWindow : role::kRaised));
        painter.setPen(QPen(palette().color(hasFocus() ? role::kAccent : role::kBorder), width,
                            empty_ && !hasFocus() ? Qt::DashLine : Qt::SolidLine));
        painter.drawRoundedRect(QRectF(rect()).adjusted(width / 2, width / 2, -width / 2, -width / 2), 4, 4);
    }

  private:
    bool empty_ = true;
};

}  // namespace

ctlHardware::ctlHardware(DocumentSession& session, const PageTools& tools)
    : session_(session), tools_(tools) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(metrics::kPageEdge, metrics::kRelated, metrics::kPageEdge, metrics::kPageEdge);
    column->setSpacing(metrics::kGroups);
    column->addWidget(MakeBoard(), 0, Qt::AlignLeft);
    column->addStretch(1);
    setWidget(content);
    for (int slot = 2; slot <= card::kSlots; ++slot) {
        setTabOrder(slots_[static_cast<std::size_t>(slot - 2)], slots_[static_cast<std::size_t>(slot - 1)]);
    }
    setFocusProxy(slots_.front());
    connect(&session_, &DocumentSession::Changed, this, &ctlHardware::Follow);
    connect(&session_, &DocumentSession::Replaced, this, &ctlHardware::Follow);
    Refresh();
}

QWidget* ctlHardware::MakeBoard() {
    const ResourceTexts& texts = session_.Context().texts;
    auto* frame = new QFrame;
    frame->setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    frame->setForegroundRole(role::kBorder);
    auto* name = new QLabel(Say(texts, say::kMainBoard));
    name->setFont(StrongFont());
    auto* brings = new QLabel(Say(texts, say::kMainBoardBrings));
    brings->setForegroundRole(role::kQuietText);
    auto* grid = new QGridLayout;
    grid->setSpacing(metrics::kRelated);
    const int rows = card::kSlots / kColumns;
    for (int slot = 1; slot <= card::kSlots; ++slot) {
        grid->addWidget(MakeSlot(slot), (slot - 1) % rows, (slot - 1) / rows);
    }
    auto* column = new QVBoxLayout(frame);
    column->setContentsMargins(metrics::kGroups, metrics::kRelated, metrics::kGroups, metrics::kGroups);
    column->setSpacing(2);
    column->addWidget(name);
    column->addWidget(brings);
    column->addSpacing(metrics::kRelated);
    column->addLayout(grid);
    return frame;
}

QWidget* ctlHardware::MakeSlot(int slot) {
    auto* button = new SlotButton;
    button->setObjectName(QStringLiteral("slot%1").arg(slot));
    button->setFixedSize(kSlotWidth, kSlotHeight);
    button->setFocusPolicy(Qt::StrongFocus);
    button->installEventFilter(this);
    connect(button, &QToolButton::clicked, this, [this, slot] { Offer(slot); });
    auto* number = new QLabel(QString::number(slot));
    number->setFont(TextFont(TextSize::Heading));
    number->setForegroundRole(role::kQuietText);
    number->setFixedWidth(metrics::kIconLarge);
    auto* name = new QLabel;
    name->setObjectName(QStringLiteral("name"));
    auto* brings = new QLabel;
    brings->setObjectName(QStringLiteral("brings"));
    brings->setForegroundRole(role::kQuietText);
    auto* words = new QVBoxLayout;
    words->setSpacing(0);
    words->addStretch(1);
    words->addWidget(name);
    words->addWidget(brings);
    words->addStretch(1);
    auto* row = new QHBoxLayout(button);
    row->setContentsMargins(metrics::kGroups, 0, metrics::kGroups, 0);
    row->setSpacing(metrics::kRelated);
    row->addWidget(number);
    row->addLayout(words, 1);
    auto* mark = new QLabel;
    mark->setObjectName(QStringLiteral("mark"));
    row->addWidget(mark);
    for (QLabel* label : {number, name, brings, mark}) label->setAttribute(Qt::WA_TransparentForMouseEvents);
    slots_[static_cast<std::size_t>(slot - 1)] = button;
    return button;
}

void ctlHardware::Follow() {
    stale_ = true;
    if (isVisible()) Refresh();
}

void ctlHardware::showEvent(QShowEvent* event) {
    QScrollArea::showEvent(event);
    if (stale_) Refresh();
}

QString ctlHardware::Brings(int slot, std::int32_t code) const {
    const ResourceTexts& texts = session_.Context().texts;
    const bool ports = code == card::kDualSerial;
    const int first = ports ? card::FirstPort(slot) : slot;
    const int second = ports ? first + 1 : card::SecondChannel(slot);
    return Say(texts, card::Brings(code), QString::number(first), QString::number(second));
}

void ctlHardware::Refresh() {
    stale_ = false;
    const ResourceTexts& texts = session_.Context().texts;
    const CHardware& hardware = std::as_const(session_).Document().Hardware();
    for (int slot = 1; slot <= card::kSlots; ++slot) {
        const std::int32_t code = hardware.CardType(slot);
        QToolButton* button = slots_[static_cast<std::size_t>(slot - 1)];
        static_cast<SlotButton*>(button)->SetEmpty(card::IsEmpty(code));
        auto* name = button->findChild<QLabel*>(QStringLiteral("name"));
        const QString card = Say(texts, card::Name(code));
        name->setText(card);
        name->setFont(card::IsEmpty(code) ? TextFont(TextSize::Body) : StrongFont());
        name->setForegroundRole(card::IsEmpty(code) ? role::kQuietText : role::kText);
        const bool differs = hardware.DiffersFromLive(slot);
        const QString brings = WordsBelow(slot);
        auto* bringsLabel = button->findChild<QLabel*>(QStringLiteral("brings"));
        bringsLabel->setText(brings);
        bringsLabel->setForegroundRole(differs ? role::kProblem : role::kQuietText);
        bringsLabel->setVisible(!brings.isEmpty());
        auto* mark = button->findChild<QLabel*>(QStringLiteral("mark"));
        mark->setVisible(differs);
        mark->setPixmap(Icon(IconName::Differs).pixmap(metrics::kIconSmall));
        button->setAccessibleName(Say(texts, say::kSlotName, QString::number(slot), card));
        button->setAccessibleDescription(QStringLiteral("HARDWARE. ") + brings);
    }
}

// Below the card's name: what it brings, or what the connected indicator has there instead.
QString ctlHardware::WordsBelow(int slot) const {
    const ResourceTexts& texts = session_.Context().texts;
    const CHardware& hardware = std::as_const(session_).Document().Hardware();
    const std::int32_t code = hardware.CardType(slot), live = hardware.LiveCardType(slot);
    if (!hardware.DiffersFromLive(slot)) return card::IsEmpty(code) ? QString() : Brings(slot, code);
    return card::IsEmpty(live) ? Say(texts, hardware_text::kIndicatorHasNone)
                               : Say(texts, hardware_text::kIndicatorHas, Say(texts, card::Name(live)));
}

void ctlHardware::Offer(int slot) {
    const ResourceTexts& texts = session_.Context().texts;
    const std::int32_t present = std::as_const(session_).Document().Hardware().CardType(slot);
    QToolButton* button = slots_[static_cast<std::size_t>(slot - 1)];
    auto* menu = new QMenu(button);
    menu->setObjectName(QStringLiteral("menuCards"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (const QString key = FirstKey(slot); !key.isEmpty()) {
        connect(menu->addAction(Say(texts, say::kShowBrought, Brings(slot, present))), &QAction::triggered,
                this, [this, key] { emit ParameterWanted(key); });
        menu->addSeparator();
    }
    const CHardware& hardware = std::as_const(session_).Document().Hardware();
    if (hardware.DiffersFromLive(slot)) {
        const std::int32_t live = hardware.LiveCardType(slot);
        connect(menu->addAction(Say(texts, hardware_text::kAsIndicator, Say(texts, card::Name(live)))),
                &QAction::triggered, this, [this, slot, live] { Change(slot, live); });
        menu->addSeparator();
    }
    auto* cards = new QActionGroup(menu);  // one of them at a time
    for (const std::int32_t code : kOffered) {
        const bool take = card::IsEmpty(code);
        if (take && card::IsEmpty(present)) continue;
        QAction* action =
            menu->addAction(take ? Say(texts, say::kTakeCardOut) : Say(texts, card::Name(code)));
        action->setData(code);
        action->setCheckable(!take);
        if (!take) cards->addAction(action);
        action->setChecked(code == present);
        connect(action, &QAction::triggered, this, [this, slot, code] { Change(slot, code); });
    }
    menu->popup(button->mapToGlobal(QPoint(0, button->height())));
}

QString ctlHardware::FirstKey(int slot) const {
    switch (std::as_const(session_).Document().Hardware().CardType(slot)) {
        case card::kDualSerial:
            return QStringLiteral("EDP.ALIAS#%1").arg(card::FirstPort(slot));
        case card::kAnalogOutput:
        case card::kDualAnalogOutput:
            return QStringLiteral("ALG.ALIAS#%1").arg(slot);
        case card::kDigitalIO:
            return QStringLiteral("DIO.1#%1").arg(slot);
        case card::kMemory:
            return FirstTableKey(slot);
        default:
            return std::as_const(session_).Document().FieldbusCards().Exists(slot)
                       ? QStringLiteral("FB.SIZE#%1").arg(slot)
                       : QString();
    }
}

// Of the first database table; empty while the card has none.
QString ctlHardware::FirstTableKey(int slot) const {
    const CMemoryCard& memory = std::as_const(session_).Document().Hardware().MemoryCard(slot);
    const std::vector<int> tables = memory.Schemas();
    return tables.empty() ? QString() : KeyText(memory.Schema(tables.front()).Parameters().Key(0));
}

// A fieldbus card of a file may be without its lines; choosing it again adds them.
bool ctlHardware::LacksSettings(int slot, std::int32_t code) const {
    return card::IsFieldbus(code) && !std::as_const(session_).Document().FieldbusCards().Exists(slot);
}

// Whether what the present card brought may go. Untouched defaults go without a question.
bool ctlHardware::MayDrop(int slot, std::int32_t code) {
    CIndicator without = session_.Document();
    const auto taken = without.ChangeCard(slot, code);
    CIndicator fresh = without;
    fresh.ChangeCard(slot, std::as_const(session_).Document().Hardware().CardType(slot));
    bool settings = false;
    for (const auto& change : taken.changes.Changes()) {
        if (!change.before || change.key == "HARDWARE") continue;
        // A line that goes counts when it says more than a new card's would.
        settings = settings ||
                   (change.after ? change.after != change.before : fresh.Value(change.key) != change.before);
    }
    if (!settings) return true;
    const ResourceTexts& texts = session_.Context().texts;
    const std::int32_t present = std::as_const(session_).Document().Hardware().CardType(slot);
    return tools_.ask({Tone::Question,
                       Say(texts, say::kTakeCardTitle),
                       Say(texts, say::kTakeCardQuestion, Say(texts, card::Name(present)),
                           QString::number(slot), Brings(slot, present)),
                       {},
                       {Say(texts, say::kDropSettings), Say(texts, say::kKeepCard)},
                       1}) == 0;
}

void ctlHardware::Change(int slot, std::int32_t code) {
    const std::int32_t present = std::as_const(session_).Document().Hardware().CardType(slot);
    const bool same = code == present || (card::IsEmpty(code) && card::IsEmpty(present));
    if ((same && !LacksSettings(slot, code)) || (!same && !MayDrop(slot, code))) return Refresh();
    const ResourceTexts& texts = session_.Context().texts;
    const std::string name =
        texts.Format(say::kCardStep,
                     {std::to_string(slot), texts.Text(card::Name(present)), texts.Text(card::Name(code))});
    session_.Do(name, [&](CIndicator& document) { return document.ChangeCard(slot, code); });
}

bool ctlHardware::FocusKey(const QString& key) {
    const CHardware& hardware = std::as_const(session_).Document().Hardware();
    if (const auto table = SchemaKey::Of(KeyBytes(key)); table && hardware.HasMemoryCard(table->slot)) {
        slots_[static_cast<std::size_t>(table->slot - 1)]->setFocus();
        return true;
    }
    if (key.compare(QLatin1String("HARDWARE"), Qt::CaseInsensitive) != 0) return false;
    // The first slot that wants something done; none: the one that is worked at.
    int slot = 1;
    while (slot < card::kSlots && !hardware.DiffersFromLive(slot)) ++slot;
    const bool differs = hardware.DiffersFromLive(slot);
    const bool isAtSlot = std::any_of(slots_.begin(), slots_.end(), [](auto* s) { return s->hasFocus(); });
    if (differs || !isAtSlot) slots_[differs ? static_cast<std::size_t>(slot - 1) : 0]->setFocus();
    return true;
}

bool ctlHardware::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        ensureWidgetVisible(static_cast<QWidget*>(watched), 0, metrics::kPageEdge);
        emit KeyFocused(QStringLiteral("HARDWARE"));
    }
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
        const auto slot = std::find(slots_.begin(), slots_.end(), watched) - slots_.begin();
        Change(static_cast<int>(slot) + 1, card::kEmptySlot);
        return true;
    }
    return QScrollArea::eventFilter(watched, event);
}

}  // namespace calyx::ui
