#include "ui/link/tools/frm_training.h"

#include <QHeaderView>
#include <QTreeWidget>
#include <stdexcept>

#include "sim/fault.h"
#include "ui/dialogs/screen_fit.h"
#include "ui/link/dialog_parts.h"
#include "ui/link/tools/tool_texts.h"
#include "ui/texts.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

using namespace tool_text;

namespace {

enum Column { kName, kDetails, kHelp };
constexpr int kNameWidth = 190, kDetailsWidth = 110;

QString WordOf(std::string_view text) {
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

// "late:100@3" as name and what stands behind it.
std::pair<std::string, std::string> Parts(const std::string& fault) {
    const std::size_t end = std::min(fault.find_first_of(":@"), fault.size());
    const bool colon = end < fault.size() && fault[end] == ':';
    return {fault.substr(0, end), fault.substr(end + (colon ? 1 : 0))};
}

std::string Joined(const std::string& name, const std::string& details) {
    return name + (details.empty() || details.starts_with('@') ? "" : ":") + details;
}

}  // namespace

frmTraining::frmTraining(AppContext& app, LinkDesk& desk, QWidget* parent)
    : QDialog(parent), app_(app), desk_(desk), list_(new QTreeWidget), note_(MakeNote("lblNote")) {
    const ResourceTexts& texts = app.model.texts;
    constexpr QSize kUsual(820, 520);
    setObjectName(QStringLiteral("frmTraining"));
    setWindowTitle(Say(texts, kTrainingTitle));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* words = MakeNote("lblWords");
    words->setText(Say(texts, kTrainingWords));
    MakeList();
    QPushButton* healthy = MakeButton(texts, kHealthy, "cmdHealthy");
    QPushButton* apply = MakeButton(texts, kApply, "cmdApply");
    QPushButton* close = MakeButton(texts, say::kCancel, "cmdCancel");
    apply->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(metrics::kRelated);
    buttons->addWidget(healthy);
    buttons->addStretch();
    buttons->addWidget(apply);
    buttons->addWidget(close);
    QVBoxLayout* all = MakeColumn(*this);
    all->addWidget(words);
    all->addWidget(list_, 1);
    all->addWidget(note_);
    all->addLayout(buttons);
    resize(FitScreen(*this, kUsual));
    connect(healthy, &QPushButton::clicked, this, [this] {
        for (int i = 0; i < list_->topLevelItemCount(); ++i)
            list_->topLevelItem(i)->setCheckState(0, Qt::Unchecked);
        Apply();
    });
    connect(apply, &QPushButton::clicked, this, &frmTraining::Apply);
    connect(close, &QPushButton::clicked, this, &frmTraining::reject);
}

void frmTraining::MakeList() {
    const ResourceTexts& texts = app_.model.texts;
    list_->setObjectName(QStringLiteral("faults"));
    list_->setAccessibleName(Say(texts, kTrainingTitle));
    list_->setHeaderLabels({Say(texts, kFault), Say(texts, kArgument), Say(texts, kDoes)});
    list_->setRootIsDecorated(false);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->setWordWrap(true);
    list_->header()->resizeSection(kName, kNameWidth);
    list_->header()->resizeSection(kDetails, kDetailsWidth);
    // Only the details are typed.
    connect(list_, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item, int column) {
        if (column == kDetails) list_->editItem(item, kDetails);
    });
    connect(list_, &QTreeWidget::itemActivated, this,
            [this](QTreeWidgetItem* item) { list_->editItem(item, kDetails); });
    for (const sim::FaultKind& kind : sim::KnownFaults()) {
        auto* item = new QTreeWidgetItem(list_, {WordOf(kind.form), QString(), WordOf(kind.help)});
        item->setFlags(item->flags() | Qt::ItemIsEditable | Qt::ItemIsUserCheckable);
        item->setCheckState(kName, Qt::Unchecked);
        item->setFont(kName, FixedFont());
        item->setFont(kDetails, FixedFont());
        item->setToolTip(kName, Say(texts, kFaultNeeds, WordOf(kind.form)));
        item->setToolTip(kDetails, Say(texts, kArgumentTip));
        item->setToolTip(kHelp, WordOf(kind.help));
        for (const std::string& fault : desk_.Faults()) {
            const auto [name, details] = Parts(fault);
            if (name != kind.name) continue;
            item->setCheckState(kName, Qt::Checked);
            item->setText(kDetails, Shown(details));
        }
    }
}

// All or none: a fault that is not understood leaves the indicator as it was.
void frmTraining::Apply() {
    std::vector<std::string> faults;
    for (int i = 0; i < list_->topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = list_->topLevelItem(i);
        if (item->checkState(kName) != Qt::Checked) continue;
        const sim::FaultKind& kind = sim::KnownFaults()[static_cast<std::size_t>(i)];
        faults.push_back(Joined(std::string(kind.name), Utf8(item->text(kDetails).trimmed())));
        try {
            sim::MakeFault(faults.back());
        } catch (const std::invalid_argument&) {
            list_->setCurrentItem(item, kDetails);
            return ShowNote(
                *note_, Say(app_.model.texts, kFaultWrong, Shown(faults.back()), WordOf(kind.form)), true);
        }
    }
    desk_.SetFaults(faults);
    accept();
}

}  // namespace calyx::ui
