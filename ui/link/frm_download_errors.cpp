#include "ui/link/frm_download_errors.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPushButton>

#include "ui/dialogs/screen_fit.h"
#include "ui/panes/pane_list.h"
#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/metrics.h"

namespace calyx::ui {

frmDownloadErrors::frmDownloadErrors(const ResourceTexts& texts, const std::vector<FailedLine>& failed,
                                     QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("frmDownloadErrors"));
    setWindowTitle(Say(texts, say::kErrorsTitle));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* list = new PaneList(Say(texts, say::kErrorsTitle),
                              {Say(texts, say::kErrorLine), Say(texts, say::kErrorReason)}, 1);
    std::vector<PaneList::Row> rows;
    for (const FailedLine& line : failed)
        rows.push_back({.cells = {ShownValue(line.line), Shown(line.reason)}});
    list->SetRows(std::move(rows));

    auto* copy = new QPushButton(Say(texts, say::kCopyErrors));
    copy->setAutoDefault(false);
    connect(copy, &QPushButton::clicked, list,
            [list] { QGuiApplication::clipboard()->setText(list->AsText()); });
    auto* close = new QPushButton(Say(texts, say::kCloseMnemonic));
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(metrics::kRelated);
    buttons->addWidget(copy);
    buttons->addStretch();
    buttons->addWidget(close);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(metrics::kGroups, metrics::kGroups, metrics::kGroups, metrics::kGroups);
    all->setSpacing(metrics::kGroups);
    all->addWidget(list, 1);
    all->addLayout(buttons);
    resize(FitScreen(*this, QSize(640, 360)));
}

}  // namespace calyx::ui
