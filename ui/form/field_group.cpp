#include "ui/form/field_group.h"

#include <QFrame>
#include <QGridLayout>
#include <algorithm>

#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui::form {

namespace {

constexpr std::size_t kFewestChecks = 4;  // fewer stand as ordinary rows
constexpr int kCheckColumns = 2;
constexpr int kAlmostAll = 200;
constexpr int kMarkGap = metrics::kHalf;
constexpr int kMarkRoom = metrics::kIconSmall + kMarkGap;

// Labels of switches are bold where others have a bold value.
int BoldWidth(const QLabel& label) {
    QFont bold = label.font();
    bold.setBold(true);
    return QFontMetrics(bold).size(Qt::TextShowMnemonic, label.text()).width() + 2;
}

// Longer labels go on in a second line.
constexpr int kWidestLabel = 144;

QWidget* MakeRule(QWidget* parent) {
    auto* rule = new QWidget(parent);
    rule->setFixedHeight(1);
    rule->setAutoFillBackground(true);
    rule->setBackgroundRole(role::kDivider);
    return rule;
}

}  // namespace

FieldGroup::FieldGroup(const QString& heading, std::vector<Field*> fields, QWidget* parent)
    : QWidget(parent), fields_(std::move(fields)) {
    checks_ =
        fields_.size() >= kFewestChecks &&
        std::all_of(fields_.begin(), fields_.end(), [](const Field* field) { return field->IsSwitch(); });
    auto* title = new QLabel(heading, this);
    title->setFont(StrongFont());
    title->setTextFormat(Qt::PlainText);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(metrics::kHalf);
    auto* head = new QVBoxLayout;  // in line with the labels
    head->setContentsMargins(kMarkRoom, 0, 0, metrics::kHalf);
    head->setSpacing(metrics::kHalf);
    head->addWidget(title);
    head->addWidget(MakeRule(this));
    column->addLayout(head);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(0);
    grid->setVerticalSpacing(checks_ ? 0 : metrics::kRelated);
    column->addLayout(grid);
    column->addStretch();
    const int rows = (static_cast<int>(fields_.size()) + kCheckColumns - 1) / kCheckColumns;
    for (int i = 0; i < static_cast<int>(fields_.size()); ++i) {
        Field* field = fields_[static_cast<std::size_t>(i)];
        if (checks_) {
            AddCheck(grid, i % rows, i / rows, field);
        } else {
            AddRow(grid, i, field);
        }
    }
}

void FieldGroup::AddRow(QGridLayout* grid, int row, Field* field) {
    auto* value = new QHBoxLayout;
    value->setSpacing(metrics::kRelated);
    const bool grows = field->ControlWidget()->maximumWidth() > field->ControlWidget()->minimumWidth();
    // A box that grows takes the room up to its own limit; what is left stays free.
    value->addWidget(field->ControlWidget(), grows ? kAlmostAll : 0);
    value->addWidget(field->Unit());
    value->addStretch(1);
    auto* cell = new QVBoxLayout;
    cell->setSpacing(2);
    cell->addLayout(value);
    cell->addWidget(field->Message());
    grid->addWidget(field->MarkWidget(), row, 0, Qt::AlignTop);
    grid->setColumnMinimumWidth(1, kMarkGap);
    grid->addWidget(field->Label(), row, 2, Qt::AlignTop);
    grid->setColumnMinimumWidth(3, metrics::kGroups);
    grid->addLayout(cell, row, 4);
    grid->setColumnStretch(4, 1);
}

void FieldGroup::AddCheck(QGridLayout* grid, int row, int column, Field* field) {
    const int first = column * 4;
    field->Label()->setMinimumWidth(BoldWidth(*field->Label()));
    auto* cell = new QVBoxLayout;
    cell->setSpacing(0);
    cell->addWidget(field->Label());
    cell->addWidget(field->Message());
    grid->addWidget(field->MarkWidget(), row, first, Qt::AlignTop);
    grid->setColumnMinimumWidth(first + 1, kMarkGap);
    grid->addWidget(field->ControlWidget(), row, first + 2, Qt::AlignTop);
    grid->addLayout(cell, row, first + 3);
    grid->setColumnStretch(first + 3, 1);
}

int FieldGroup::WidestLabel() const {
    int width = 0;
    for (const Field* field : fields_) {
        if (!field->IsPresent()) continue;
        const QLabel& label = *field->Label();
        const QFontMetrics plain(label.font());
        width = std::max({width, plain.size(Qt::TextShowMnemonic, label.text()).width(),
                          field->IsSwitch() ? BoldWidth(label) : 0});
    }
    return std::min(width, kWidestLabel);
}

void FieldGroup::SetLabelWidth(int width) {
    if (checks_) return;
    for (Field* field : fields_) {
        field->Label()->setWordWrap(true);
        field->Label()->setFixedWidth(width);
    }
}

double FieldGroup::Weight() const {
    constexpr double kHeading = 1.6;
    const auto count = static_cast<double>(fields_.size());
    return kHeading + (checks_ ? count / kCheckColumns * 0.8 : count);
}

}  // namespace calyx::ui::form
