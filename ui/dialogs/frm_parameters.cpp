#include "ui/dialogs/frm_parameters.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>

#include "model/document/indicator.h"
#include "ui/dialogs/screen_fit.h"
#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/metrics.h"

namespace calyx::ui {

namespace {

QString Number(double value) {
    std::string text;
    AppendSingle(text, static_cast<float>(value));
    return Shown(text);
}

QString AllowedWords(const ResourceTexts& texts, const Item& item, std::size_t row) {
    if (const CTextList* list = item.List(row)) {
        QStringList words;
        for (const auto& entry : *list) words += ShownValue(entry.key);
        return words.join(QStringLiteral(", "));
    }
    const RowInfo& info = item.Info(row);
    if (info.more.HasRange()) {
        return Say(texts, say::kRangeWords, Number(info.more.min), Number(info.more.max),
                   Shown(info.more.unit))
            .trimmed();
    }
    switch (info.kind) {
        case ValueKind::Integer:
            return Say(texts, say::kWholeNumber);
        case ValueKind::Decimal:
            return Say(texts, say::kNumber);
        case ValueKind::Switch:
            return Say(texts, say::kSwitchWords);
        case ValueKind::Date:
            return Say(texts, say::kDateWords);
        case ValueKind::Text:
            break;
    }
    return info.width == 0 ? Say(texts, say::kAnyFreeText)
                           : Say(texts, say::kAnyText, QString::number(info.width));
}

std::vector<PaneList::Row> AllParameters(const ModelContext& context) {
    CIndicator document(context);
    document.Initialize();
    std::vector<PaneList::Row> rows;
    for (const Section* section : document.Sections()) {
        for (const Item* item : section->Items()) {
            for (std::size_t row = 0; row < item->RowCount(); ++row) {
                const More& more = item->Info(row).more;
                if (more.use == Use::Page) continue;
                const QString label = more.label == 0 ? QString() : Say(context.texts, more.label);
                const QString firmware =
                    more.use == Use::ReadOnly ? QString() : Shown(Words(item->GateOf(row)));
                rows.push_back({.cells = {KeyText(item->Key(row)), label,
                                          AllowedWords(context.texts, *item, row), firmware}});
            }
        }
    }
    return rows;
}

}  // namespace

frmParameters::frmParameters(const ModelContext& context, QWidget* parent)
    : QDialog(parent), all_(AllParameters(context)) {
    const ResourceTexts& texts = context.texts;
    setObjectName(QStringLiteral("frmParameters"));
    setWindowTitle(Say(texts, say::kParametersTitle));
    setAttribute(Qt::WA_DeleteOnClose);
    list_ = new PaneList(Say(texts, say::kParametersName),
                         {Say(texts, say::kKeyHeading), Say(texts, say::kMeaning), Say(texts, say::kAllowed),
                          Say(texts, say::kFirmware)},
                         2);
    list_->SetEmptyText(Say(texts, say::kNothingFits));
    list_->SetRows(all_);
    auto* filter = new QLineEdit;
    filter->setObjectName(QStringLiteral("filter"));
    filter->setClearButtonEnabled(true);
    auto* label = new QLabel(Say(texts, say::kParametersFilter));
    label->setBuddy(filter);
    connect(filter, &QLineEdit::textChanged, this, &frmParameters::Filter);
    auto* close = new QPushButton(Say(texts, say::kCloseMnemonic));
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);

    auto* head = new QHBoxLayout;
    head->setSpacing(metrics::kRelated);
    head->addWidget(label);
    head->addWidget(filter, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(close);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(metrics::kGroups, metrics::kGroups, metrics::kGroups, metrics::kGroups);
    all->setSpacing(metrics::kGroups);
    all->addLayout(head);
    all->addWidget(list_, 1);
    all->addLayout(buttons);
    resize(FitScreen(*this, QSize(860, 560)));
}

void frmParameters::Filter(const QString& typed) {
    std::vector<PaneList::Row> some;
    std::copy_if(all_.begin(), all_.end(), std::back_inserter(some), [&typed](const PaneList::Row& row) {
        return row.cells.join(QLatin1Char('\n')).contains(typed.trimmed(), Qt::CaseInsensitive);
    });
    list_->SetRows(std::move(some));
}

}  // namespace calyx::ui
