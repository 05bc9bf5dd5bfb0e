#include "ui/scales/ctl_scale_source.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>
#include <algorithm>
#include <utility>

#include "ui/form/choice_controls.h"
#include "ui/scales/scale_texts.h"
#include "ui/scales/wrap_layout.h"
#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/tokens.h"

namespace calyx::ui {

using namespace scale_kind;

namespace {

constexpr int kNarrowestChoice = 176;  // so that two columns fit beside the lines

QString Plain(QString words) {  // no mnemonics
    return words.replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace

ctlScaleSource::ctlScaleSource(DocumentSession& session, int scale, QWidget* parent)
    : QWidget(parent), session_(session), scale_(scale), line_(new QHBoxLayout(this)) {
    line_->setContentsMargins(0, 0, 0, 0);
    connect(&session_, &DocumentSession::Changed, this, &ctlScaleSource::Follow);
    connect(&session_, &DocumentSession::Replaced, this, &ctlScaleSource::Follow);
    Refresh();
}

const CScale& ctlScaleSource::Scale() const {
    return std::as_const(session_).Document().Scales().Scale(scale_);
}

void ctlScaleSource::Follow() {
    stale_ = true;
    if (isVisible()) Refresh();
}

void ctlScaleSource::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (stale_) Refresh();
    OrderTabs();
}

void ctlScaleSource::Refresh() {
    stale_ = false;
    const CIndicator& document = std::as_const(session_).Document();
    Shows shows{Scale().ScaleType(), PresentSources(document, scale_), OfferedSources(document, scale_)};
    if (content_ != nullptr && shows == shown_) return;
    shown_ = std::move(shows);
    // The focus stays where it was, or goes to what has moved up there. The window knows it also while a
    // menu is open.
    const auto focused = std::find(controls_.begin(), controls_.end(), window()->focusWidget());
    const auto place = static_cast<std::size_t>(focused - controls_.begin());
    const bool hadFocus = focused != controls_.end();
    const bool atEnd = hadFocus && std::next(focused) == controls_.end();
    if (content_ != nullptr) {
        content_->hide();
        content_->deleteLater();
    }
    controls_.clear();
    content_ = new QWidget(this);
    line_->addWidget(content_, 1);
    Build();
    content_->show();
    setFocusPolicy(controls_.empty() ? Qt::NoFocus : Qt::ClickFocus);  // for the label; Tab passes it by
    OrderTabs();
    if (hadFocus) controls_[atEnd ? controls_.size() - 1 : std::min(place, controls_.size() - 1)]->setFocus();
}

// What is made later would come last on the page; it follows what stands before this source.
void ctlScaleSource::OrderTabs() {
    QWidget* before = previousInFocusChain();
    while (before != this && (isAncestorOf(before) || (before->focusPolicy() & Qt::TabFocus) == 0))
        before = before->previousInFocusChain();
    if (before == this) return;
    for (QWidget* control : controls_) {
        setTabOrder(before, control);
        before = control;
    }
}

void ctlScaleSource::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    // Of the controls it hears too, and they keep the focus.
    if (hasFocus() && !controls_.empty()) controls_.front()->setFocus(event->reason());
}

void ctlScaleSource::Build() {
    if (TakesSeveral(shown_.kind)) return BuildChips();
    if (TakesOne(shown_.kind) && shown_.present.empty() && shown_.offered.empty()) return BuildNoPort();
    if (TakesOne(shown_.kind)) return BuildChoice();
    Say(shown_.kind == kProgrammable ? say::kByProgram : say::kChooseKindFirst);
}

void ctlScaleSource::Say(int text) {
    if (content_->layout() == nullptr) (new WrapLayout(content_));
    auto* words = new QLabel(ui::Say(Texts(), text, Shown(InputOfKind(shown_.kind))));
    words->setForegroundRole(role::kQuietText);
    words->setMinimumHeight(metrics::kControlHeight);
    QFont plain = words->font();
    plain.setBold(false);
    words->setFont(plain);
    words->setWordWrap(true);
    content_->layout()->addWidget(words);
}

void ctlScaleSource::Adopt(QWidget* control) {
    content_->layout()->addWidget(control);
    control->setMinimumHeight(metrics::kControlHeight);
    control->setFocusPolicy(Qt::StrongFocus);
    control->installEventFilter(this);
    controls_.push_back(control);
}

void ctlScaleSource::BuildChips() {
    new WrapLayout(content_);
    for (const SourceChoice& source : shown_.present) Adopt(MakeChip(source));
    if (shown_.present.size() >= static_cast<std::size_t>(kMostSources)) return;
    if (shown_.present.empty() && shown_.offered.empty()) return Say(say::kNothingToAdd);
    if (shown_.offered.empty()) return;
    auto* add = new QToolButton;
    const QString words = ui::Say(Texts(), shown_.kind == kTotal ? say::kAddScale : say::kAddChannel);
    add->setObjectName(QStringLiteral("cmdAddSource"));
    add->setText(shown_.present.empty() ? words : QStringLiteral("+"));
    add->setToolTip(words);
    add->setAccessibleName(words);
    add->setMinimumWidth(metrics::kControlHeight);
    connect(add, &QToolButton::clicked, this, [this, add] { OfferMore(add); });
    Adopt(add);
}

QToolButton* ctlScaleSource::MakeChip(const SourceChoice& source) {
    auto* chip = new QToolButton;
    chip->setObjectName(QStringLiteral("source%1").arg(source.source));
    chip->setText(Plain(source.shortWords) + QStringLiteral("  \u00d7"));
    const QString words = ui::Say(Texts(), say::kRemoveSource, source.words);
    chip->setToolTip(words);
    chip->setAccessibleName(words);
    connect(chip, &QToolButton::clicked, this, [this, number = source.source] { Remove(number); });
    return chip;
}

void ctlScaleSource::OfferMore(QToolButton* button) {
    auto* menu = new QMenu(button);
    menu->setObjectName(QStringLiteral("menuSources"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const SourceChoice& source : shown_.offered) {
        connect(menu->addAction(Plain(source.words)), &QAction::triggered, this,
                [this, number = source.source] {
                    std::vector<std::int32_t> sources;
                    for (const SourceChoice& present : shown_.present) sources.push_back(present.source);
                    sources.push_back(number);
                    Take(sources);
                });
    }
    menu->popup(button->mapToGlobal(QPoint(0, button->height())));
}

void ctlScaleSource::BuildChoice() {
    auto* line = new QHBoxLayout(content_);  // narrower than its words where the page is
    line->setContentsMargins(0, 0, 0, 0);
    auto* box = new form::ChoiceBox;
    box->setObjectName(QStringLiteral("chooseSource"));
    box->setMinimumWidth(kNarrowestChoice);
    const int nothing = shown_.kind == kVexal         ? say::kChooseBox
                        : shown_.kind == kAnalogInput ? say::kChooseChannel
                                                      : say::kChoosePort;
    box->setPlaceholderText(ui::Say(Texts(), nothing));
    std::vector<SourceChoice> all = shown_.offered;
    if (!shown_.present.empty()) all.push_back(shown_.present.front());
    std::sort(all.begin(), all.end(),
              [](const SourceChoice& a, const SourceChoice& b) { return a.source < b.source; });
    for (const SourceChoice& choice : all) box->addItem(choice.words, choice.source);
    box->setCurrentIndex(shown_.present.empty() ? -1 : box->findData(shown_.present.front().source));
    box->setAccessibleName(ui::Say(Texts(), nothing));
    connect(box, &QComboBox::activated, this, [this, box] { Take({box->currentData().toInt()}); });
    Adopt(box);
    box->setMaximumWidth(std::max(kNarrowestChoice, box->sizeHint().width()));
}

void ctlScaleSource::BuildNoPort() {
    Say(say::kNoPortFits);
    const std::string key = KeyForSources(std::as_const(session_).Document(), shown_.kind);
    auto* go = new QPushButton(ui::Say(Texts(), key == "HARDWARE" ? say::kAddCard : say::kShowPort));
    go->setObjectName(QStringLiteral("cmdShowPort"));
    go->setAutoDefault(false);
    connect(go, &QPushButton::clicked, this, [this, key] { emit ParameterWanted(KeyText(key)); });
    Adopt(go);
}

void ctlScaleSource::Remove(std::int32_t source) {
    std::vector<std::int32_t> sources;
    bool removed = false;  // the first of them; the file may have one twice
    for (const SourceChoice& present : shown_.present) {
        if (present.source == source && !std::exchange(removed, true)) continue;
        sources.push_back(present.source);
    }
    Take(sources);
}

void ctlScaleSource::Take(const std::vector<std::int32_t>& sources) {
    const auto refused = session_.Edit(SourceLines(Scale(), sources), {});
    session_.EndTyping();
    if (!refused.empty()) emit session_.Told(Shown(refused.front().reason));
}

bool ctlScaleSource::eventFilter(QObject* watched, QEvent* event) {
    auto* control = static_cast<QWidget*>(watched);
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        control->setAccessibleDescription(accessibleDescription());
        QFocusEvent own(event->type(), static_cast<QFocusEvent*>(event)->reason());
        QCoreApplication::sendEvent(this, &own);
    }
    if (event->type() == QEvent::ToolTip && control->toolTip().isEmpty()) control->setToolTip(toolTip());
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        auto* chip = qobject_cast<QToolButton*>(watched);
        const bool isChip = chip != nullptr && chip->objectName().startsWith(QLatin1String("source"));
        const bool press = chip != nullptr && (key == Qt::Key_Return || key == Qt::Key_Enter);
        if (press || (isChip && (key == Qt::Key_Delete || key == Qt::Key_Backspace))) {
            chip->click();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace calyx::ui
