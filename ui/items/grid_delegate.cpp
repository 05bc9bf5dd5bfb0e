#include "ui/items/grid_delegate.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>

#include "ui/form/bytes.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

using form::Control;
using form::Entry;

namespace {

// What is wrong, below the cell that is edited, as long as it is.
class Bubble : public QLabel {
  public:
    explicit Bubble(QWidget* editor) : QLabel(editor->parentWidget()), editor_(editor) {
        setObjectName(QStringLiteral("cellMessage"));
        setFrameShape(QFrame::StyledPanel);
        setAutoFillBackground(true);
        setBackgroundRole(role::kRaised);
        setFont(TextFont(TextSize::Small));
        setTextFormat(Qt::PlainText);
        setMargin(metrics::kHalf);
        hide();
        connect(editor, &QObject::destroyed, this, &QObject::deleteLater);
    }

    void Say(const QString& words, bool wrong) {
        setForegroundRole(wrong ? role::kProblem : role::kText);
        setText(words);
        setVisible(!words.isEmpty());
        if (words.isEmpty()) return;
        adjustSize();
        const QRect cell = editor_->geometry();
        const int right = parentWidget()->width() - width();
        const bool above = cell.bottom() + height() > parentWidget()->height();
        move(std::max(0, std::min(cell.left(), right)), above ? cell.top() - height() : cell.bottom() + 1);
        raise();
    }

  private:
    QWidget* editor_;
};

Control* ControlOf(QObject* editor) {
    return editor->findChild<Control*>(QString(), Qt::FindDirectChildrenOnly);
}

QString TypedIn(QWidget* editor) {
    const auto* line = qobject_cast<QLineEdit*>(editor);
    return line == nullptr ? QString() : line->text();
}

}  // namespace

QWidget* GridDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                    const QModelIndex& index) const {
    const auto parameter = model_.ParameterAt(index);
    if (!parameter) return nullptr;
    Control* control = form::MakeControl(*parameter, texts_, parent, model_.OffersAt(index)).release();
    QWidget* editor = control->Widget();
    control->setParent(editor);
    editor->setMinimumWidth(0);
    editor->setMaximumWidth(QWIDGETSIZE_MAX);
    editor->setObjectName(QString::fromStdString(parameter->Key()));
    editor->setAccessibleName(model_.NameOf(index));
    auto* self = const_cast<GridDelegate*>(this);
    if (auto* box = qobject_cast<QComboBox*>(editor)) {
        connect(box, &QComboBox::activated, self, [self, box] { self->Close(box, NoHint); });
    } else {
        auto* bubble = new Bubble(editor);
        connect(control, &Control::Edited, bubble, [control, bubble] {
            const Entry entry = control->Read(false);
            bubble->Say(entry.state == Entry::State::Right ? QString() : entry.words,
                        entry.state == Entry::State::Wrong);
        });
        connect(control, &Control::Edited, self, [self, editor](bool typing) {  // chosen from a list
            if (!typing) self->Close(editor, NoHint);
        });
    }
    return editor;
}

void GridDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    Control* control = ControlOf(editor);
    const auto parameter = model_.ParameterAt(index);
    if (control == nullptr || !parameter) return;
    control->Show(parameter->Text());
    auto* line = qobject_cast<QLineEdit*>(editor);
    if (line == nullptr) return;
    if (const QString typed = model_.Untaken(index); !typed.isNull()) {
        line->setText(typed);
        emit control->Edited(true);
    }
    line->selectAll();
}

void GridDelegate::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const {
    const Control* control = ControlOf(editor);
    const auto parameter = model_.ParameterAt(index);
    if (control == nullptr || !parameter) return;
    const Entry entry = control->Read(true);
    const bool untouched = entry.state == Entry::State::Right && entry.text == parameter->Text();
    if (untouched && model_.Untaken(index).isNull()) return;
    model_.Enter(index, entry, TypedIn(editor));
}

void GridDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                        const QModelIndex&) const {
    // A list of choices may be wider than its column; it is never narrower.
    QRect cell = option.rect;
    if (qobject_cast<QComboBox*>(editor) != nullptr)
        cell.setWidth(std::max(cell.width(), editor->sizeHint().width()));
    editor->setGeometry(cell);
}

// The lines of the grid, in the colour of dividers in every look.
void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    const QRect cell = option.rect;
    painter->save();
    painter->setPen(option.palette.color(role::kDivider));
    painter->drawLine(cell.bottomLeft(), cell.bottomRight());
    if (!model_.IsHeading(index.row())) painter->drawLine(cell.topRight(), cell.bottomRight());
    painter->restore();
}

// Room for the longest choice, or for a text of the width that the value can have.
int GridDelegate::WidthOf(const form::Parameter& parameter, const QFont& font) const {
    constexpr int kMostShown = 16;
    QFont bold = font;
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    int width = 0;
    if (const CTextList* list = parameter.List()) {
        for (const auto& entry : *list)
            width = std::max(width, metrics.horizontalAdvance(ToShown(entry.text)));
    } else {
        const int characters = parameter.Info().width == 0 ? kMostShown : parameter.Info().width;
        width = metrics.horizontalAdvance(QLatin1Char('0')) * std::min(characters, kMostShown);
    }
    return width + metrics::kIconSmall + 2 * metrics::kRelated;
}

QSize GridDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    // Room for a mark, also where there is none at present.
    if (index.data(Qt::DecorationRole).isNull()) size.rwidth() += metrics::kIconSmall + metrics::kHalf;
    if (const auto parameter = model_.ParameterAt(index))
        size.setWidth(std::max(size.width(), WidthOf(*parameter, option.font)));
    return {size.width() + metrics::kRelated, std::max(size.height(), metrics::kControlHeight)};
}

void GridDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    const bool right = (option->displayAlignment & Qt::AlignRight) != 0;
    option->decorationPosition = right ? QStyleOptionViewItem::Left : QStyleOptionViewItem::Right;
    option->decorationSize = {metrics::kIconSmall, metrics::kIconSmall};
}

void GridDelegate::Close(QWidget* editor, EndEditHint hint) {
    if (hint != RevertModelCache) emit commitData(editor);
    emit closeEditor(editor, hint);
}

bool GridDelegate::eventFilter(QObject* watched, QEvent* event) {
    auto* editor = qobject_cast<QWidget*>(watched);
    if (editor != nullptr &&
        (event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride) &&
        HoldsKey(editor, event))
        return true;
    return QStyledItemDelegate::eventFilter(watched, event);
}

// Enter goes no further with what is wrong; undo first gives up what is being typed.
bool GridDelegate::HoldsKey(QWidget* editor, QEvent* event) {
    auto* key = static_cast<QKeyEvent*>(event);
    const bool pressed = event->type() == QEvent::KeyPress;
    if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)) {
        event->accept();
        if (pressed) Close(editor, RevertModelCache);
        return true;
    }
    const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    const Control* control = ControlOf(editor);
    if (!pressed || !enter || control == nullptr || qobject_cast<QLineEdit*>(editor) == nullptr) return false;
    const Entry entry = control->Read(true);
    if (entry.state == Entry::State::Right) {
        Close(editor, SubmitModelCache);
        return true;
    }
    if (auto* bubble =
            dynamic_cast<Bubble*>(editor->parentWidget()->findChild<QLabel*>(QStringLiteral("cellMessage"))))
        bubble->Say(entry.words, true);
    return true;
}

}  // namespace calyx::ui
