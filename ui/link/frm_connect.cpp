#include "ui/link/frm_connect.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScopeGuard>

#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/metrics.h"
#include "ui/theme/tokens.h"

namespace calyx::ui {

namespace {
constexpr int kWidth = 440;
constexpr int kHostWidth = 240;
constexpr int kPortWidth = 80;
}  // namespace

frmConnect::frmConnect(AppContext& app, LinkDesk& desk, QWidget* parent)
    : QDialog(parent),
      app_(app),
      desk_(desk),
      host_(new QLineEdit(Shown(app.settings.IPAddress))),
      port_(new QLineEdit(QString::number(static_cast<std::uint16_t>(app.settings.TCPPort)))),
      connect_(new QPushButton),
      simulated_(new QPushButton),
      cancel_(new QPushButton),
      progress_(new QProgressBar),
      note_(new QLabel) {
    const ResourceTexts& texts = app.model.texts;
    setObjectName(QStringLiteral("frmConnect"));
    setWindowTitle(Say(texts, say::kConnectTitle));
    setAttribute(Qt::WA_DeleteOnClose);
    host_->setObjectName(QStringLiteral("txtHost"));
    host_->setToolTip(Say(texts, say::kHostTip));
    host_->selectAll();
    port_->setObjectName(QStringLiteral("txtPort"));
    port_->setMaxLength(5);
    port_->setToolTip(Say(texts, say::kPortTip));
    connect_->setText(Say(texts, say::kConnectNow));
    connect_->setObjectName(QStringLiteral("cmdConnect"));
    connect_->setDefault(true);
    simulated_->setText(Say(texts, say::kUseSimulated));
    simulated_->setObjectName(QStringLiteral("cmdSimulated"));
    simulated_->setAutoDefault(false);
    cancel_->setText(Say(texts, say::kCancel));
    cancel_->setObjectName(QStringLiteral("cmdCancel"));
    cancel_->setAutoDefault(false);
    progress_->setRange(0, 0);
    progress_->setTextVisible(false);
    progress_->setAccessibleName(Say(texts, say::kProgressName));
    note_->setObjectName(QStringLiteral("lblNote"));
    note_->setWordWrap(true);
    note_->setTextFormat(Qt::PlainText);
    note_->setMinimumWidth(kWidth);

    auto* fields = new QGridLayout;
    fields->setHorizontalSpacing(metrics::kGroups);
    fields->setVerticalSpacing(metrics::kRelated);
    fields->setColumnStretch(2, 1);
    host_->setFixedWidth(kHostWidth);
    port_->setFixedWidth(kPortWidth);
    const auto addField = [&](int row, int caption, QLineEdit* field) {
        auto* label = new QLabel(Say(texts, caption));
        label->setBuddy(field);
        fields->addWidget(label, row, 0);
        fields->addWidget(field, row, 1, Qt::AlignLeft);
    };
    addField(0, say::kHost, host_);
    addField(1, say::kPort, port_);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(metrics::kRelated);
    buttons->addWidget(simulated_);
    buttons->addStretch();
    buttons->addWidget(connect_);
    buttons->addWidget(cancel_);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(metrics::kPageEdge, metrics::kPageEdge, metrics::kPageEdge, metrics::kGroups);
    all->setSpacing(metrics::kGroups);
    all->addLayout(fields);
    all->addWidget(note_);
    all->addWidget(progress_);
    all->addStretch();
    all->addLayout(buttons);
    ShowNote(Say(texts, say::kSimulatedHint), false);
    SetConnecting(false);

    connect(connect_, &QPushButton::clicked, this, &frmConnect::ConnectTcp);
    connect(simulated_, &QPushButton::clicked, this, &frmConnect::ConnectSimulated);
    connect(cancel_, &QPushButton::clicked, this, &frmConnect::reject);
}

void frmConnect::ConnectTcp() {
    const std::string host = Utf8(host_->text().trimmed());
    bool isNumber = false;
    const std::uint16_t port = port_->text().trimmed().toUShort(&isNumber);
    if (host.empty()) {
        host_->setFocus();
        return ShowNote(Say(app_.model.texts, say::kNeedHost), true);
    }
    if (!isNumber || port == 0) {
        port_->setFocus();
        return ShowNote(Say(app_.model.texts, say::kNeedPort), true);
    }
    Try(Shown(host) + QLatin1Char(':') + QString::number(port), [&] { desk_.Open(host, port); });
}

void frmConnect::ConnectSimulated() {
    Try(PlainCaption(Say(app_.model.texts, say::kSimulated)), [this] { desk_.OpenSimulated(); });
}

template <class Open>
void frmConnect::Try(const QString& where, Open&& open) {
    if (connecting_) return;
    SetConnecting(true);
    const auto end = qScopeGuard([this] { SetConnecting(false); });
    ShowNote(Say(app_.model.texts, say::kConnecting, where), false);
    try {
        open();
        accept();
    } catch (const Error& error) {
        app_.Record(error);
        SetConnecting(false);
        ShowNote(Shown(error.Description()), true);
        connect_->setDefault(true);
        host_->setFocus();
        host_->selectAll();
    }
}

// While connecting, leaving means giving that up; the dialog is left by a second one.
void frmConnect::reject() {
    if (connecting_) return desk_.GiveUpOpening();
    QDialog::reject();
}

void frmConnect::SetConnecting(bool on) {
    connecting_ = on;
    host_->setEnabled(!on);
    port_->setEnabled(!on);
    connect_->setEnabled(!on);
    simulated_->setEnabled(!on);
    QSizePolicy keeps = progress_->sizePolicy();
    keeps.setRetainSizeWhenHidden(true);
    progress_->setSizePolicy(keeps);
    progress_->setVisible(on);
}

void frmConnect::ShowNote(const QString& words, bool problem) {
    note_->setForegroundRole(problem ? role::kProblem : role::kQuietText);
    note_->setText(words);
}

}  // namespace calyx::ui
