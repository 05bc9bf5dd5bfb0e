#include "ui/tickets/ctl_ticket.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>
#include <utility>

#include "model/language/text.h"
#include "model/tickets/ticket_edits.h"
#include "ui/form/choice_controls.h"
#include "ui/form/flash.h"
#include "ui/form/form_page.h"
#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"
#include "ui/tickets/ctl_ticket_preview.h"
#include "ui/tickets/ctl_ticket_tokens.h"
#include "ui/tickets/ticket_drafts.h"
#include "ui/tickets/ticket_text_control.h"
#include "ui/tickets/ticket_texts.h"

namespace calyx::ui {

namespace {

constexpr QLatin1String kPageLetters("RCTU");  // mnemonics of the page's own controls
constexpr int kMarkRoom = metrics::kIconSmall + metrics::kHalf;

// The printer type. A page that was its proposal follows in the same step.
class PrinterControl final : public form::ChoiceControl {
  public:
    using Follow = std::function<bool(const std::string& type)>;

    PrinterControl(const CTextList& types, QWidget* parent, Follow follow)
        : ChoiceControl(types, parent), follow_(std::move(follow)) {
        constexpr int kNarrowest = 104;  // so that the preview may be narrow; the list has the whole names
        Widget()->setMinimumWidth(kNarrowest);
    }
    bool MayTake(const std::string& text) override { return follow_(text); }

  private:
    Follow follow_;
};

ChangeSet SetOf(const std::vector<Change>& changes) {
    ChangeSet set;
    for (const Change& change : changes) set.Add(change);
    return set;
}

}  // namespace

ctlTicket::ctlTicket(DocumentSession& session, const ItemRef& ticket, const PageTools& tools,
                     std::shared_ptr<TicketDrafts> drafts)
    : session_(session),
      format_(ticket.number),
      tools_(tools),
      drafts_(std::move(drafts)),
      textSide_(new QWidget),
      length_(new QLabel),
      unknown_(new QLabel),
      preview_(new ctlTicketPreview(session.Context().texts)),
      copyMenu_(new QMenu(this)) {
    auto* sides = new QSplitter(Qt::Horizontal);
    sides->setChildrenCollapsible(false);
    sides->addWidget(MakeTextSide());
    sides->addWidget(MakePreviewSide());
    sides->setHandleWidth(metrics::kHalf);
    constexpr int kTextShare = 11, kPreviewShare = 10;
    sides->setStretchFactor(0, kTextShare);
    sides->setStretchFactor(1, kPreviewShare);
    sides->setSizes({kTextShare * 100, kPreviewShare * 100});
    auto* column = new QVBoxLayout(this);
    // The mark stands in the edge, as on other pages.
    column->setContentsMargins(metrics::kPageEdge - kMarkRoom, 0, metrics::kPageEdge, metrics::kGroups);
    // While the text is not inside yet: with a proxy among its own parts Qt 6.4 would lose this page from the
    // order of Tab, and Tab would go round inside.
    setFocusProxy(control_->Text());
    column->addWidget(sides);
    connect(&session_, &DocumentSession::Changed, this, [this] { Follow(false); });
    connect(&session_, &DocumentSession::Settled, this, [this] { Follow(false); });
    connect(&session_, &DocumentSession::Saved, this, [this] { Follow(false); });
    connect(&session_, &DocumentSession::Replaced, this, [this] { Follow(true); });
    Refresh();
    const QString draft = drafts_->Take(format_);
    if (!draft.isNull()) control_->Text()->TakeHeld(draft);
}

// The field goes before its widgets, which tell of their own end.
ctlTicket::~ctlTicket() {
    const form::Entry entry = control_->Read(true);
    if (entry.state != form::Entry::State::Right)
        drafts_->Keep(format_, control_->Text()->Held(), entry.words);
}

QWidget* ctlTicket::MakeTextSide() {
    field_ = std::make_unique<form::Field>(
        session_, "tickets", KeyOf("FMT"), textSide_, [this](const form::Parameter&, QWidget* parent) {
            auto control = std::make_unique<TicketTextControl>(tools_.ticketTokens, Texts(), parent);
            control_ = control.get();
            return control;
        });
    connect(field_.get(), &form::Field::Focused, this, &ctlTicket::KeyFocused);
    connect(field_.get(), &form::Field::ShowInLines, this, &ctlTicket::ShowInLines);
    connect(control_->Text(), &QPlainTextEdit::textChanged, this, &ctlTicket::ShowText);
    length_->setObjectName(QStringLiteral("ticketLength"));
    unknown_->setObjectName(QStringLiteral("unknownTokens"));
    unknown_->setForegroundRole(role::kQuietText);
    unknown_->setFont(TextFont(TextSize::Small));
    unknown_->setTextFormat(Qt::PlainText);
    unknown_->setWordWrap(true);
    auto* tokens = new ctlTicketTokens(tools_.ticketTokens, Texts());
    connect(tokens, &ctlTicketTokens::Chosen, this, [this](const QString& name) {
        control_->Text()->InsertToken(name);
        control_->Text()->setFocus(Qt::OtherFocusReason);
    });

    auto* heading = new QHBoxLayout;
    heading->setSpacing(0);
    heading->addWidget(field_->MarkWidget());
    heading->addSpacing(metrics::kHalf);
    heading->addWidget(field_->Label());
    heading->addStretch(1);
    heading->addWidget(length_);
    auto* block = new QVBoxLayout;
    block->setContentsMargins(kMarkRoom, 0, 0, 0);
    block->setSpacing(metrics::kHalf);
    block->addWidget(control_->Widget(), 3);
    block->addWidget(field_->Message());
    block->addWidget(unknown_);
    block->addWidget(MakeCommands());
    block->addSpacing(metrics::kRelated);
    block->addWidget(tokens, 2);
    auto* column = new QVBoxLayout(textSide_);
    column->setContentsMargins(0, metrics::kHalf, metrics::kHalf, 0);  // room for the frame that lights up
    column->setSpacing(metrics::kHalf);
    column->addLayout(heading);
    column->addLayout(block, 1);
    return textSide_;
}

QWidget* ctlTicket::MakeCommands() {
    auto* restore = new QPushButton(Say(Texts(), say::kRestoreText));
    restore->setObjectName(QStringLiteral("cmdRestoreText"));
    restore->setToolTip(Say(Texts(), say::kRestoreTextTip));
    restore->setAutoDefault(false);
    connect(restore, &QPushButton::clicked, this, &ctlTicket::Restore);
    auto* copy = new QPushButton(Say(Texts(), say::kCopyTo));
    copy->setObjectName(QStringLiteral("cmdCopyTo"));
    copy->setToolTip(Say(Texts(), say::kCopyToTip));
    copy->setAutoDefault(false);
    copyMenu_->setObjectName(QStringLiteral("menuCopyTo"));
    copy->setMenu(copyMenu_);
    FillCopyMenu();
    auto* commands = new QWidget;
    auto* row = new QHBoxLayout(commands);
    row->setContentsMargins(0, metrics::kHalf, 0, 0);
    row->setSpacing(metrics::kRelated);
    row->addWidget(restore);
    row->addWidget(copy);
    row->addStretch(1);
    return commands;
}

QWidget* ctlTicket::MakePreviewSide() {
    auto* side = new QWidget;
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins(0, metrics::kHalf, 0, 0);
    column->setSpacing(metrics::kRelated);
    // The fields' marks stand left of everything else.
    auto* indented = new QVBoxLayout;
    indented->setContentsMargins(kMarkRoom, 0, 0, 0);
    indented->addWidget(preview_);
    column->addLayout(indented, 1);
    if (!KeyOf("PRN").empty()) column->addWidget(MakeForm());
    return side;
}

QWidget* ctlTicket::MakeForm() {
    const ItemRef item{"tickets", Tickets().Items()[static_cast<std::size_t>(format_ - 1)]->Title(), format_};
    form_ = new FormPage(
        session_, item, nullptr, FormPage::kMenuLetters + kPageLetters, {"FMT", "FMT#1"},
        [this](const form::Parameter& parameter, QWidget* parent) {
            using Made = std::unique_ptr<form::Control>;
            if (parameter.Key() != KeyOf("PRN")) return Made();
            return Made(std::make_unique<PrinterControl>(
                *parameter.List(), parent, [this](const std::string& type) { return FollowPrinter(type); }));
        });
    connect(form_, &FormPage::KeyFocused, this, &ctlTicket::KeyFocused);
    connect(form_, &FormPage::ShowInLines, this, &ctlTicket::ShowInLines);
    form_->widget()->layout()->setContentsMargins(0, 0, 0, 0);
    form_->installEventFilter(this);
    form_->widget()->installEventFilter(this);
    proposalWords_ = new QLabel;
    proposalWords_->setObjectName(QStringLiteral("pageProposal"));
    proposalWords_->setForegroundRole(role::kQuietText);
    proposalWords_->setWordWrap(true);
    auto* use = new QPushButton(Say(Texts(), say::kUseProposal));
    use->setObjectName(QStringLiteral("cmdUseProposal"));
    use->setAutoDefault(false);
    connect(use, &QPushButton::clicked, this, &ctlTicket::UseProposal);
    proposal_ = new QWidget;
    auto* row = new QHBoxLayout(proposal_);
    row->setContentsMargins(kMarkRoom, 0, 0, 0);
    row->setSpacing(metrics::kRelated);
    row->addWidget(proposalWords_, 1);
    row->addWidget(use, 0, Qt::AlignTop);
    auto* both = new QWidget;
    auto* column = new QVBoxLayout(both);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(metrics::kHalf);
    column->addWidget(form_);
    column->addWidget(proposal_);
    return both;
}

const CTickets& ctlTicket::Tickets() const {
    return std::as_const(session_).Document().Tickets();
}

std::string ctlTicket::KeyOf(std::string_view part) const {
    return TicketKey(Tickets(), format_, part);
}

QString ctlTicket::Title(int format) const {
    return Shown(Tickets().ItemTitle(*Tickets().Items()[static_cast<std::size_t>(format - 1)]));
}

// It shows all its fields, with what is said at them; the preview gets the rest of the room.
void ctlTicket::FitForm() {
    QLayout& fields = *form_->widget()->layout();
    form_->setMinimumWidth(fields.totalMinimumSize().width());
    const int wide = form_->viewport()->width();
    form_->setFixedHeight(fields.hasHeightForWidth() ? fields.totalHeightForWidth(wide)
                                                     : fields.totalSizeHint().height());
}

bool ctlTicket::eventFilter(QObject* watched, QEvent* event) {
    const bool handled = QWidget::eventFilter(watched, event);
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest) FitForm();
    return handled;
}

void ctlTicket::Follow(bool anew) {
    stale_ = true;
    staleAnew_ = staleAnew_ || anew;
    if (isVisible()) Refresh();
}

void ctlTicket::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (stale_) Refresh();
}

void ctlTicket::Refresh() {
    stale_ = false;
    field_->Refresh(form::PageState::Of(session_, "tickets", differing_), std::exchange(staleAnew_, false));
    ShowText();
    ShowProposal();
}

void ctlTicket::ShowText() {
    const ctlTicketText& text = *control_->Text();
    const std::string bytes = text.Bytes().value_or(text.Script().Written(text.Held()).toStdString());
    const std::size_t length = TrimRight(bytes).size();
    length_->setText(
        Say(Texts(), say::kLengthOf, QString::number(length), QString::number(TicketFields::kLongest)));
    length_->setForegroundRole(length > TicketFields::kLongest ? role::kProblem : role::kQuietText);
    const QStringList unknown = text.UnknownTokens();
    unknown_->setText(Say(Texts(), say::kUnknownTokens, unknown.join(QStringLiteral(", "))));
    unknown_->setVisible(!unknown.isEmpty());
    preview_->Show(Sheet());
}

TicketSheet ctlTicket::Sheet() const {
    const ctlTicketText& text = *control_->Text();
    const std::string bytes = text.Bytes().value_or(Tickets().TicketFormat(format_));
    TicketSheet sheet{{}, Tickets().CharsPerLine(format_), Tickets().LinesPerPage(format_)};
    for (const std::string& line : PreviewTicket(bytes, tools_.ticketTokens))
        sheet.lines += text.Script().Printed(line);
    return sheet;
}

void ctlTicket::ShowProposal() {
    if (proposal_ == nullptr) return;
    const int type = Tickets().PrinterType(format_);
    const int chars = Tickets().DefaultCharsPerLine(type), lines = Tickets().DefaultLinesPerPage(type);
    proposalWords_->setText(Say(Texts(), say::kProposal, QString::number(chars), QString::number(lines)));
    proposal_->setVisible(chars != Tickets().CharsPerLine(format_) ||
                          lines != Tickets().LinesPerPage(format_));
}

// A page that was set by hand stays; the new type's is offered then.
bool ctlTicket::FollowPrinter(const std::string& type) {
    const auto next = ReadInteger(type);
    const int now = Tickets().PrinterType(format_);
    const bool proposed = Tickets().CharsPerLine(format_) == Tickets().DefaultCharsPerLine(now) &&
                          Tickets().LinesPerPage(format_) == Tickets().DefaultLinesPerPage(now);
    if (!proposed || !next || next->value < 1 || next->value > Tickets().PrinterTypeCount()) return true;
    const std::string chars = std::to_string(Tickets().DefaultCharsPerLine(next->value));
    const std::string lines = std::to_string(Tickets().DefaultLinesPerPage(next->value));
    const bool same = chars == std::to_string(Tickets().CharsPerLine(format_)) &&
                      lines == std::to_string(Tickets().LinesPerPage(format_));
    session_.Edit({{KeyOf("PRN"), type}, {KeyOf("HORZ"), chars}, {KeyOf("VERT"), lines}}, {});
    if (!same) emit session_.Told(Say(Texts(), say::kPageFollowed, Shown(chars), Shown(lines)));
    return true;
}

void ctlTicket::UseProposal() {
    const int type = Tickets().PrinterType(format_);
    session_.Edit({{KeyOf("HORZ"), std::to_string(Tickets().DefaultCharsPerLine(type))},
                   {KeyOf("VERT"), std::to_string(Tickets().DefaultLinesPerPage(type))}},
                  Texts().Format(say::kProposalStep, {Utf8(Title(format_))}));
    session_.EndTyping();
    form_->FocusKey(KeyText(KeyOf("HORZ")));
}

void ctlTicket::Restore() {
    const auto changes = RestoreTicket(Tickets(), format_);
    const bool typed = control_->Text()->Bytes() != Tickets().TicketFormat(format_);
    if (changes.empty() && !typed) return emit session_.Told(Say(Texts(), say::kTextIsDefault));
    session_.Do(Texts().Format(say::kRestoreTextStep, {Utf8(Title(format_))}),
                [&](CIndicator& document) { return document.Apply(SetOf(changes)); });
    // What was typed and could not be stored goes too.
    if (control_->Text()->Bytes() == Tickets().TicketFormat(format_)) return;
    control_->Text()->ShowBytes(Tickets().TicketFormat(format_));
    emit control_->Edited(false);
}

void ctlTicket::FillCopyMenu() {
    QMenu* auxiliaries = nullptr;
    for (int format = 1; format < kAuditFormat; ++format) {
        QMenu* menu = copyMenu_;
        if (format >= kFirstAuxiliary) {
            if (auxiliaries == nullptr)
                auxiliaries = copyMenu_->addMenu(Say(Texts(), say::kAuxiliaryFormats));
            menu = auxiliaries;
        }
        if (format == format_) continue;
        connect(menu->addAction(Title(format)), &QAction::triggered, this,
                [this, format] { CopyTo(format); });
    }
}

void ctlTicket::CopyTo(int format) {
    const auto changes = CopyTicket(Tickets(), format_, format);
    const QString to = Title(format);
    if (changes.empty()) return emit session_.Told(Say(Texts(), say::kSameThere, to));
    session_.Do(Texts().Format(say::kCopyToStep, {Utf8(Title(format_)), Utf8(to)}),
                [&](CIndicator& document) { return document.Apply(SetOf(changes)); });
    emit session_.Told(Say(Texts(), say::kCopiedTo, to));
}

bool ctlTicket::FocusKey(const QString& key) {
    if (stale_) Refresh();
    if (!field_->Covers(KeyBytes(key))) return form_ != nullptr && form_->FocusKey(key);
    control_->Text()->setFocus(Qt::OtherFocusReason);
    new form::Flash(field_->Label(), control_->Text(), textSide_);
    return true;
}

void ctlTicket::SetDiffering(const std::set<std::string>& keys) {
    differing_.clear();
    for (const std::string& key : keys) differing_.insert(Upper(key));
    if (form_ != nullptr) form_->SetDiffering(keys);
    Follow(false);
}

}  // namespace calyx::ui
