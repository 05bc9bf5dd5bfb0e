#include "ui/form/firmware_dialog.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "ui/form/form_texts.h"
#include "ui/form/words.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui::form {

FirmwareDialog::FirmwareDialog(const ResourceTexts& texts, const Parameter& parameter, QWidget* parent)
    : QDialog(parent) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(Say(texts, kFirmwareTitle, Caption(texts, parameter)));
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(metrics::kPageEdge);
    grid->setVerticalSpacing(metrics::kRelated);
    grid->setColumnStretch(1, 1);
    for (const FirmwareEffect& effect : parameter.Firmware()) {
        QStringList lines;
        for (const KeyValue& line : effect.lines) lines += ToShown(line.key + "=" + line.value);
        const int row = grid->rowCount();
        auto* versions = new QLabel(ToShown(calyx::Words(effect.versions)));
        auto* sent = new QLabel(lines.isEmpty() ? Say(texts, kFirmwareNotSent) : lines.join(u'\n'));
        for (QLabel* label : {versions, sent}) {
            label->setTextFormat(Qt::PlainText);
            label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
            label->setWordWrap(label == versions);
        }
        if (lines.isEmpty()) {
            sent->setForegroundRole(role::kQuietText);
        } else {
            sent->setFont(FixedFont());
        }
        grid->addWidget(versions, row, 0, Qt::AlignTop);
        grid->addWidget(sent, row, 1, Qt::AlignTop);
    }
    auto* intro = new QLabel(Say(texts, kFirmwareIntro));
    intro->setWordWrap(true);
    auto* buttons = new QDialogButtonBox;
    connect(buttons->addButton(Say(texts, kClose), QDialogButtonBox::RejectRole), &QPushButton::clicked, this,
            &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(metrics::kPageEdge, metrics::kPageEdge, metrics::kPageEdge, metrics::kGroups);
    column->setSpacing(metrics::kGroups);
    column->addWidget(intro);
    column->addLayout(grid);
    column->addStretch();
    column->addWidget(buttons);
    setMinimumWidth(440);
}

}  // namespace calyx::ui::form
