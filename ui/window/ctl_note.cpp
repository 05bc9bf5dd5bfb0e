#include "ui/window/ctl_note.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

#include "ui/document_session.h"
#include "ui/panes/where.h"
#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/icons.h"
#include "ui/theme/metrics.h"
#include "ui/theme/tokens.h"

namespace calyx::ui {

namespace {
constexpr std::size_t kMostNamed = 12;
}

ctlNote::ctlNote(DocumentSession& session) : session_(session), words_(new QLabel) {
    const ResourceTexts& texts = session.Context().texts;
    setObjectName(QStringLiteral("ctlNote"));
    setAutoFillBackground(true);
    setBackgroundRole(role::kRaised);
    auto* icon = new QLabel;
    icon->setPixmap(Icon(IconName::Info).pixmap(metrics::kIconSmall));
    icon->setFixedSize(metrics::kIconSmall, metrics::kControlHeight);
    words_->setObjectName(QStringLiteral("noteWords"));
    words_->setTextFormat(Qt::PlainText);
    words_->setWordWrap(true);
    words_->setMinimumHeight(metrics::kControlHeight);
    words_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* undo = new QPushButton(Say(texts, say::kNoteUndo));
    undo->setObjectName(QStringLiteral("cmdNoteUndo"));
    undo->setAutoDefault(false);
    auto* close = new QToolButton;
    close->setObjectName(QStringLiteral("cmdNoteClose"));
    close->setIcon(Icon(IconName::Close));
    close->setAutoRaise(true);
    close->setToolTip(Say(texts, say::kNoteClose));
    close->setAccessibleName(close->toolTip());
    close->setFixedSize(metrics::kControlHeight, metrics::kControlHeight);
    close->setFocusPolicy(Qt::TabFocus);
    auto* row = new QHBoxLayout(this);
    // The icon stands in the edge, as the marks of fields do.
    row->setContentsMargins(metrics::kPageEdge - metrics::kIconSmall - metrics::kHalf, metrics::kHalf,
                            metrics::kRelated, metrics::kHalf);
    row->setSpacing(metrics::kHalf);
    row->addWidget(icon, 0, Qt::AlignTop);
    row->addWidget(words_, 1);
    row->addSpacing(metrics::kRelated);
    row->addWidget(undo, 0, Qt::AlignTop);
    row->addWidget(close, 0, Qt::AlignTop);
    hide();
    connect(undo, &QPushButton::clicked, this, &ctlNote::UndoWanted);
    connect(close, &QToolButton::clicked, this, &QWidget::hide);
    connect(&session_, &DocumentSession::Unkept, this, &ctlNote::ShowUnkept);
    connect(&session_, &DocumentSession::Replaced, this, &QWidget::hide);
    connect(&session_, &DocumentSession::Saved, this, &QWidget::hide);
}

void ctlNote::ShowUnkept(const std::vector<Refusal>& values) {
    if (!values.empty()) {
        const int text = values.size() == 1 ? say::kUnkeptOne : say::kUnkept;
        words_->setText(Say(session_.Context().texts, text, Named(values)));
        QStringList reasons;
        for (const Refusal& value : values) reasons += Shown(value.key + "=" + value.value);
        words_->setToolTip(reasons.join(QLatin1Char('\n')));
    }
    setVisible(!values.empty());
}

// Item by item: "Scale 2: Alias, Zero range; Port 3: Baud rate".
QString ctlNote::Named(const std::vector<Refusal>& values) const {
    const CIndicator& document = session_.Document();
    QString named, last;
    for (std::size_t i = 0; i < std::min(values.size(), kMostNamed); ++i) {
        const QString label = LabelOf(document, values[i].key);
        const QString name = label.isEmpty() ? Shown(values[i].key) : label;
        const QString item = ItemWords(document, values[i].key);
        if (i > 0) named += item == last ? QStringLiteral(", ") : QStringLiteral("; ");
        if (item != last && !item.isEmpty()) named += item + QStringLiteral(": ");
        named += name;
        last = item;
    }
    if (values.size() <= kMostNamed) return named;
    return Say(session_.Context().texts, say::kUnkeptMore, named,
               QString::number(values.size() - kMostNamed));
}

}  // namespace calyx::ui
