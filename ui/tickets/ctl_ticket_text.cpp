#include "ui/tickets/ctl_ticket_text.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QCoreApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMimeData>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextBlock>
#include <QToolTip>
#include <QTreeView>
#include <algorithm>

#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"
#include "ui/tickets/ticket_highlighter.h"
#include "ui/tickets/ticket_texts.h"
#include "ui/tickets/token_model.h"

namespace calyx::ui {

namespace {

constexpr int kLongestName = 8;  // of a token that is being typed
constexpr int kOffered = 8;      // rows of the list
constexpr int kOfferedWidth = 400;

// Columns beside the name tell what is offered.
QTreeView* MakePopup() {
    auto* popup = new QTreeView;
    popup->setObjectName(QStringLiteral("tokenCompletions"));
    popup->setRootIsDecorated(false);
    popup->setUniformRowHeights(true);
    popup->header()->hide();
    return popup;
}

}  // namespace

ctlTicketText::ctlTicketText(const TicketTokens& tokens, const ResourceTexts& texts, QWidget* parent)
    : QPlainTextEdit(parent),
      tokens_(tokens),
      texts_(texts),
      script_(tokens),
      highlighter_(new TicketHighlighter(document(), tokens)),
      completer_(new QCompleter(this)) {
    setFont(FixedFont());
    setUndoRedoEnabled(false);
    setTabChangesFocus(true);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    highlighter_->SetColours(palette());
    auto* popup = MakePopup();
    popup->setAccessibleName(Say(texts_, say::kCompletions));
    completer_->setModel(MakeTokenModel(tokens_, texts_, completer_));
    completer_->setPopup(popup);
    completer_->setWidget(this);
    completer_->setCompletionRole(kTokenNameRole);
    completer_->setCaseSensitivity(Qt::CaseInsensitive);
    completer_->setMaxVisibleItems(kOffered);
    connect(completer_, qOverload<const QModelIndex&>(&QCompleter::activated), this,
            [this](const QModelIndex& index) { Complete(index.data(kTokenNameRole).toString()); });
    connect(this, &QPlainTextEdit::textChanged, this, &ctlTicketText::Settle);
}

QString ctlTicketText::Held() const {
    return document()->toRawText();
}

void ctlTicketText::ShowBytes(std::string_view bytes) {
    if (Bytes() == bytes) return;
    const QScopedValueRollback<bool> settling(settling_, true);
    const bool first = document()->isEmpty();
    Replace(script_.Show(bytes));
    if (first) moveCursor(QTextCursor::Start);
}

void ctlTicketText::TakeHeld(const QString& held) {
    {
        const QScopedValueRollback<bool> settling(settling_, true);
        Replace(held);
    }
    emit Edited();
}

// Only what differs, so that cursor and scroll bar stay.
void ctlTicketText::Replace(const QString& wanted) {
    const QString held = Held();
    if (held == wanted) return;
    const auto [same, _] = std::mismatch(held.begin(), held.end(), wanted.begin(), wanted.end());
    const auto start = static_cast<int>(same - held.begin());
    const auto most = std::min(held.size(), wanted.size()) - start;
    qsizetype tail = 0;
    while (tail < most && held[held.size() - tail - 1] == wanted[wanted.size() - tail - 1]) ++tail;
    QTextCursor cursor(document());
    cursor.setPosition(start);
    cursor.setPosition(static_cast<int>(held.size() - tail), QTextCursor::KeepAnchor);
    cursor.insertText(wanted.mid(start, wanted.size() - tail - start));
}

// A token for a break becomes the break; a break that lost its neighbours becomes another token.
void ctlTicketText::Settle() {
    if (settling_) return;
    {
        const QScopedValueRollback<bool> settling(settling_, true);
        Replace(script_.Settled(Held()));
    }
    emit Edited();
}

void ctlTicketText::InsertToken(const QString& name) {
    textCursor().insertText(u'<' + name + u'>');
    ensureCursorVisible();
}

QStringList ctlTicketText::UnknownTokens() const {
    QStringList unknown;
    if (tokens_.All().empty()) return unknown;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        for (const TicketSpan& span : TicketSpans(block.text(), tokens_)) {
            const QString token = block.text().mid(span.from, span.length);
            if (span.kind == TicketPiece::Kind::Unknown && !unknown.contains(token)) unknown += token;
        }
    }
    return unknown;
}

bool ctlTicketText::event(QEvent* event) {
    const bool handled = QPlainTextEdit::event(event);
    if (event->type() == QEvent::PaletteChange) highlighter_->SetColours(palette());
    return handled;
}

bool ctlTicketText::viewportEvent(QEvent* event) {
    // The menu is the field's; it holds what there is to do with the text.
    if (event->type() == QEvent::ContextMenu) return QCoreApplication::sendEvent(this, event);
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const QString words = TipAt(help->pos());
        if (!words.isEmpty()) {
            QToolTip::showText(help->globalPos(), words, viewport());
            return true;
        }
    }
    return QPlainTextEdit::viewportEvent(event);
}

QString ctlTicketText::TipAt(const QPoint& at) const {
    const QTextCursor cursor = cursorForPosition(at);
    const QString line = cursor.block().text();
    for (const TicketSpan& span : TicketSpans(line, tokens_)) {
        const bool here =
            cursor.positionInBlock() >= span.from && cursor.positionInBlock() < span.from + span.length;
        if (!here || span.kind == TicketPiece::Kind::Text) continue;
        if (span.token != nullptr) return TokenTip(*span.token, texts_);
        return tokens_.All().empty() ? QString() : Say(texts_, say::kUnknownTip);
    }
    return {};
}

void ctlTicketText::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (completer_->popup()->isVisible()) {
        switch (event->key()) {
            case Qt::Key_Return:
            case Qt::Key_Enter:
            case Qt::Key_Escape:
            case Qt::Key_Tab:
            case Qt::Key_Backtab:
                return event->ignore();  // the list's
            default:
                break;
        }
    }
    if (event->key() == Qt::Key_Space && event->modifiers() == Qt::ControlModifier) return Offer(true);
    if (enter && !script_.HasBreaks())
        return QToolTip::showText(mapToGlobal(cursorRect().bottomLeft()), Say(texts_, say::kNoLineBreak),
                                  this);
    if (enter) {  // with Shift too, which would join the line to the next break
        textCursor().insertBlock();
        return ensureCursorVisible();
    }
    QPlainTextEdit::keyPressEvent(event);
    const bool typed = !event->text().isEmpty() && event->text().front().isPrint();
    if (typed || event->key() == Qt::Key_Backspace) Offer(false);
}

// The beginning of a token in front of the cursor, without its bracket.
std::optional<QString> ctlTicketText::Started() const {
    const QTextCursor cursor = textCursor();
    const QString before = cursor.block().text().left(cursor.positionInBlock());
    const qsizetype open = before.lastIndexOf(u'<');
    if (open < 0 || before.size() - open - 1 > kLongestName) return std::nullopt;
    const QString name = before.mid(open + 1);
    const bool isName = std::all_of(name.begin(), name.end(), [](QChar c) { return c.isLetterOrNumber(); });
    return isName ? std::optional(name) : std::nullopt;
}

// `always`: also where no token is begun.
void ctlTicketText::Offer(bool always) {
    const auto started = Started();
    completer_->setCompletionPrefix(started.value_or(QString()));
    if ((!started && !always) || completer_->completionCount() == 0) return completer_->popup()->hide();
    auto* popup = static_cast<QTreeView*>(completer_->popup());
    popup->setCurrentIndex(completer_->completionModel()->index(0, 0));
    QRect place = cursorRect().translated(viewport()->pos());
    place.setWidth(kOfferedWidth);
    completer_->complete(place);
    for (int column = 0; column < 2; ++column) popup->resizeColumnToContents(column);
}

void ctlTicketText::Complete(const QString& name) {
    QTextCursor cursor = textCursor();
    if (const auto started = Started()) {
        // The bracket that closes it may stand there already.
        const bool closed = document()->characterAt(cursor.position()) == u'>';
        const int end = cursor.position() + (closed ? 1 : 0);
        cursor.setPosition(cursor.position() - static_cast<int>(started->size()) - 1);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        setTextCursor(cursor);
    }
    InsertToken(name);
}

// The tokens of the breaks, behind their lines.
void ctlTicketText::paintEvent(QPaintEvent* event) {
    QPlainTextEdit::paintEvent(event);
    if (!script_.HasBreaks()) return;
    QPainter painter(viewport());
    painter.setFont(TextFont(TextSize::Small));
    painter.setPen(palette().color(role::kQuietText));
    for (QTextBlock block = firstVisibleBlock(); block.isValid(); block = block.next()) {
        const QRectF place = blockBoundingGeometry(block).translated(contentOffset());
        if (place.top() > event->rect().bottom()) break;
        if (!block.next().isValid()) break;
        const QString text = block.text();
        const qsizetype first = text.indexOf(QChar::LineSeparator);
        const auto at = static_cast<int>(first < 0 ? text.size() : first);
        const QTextLine line = block.layout()->lineForTextPosition(at);
        if (!line.isValid()) continue;
        const QString token = script_.Written(text.mid(at) + QChar::ParagraphSeparator);
        const QPointF end(place.left() + line.cursorToX(at) + metrics::kHalf, place.top() + line.y());
        painter.drawText(QRectF(end, QSizeF(viewport()->width(), line.height())),
                         Qt::AlignLeft | Qt::AlignVCenter, token);
    }
}

QMimeData* ctlTicketText::createMimeDataFromSelection() const {
    auto* copied = new QMimeData;  // the clipboard's from here on
    copied->setText(script_.Written(textCursor().selectedText()));
    return copied;
}

}  // namespace calyx::ui
