#include "ui/panes/ctl_link_log.h"

#include <QLabel>
#include <QTime>

#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

ctlLinkLog::ctlLinkLog(const ResourceTexts& texts) : text_(new QPlainTextEdit) {
    setObjectName(QStringLiteral("ctlLinkLog"));
    text_->setReadOnly(true);
    text_->document()->setDocumentMargin(metrics::kRelated);
    text_->setMaximumBlockCount(kMostLines);
    text_->setFont(FixedFont());
    text_->setFrameShape(QFrame::NoFrame);
    text_->setAccessibleName(Say(texts, say::kLogTab));
    text_->setLineWrapMode(QPlainTextEdit::NoWrap);
    auto* empty = new QLabel(Say(texts, say::kNoLog));
    empty->setWordWrap(true);
    empty->setMargin(metrics::kGroups);
    empty->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    empty->setForegroundRole(role::kQuietText);
    addWidget(empty);
    addWidget(text_);
}

void ctlLinkLog::Append(const QString& line) {
    setCurrentWidget(text_);
    text_->appendPlainText(QTime::currentTime().toString(QStringLiteral("HH:mm:ss  ")) + line);
}

}  // namespace calyx::ui
