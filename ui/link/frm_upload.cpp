#include "ui/link/frm_upload.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>

#include "ui/link/elapsed.h"
#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/metrics.h"

namespace calyx::ui {

namespace {
constexpr int kWidth = 420;
}

frmUpload::frmUpload(const ResourceTexts& texts, QWidget* parent)
    : QDialog(parent),
      texts_(texts),
      status_(new QLabel),
      received_(new QLabel),
      elapsed_(new ElapsedLabel(texts)) {
    setObjectName(QStringLiteral("frmUpload"));
    setWindowTitle(Say(texts, say::kUploadTitle));
    setWindowModality(Qt::WindowModal);
    setMinimumWidth(kWidth);
    status_->setObjectName(QStringLiteral("lblStatus"));
    received_->setObjectName(QStringLiteral("lblReceived"));
    auto* progress = new QProgressBar;  // how much is to come is not known
    progress->setRange(0, 0);
    progress->setTextVisible(false);
    progress->setAccessibleName(Say(texts, say::kProgressName));
    auto* cancel = new QPushButton(Say(texts, say::kCancel));
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    connect(cancel, &QPushButton::clicked, this, &frmUpload::reject);

    auto* facts = new QHBoxLayout;
    facts->addWidget(received_);
    facts->addStretch();
    facts->addWidget(elapsed_);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cancel);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(metrics::kPageEdge, metrics::kPageEdge, metrics::kPageEdge, metrics::kGroups);
    all->setSpacing(metrics::kGroups);
    all->addWidget(status_);
    all->addWidget(progress);
    all->addLayout(facts);
    all->addLayout(buttons);
    Received(0);
}

void frmUpload::StartElapsed() {
    elapsed_->Start();
}

void frmUpload::Status(const std::string& text) {
    status_->setText(Shown(text));
}

void frmUpload::Received(std::size_t characters) {
    received_->setText(Say(texts_, say::kReceived, QLocale().toString(static_cast<qulonglong>(characters))));
}

void frmUpload::Finish() {
    elapsed_->Stop();
    done(QDialog::Accepted);
}

}  // namespace calyx::ui
