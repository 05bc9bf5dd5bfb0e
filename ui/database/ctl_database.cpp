#include "ui/database/ctl_database.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <utility>

#include "ui/database/database_texts.h"
#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

using namespace database_text;

namespace {
constexpr int kNameCharacters = 16;  // room in their columns
}

ctlDatabase::ctlDatabase(DocumentSession& session)
    : session_(session),
      stack_(new QStackedWidget),
      cards_(new QComboBox),
      cardsLabel_(new QLabel),
      tables_(new ctlTables(session)),
      fields_(new ctlFields(session)),
      tableHeading_(new QLabel),
      fieldHeading_(new QLabel),
      tableNote_(new QLabel),
      fieldNote_(new QLabel) {
    setObjectName(QStringLiteral("ctlDatabase"));
    stack_->addWidget(MakeEmptyState());
    stack_->addWidget(MakeEditor());
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(metrics::kPageEdge, metrics::kRelated, metrics::kPageEdge, metrics::kGroups);
    all->addWidget(stack_);
    setFocusProxy(tables_);
    connect(&session_, &DocumentSession::Changed, this, &ctlDatabase::Follow);
    connect(&session_, &DocumentSession::Replaced, this, &ctlDatabase::Follow);
    connect(cards_, &QComboBox::currentIndexChanged, this,
            [this] { ShowSlot(cards_->currentData().toInt()); });
    connect(tables_->selectionModel(), &QItemSelectionModel::currentChanged, this, &ctlDatabase::ShowTable);
    Watch(tables_, tableNote_);
    Watch(fields_, fieldNote_);
    Refresh();
}

QWidget* ctlDatabase::MakeEmptyState() {
    const ResourceTexts& texts = session_.Context().texts;
    auto* what = new QLabel(Say(texts, kNoCard));
    what->setWordWrap(true);
    auto* go = new QPushButton(Say(texts, say::kGoToHardware));
    go->setObjectName(QStringLiteral("cmdHardware"));
    connect(go, &QPushButton::clicked, this, [this] { emit ParameterWanted(QStringLiteral("HARDWARE")); });
    auto* empty = new QWidget;
    auto* column = new QVBoxLayout(empty);
    column->setContentsMargins(0, metrics::kGroups, 0, 0);
    column->setSpacing(metrics::kGroups);
    column->addWidget(what);
    column->addWidget(go, 0, Qt::AlignLeft);
    column->addStretch(1);
    return empty;
}

QWidget* ctlDatabase::MakeEditor() {
    cardsLabel_->setText(Say(session_.Context().texts, kCard));
    cardsLabel_->setBuddy(cards_);
    cards_->setObjectName(QStringLiteral("cards"));
    auto* top = new QHBoxLayout;
    top->setSpacing(metrics::kGroups);
    top->addWidget(cardsLabel_);
    top->addWidget(cards_);
    top->addStretch(1);
    auto* parts = new QSplitter(Qt::Vertical);
    parts->setChildrenCollapsible(false);
    parts->setHandleWidth(metrics::kGroups);
    parts->addWidget(MakePart(tableHeading_, tables_, tableNote_, tables_->MakeCommands()));
    parts->addWidget(MakePart(fieldHeading_, fields_, fieldNote_, fields_->MakeCommands()));
    parts->setStretchFactor(0, 2);
    parts->setStretchFactor(1, 3);
    const int wide = fontMetrics().averageCharWidth();
    for (ctlRowGrid* grid : {static_cast<ctlRowGrid*>(tables_), static_cast<ctlRowGrid*>(fields_)})
        grid->setColumnWidth(1, kNameCharacters * wide + metrics::kIconLarge);
    // The longest type in bold, as it stands where it is not the default, and the mark of a change.
    int widest = 0;
    for (const CTextList::Entry& type : *session_.Context().lists.List("DB.TYPES"))
        widest = std::max(widest, QFontMetrics(StrongFont()).horizontalAdvance(Shown(type.text)));
    fields_->setColumnWidth(2, widest + 2 * metrics::kRelated + metrics::kIconLarge);
    // The switch and its mark stand together.
    fields_->horizontalHeader()->setStretchLastSection(false);
    auto* editor = new QWidget;
    auto* column = new QVBoxLayout(editor);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(metrics::kRelated);
    column->addLayout(top);
    column->addWidget(parts, 1);
    return editor;
}

QWidget* ctlDatabase::MakePart(QLabel* heading, ctlRowGrid* grid, QLabel* note, QWidget* bar) {
    heading->setFont(StrongFont());
    heading->setTextFormat(Qt::PlainText);
    note->setTextFormat(Qt::PlainText);
    note->setWordWrap(true);
    note->setMinimumHeight(note->fontMetrics().lineSpacing());
    grid->setMinimumHeight(3 * metrics::kControlHeight);
    auto* part = new QWidget;
    auto* column = new QVBoxLayout(part);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(metrics::kRelated);
    column->addWidget(heading);
    column->addWidget(grid, 1);
    column->addWidget(note);
    column->addWidget(bar);
    return part;
}

void ctlDatabase::Watch(ctlRowGrid* grid, QLabel* note) {
    connect(grid, &ctlGrid::KeyFocused, this, &ctlDatabase::KeyFocused);
    connect(grid, &ctlGrid::ShowInLines, this, &ctlDatabase::ShowInLines);
    const auto show = [this, grid, note] { ShowNote(*grid, *note); };
    connect(grid->selectionModel(), &QItemSelectionModel::currentChanged, this, show);
    connect(&grid->Model(), &GridModel::UntakenChanged, this, show);
}

// What is wrong in the cell, else what it is for; where there is no row, the first step.
void ctlDatabase::ShowNote(ctlRowGrid& grid, QLabel& note) {
    const ResourceTexts& texts = session_.Context().texts;
    const QModelIndex current = grid.currentIndex();
    const QString problem = grid.Model().Problem(current);
    QString words = problem.isEmpty() ? grid.Model().Help(current) : problem;
    if (grid.Model().rowCount() == 0) {
        const int row = tables_->currentIndex().row();
        const QString table = row < 0 ? QString() : tables_->Model().index(row, 1).data().toString();
        words = &grid == tables_ ? Say(texts, kNoTables)
                : row < 0        ? Say(texts, kChooseTable)
                                 : Say(texts, kNoFields, table);
    }
    note.setForegroundRole(problem.isEmpty() ? role::kQuietText : role::kProblem);
    note.setText(words);
}

void ctlDatabase::Follow() {
    stale_ = true;
    if (isVisible()) Refresh();
}

void ctlDatabase::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (stale_) Refresh();
}

void ctlDatabase::Refresh() {
    stale_ = false;
    ShowCards();
    ShowTable();
}

void ctlDatabase::ShowCards() {
    const ResourceTexts& texts = session_.Context().texts;
    const std::vector<int> withCard = std::as_const(session_).Document().Hardware().MemoryCards();
    const int before = tables_->Slot();
    {
        const QSignalBlocker quiet(cards_);
        cards_->clear();
        for (const int slot : withCard) cards_->addItem(Say(texts, kSlot, QString::number(slot)), slot);
        cards_->setCurrentIndex(std::max(0, cards_->findData(before)));
    }
    cards_->setVisible(withCard.size() > 1);
    cardsLabel_->setVisible(withCard.size() > 1);
    tableHeading_->setText(Say(texts, kTablesName));
    stack_->setCurrentIndex(withCard.empty() ? 0 : 1);
    ShowSlot(withCard.empty() ? 0 : cards_->currentData().toInt());
}

void ctlDatabase::ShowSlot(int slot) {
    tables_->SetSlot(slot);
    tables_->Model().Refresh();
    ShowTable();
}

void ctlDatabase::ShowTable() {
    fields_->SetTable(tables_->Slot(), tables_->Table());
    fields_->Model().Refresh();
    const int row = tables_->currentIndex().row();
    const QString name = row < 0 ? QString() : tables_->Model().index(row, 1).data().toString();
    fieldHeading_->setText(name.isEmpty() ? Say(session_.Context().texts, kFieldsName)
                                          : Say(session_.Context().texts, kFieldsOf, name));
    ShowNote(*tables_, *tableNote_);
    ShowNote(*fields_, *fieldNote_);
}

bool ctlDatabase::FocusKey(const QString& key) {
    if (stale_) Refresh();
    const auto of = SchemaKey::Of(KeyBytes(key));
    if (!of) return false;
    const int card = cards_->findData(of->slot);
    if (card < 0) return false;
    cards_->setCurrentIndex(card);
    // A table that is gone leaves the rest to be looked at.
    if (!tables_->GoToTable(of->table)) return false;
    ShowTable();
    return of->isName ? tables_->FocusKey(key) : fields_->FocusKey(key);
}

void ctlDatabase::SetDiffering(const std::set<std::string>& keys) {
    tables_->SetDiffering(keys);
    fields_->SetDiffering(keys);
}

}  // namespace calyx::ui
