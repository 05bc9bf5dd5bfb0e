#include "ui/link/terminal/frm_macro.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "ui/form/bytes.h"
#include "ui/link/dialog_parts.h"
#include "ui/link/terminal/terminal_texts.h"
#include "ui/texts.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

using namespace terminal_text;

frmMacro::frmMacro(const ResourceTexts& texts, const QString& name, const MacroKey& key, QWidget* parent)
    : QDialog(parent),
      caption_(new QLineEdit(ToShown(key.caption))),
      text_(new QPlainTextEdit(ToShown(key.text))),
      enter_(new QCheckBox(Say(texts, kMacroEnter))) {
    constexpr int kWidth = 400, kTextHeight = 96, kCaptionLength = 20;
    setObjectName(QStringLiteral("frmMacro"));
    setWindowTitle(Say(texts, kMacroTitle, name));
    setAttribute(Qt::WA_DeleteOnClose);
    setMinimumWidth(kWidth);
    caption_->setObjectName(QStringLiteral("txtCaption"));
    caption_->setMaxLength(kCaptionLength);
    text_->setObjectName(QStringLiteral("txtMacro"));
    text_->setFont(FixedFont());
    text_->setFixedHeight(kTextHeight);
    text_->setTabChangesFocus(true);
    enter_->setChecked(key.sendsEnter);
    enter_->setMinimumHeight(metrics::kControlHeight);
    QVBoxLayout* all = MakeColumn(*this);
    all->setSpacing(metrics::kRelated);
    const auto add = [&](int caption, QWidget* field) {
        auto* label = new QLabel(Say(texts, caption));
        label->setBuddy(field);
        all->addWidget(label);
        all->addWidget(field);
    };
    add(kMacroName, caption_);
    add(kMacroText, text_);
    all->addWidget(enter_);
    auto* keep = MakeButton(texts, kKeep, "cmdKeep");
    auto* cancel = MakeButton(texts, say::kCancel, "cmdCancel");
    keep->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(metrics::kRelated);
    buttons->addStretch();
    buttons->addWidget(keep);
    buttons->addWidget(cancel);
    all->addSpacing(metrics::kRelated);
    all->addLayout(buttons);
    connect(keep, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

MacroKey frmMacro::Key() const {
    return {ToBytes(caption_->text().trimmed(), {}), ToBytes(text_->toPlainText(), {}), enter_->isChecked()};
}

}  // namespace calyx::ui
