#include "ui/tickets/ctl_ticket_table.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "model/tickets/ticket_edits.h"
#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"
#include "ui/tickets/ticket_texts.h"

namespace calyx::ui {

namespace {

constexpr ctlItemTable::Texts kTexts{.name = say::kTicketTableName,
                                     .copied = say::kTicketsCopied,
                                     .pasteStep = say::kTicketsPasted,
                                     .noRoom = say::kTicketsNoRoom,
                                     .nothingToPaste = say::kNoTicketCopied,
                                     .notAsGiven = say::kTicketLinesOdd,
                                     .clearStep = say::kRestoreTicket,
                                     .clearSeveralStep = say::kRestoreTickets,
                                     .nothingToClear = say::kTicketsAreDefault};

std::vector<GridRow> TicketRows(const CIndicator& document) {
    const ResourceTexts& texts = document.Context().texts;
    const CTickets& tickets = document.Tickets();
    std::vector<GridRow> rows;
    for (const Item* format : tickets.Items()) {
        const int number = format->Number();
        const std::string textKey = TicketKey(tickets, number, "FMT");
        const std::string portKey = TicketKey(tickets, number, "PORT");
        const std::string& text = tickets.TicketFormat(number);
        GridRow& row = rows.emplace_back(
            GridRow{{"tickets", format->Title(), number}, Shown(tickets.ItemTitle(*format)), {}});
        row.cells.push_back({portKey, {}, {}});
        if (textKey.empty()) {
            row.cells.resize(4);
            continue;
        }
        const bool own = text != DefaultTicketText(number);
        row.cells.push_back({{}, QString::number(text.size()), {}});
        row.cells.push_back({{}, Say(texts, own ? say::kOwnText : say::kDefaultText), {}});
        row.cells.push_back({{}, ShownValue(text), {}});
    }
    return rows;
}

int UseOf(int format) {
    if (format == kAuditFormat) return say::kAuditUse;
    return format < kFirstAuxiliary ? say::kTicketUse + format : say::kAuxiliaryUse;
}

QStringList TicketHeadings(const ResourceTexts& texts) {
    QStringList headings;
    for (const int text : say::kTicketColumns) headings += Say(texts, text);
    return headings;
}

}  // namespace

ctlTicketTable::ctlTicketTable(DocumentSession& session) : ctlItemTable(session, kTexts), note_(new QLabel) {
    MakeGrid(TicketHeadings(Words()), TicketRows);
    constexpr int kCharacters[] = {24, 11, 8, 10};  // a port with its mark, else words and headings
    const int wide = Grid().fontMetrics().averageCharWidth();
    for (int column = 0; column < 4; ++column)
        Grid().setColumnWidth(column, kCharacters[column] * wide + 2 * metrics::kRelated);
    Grid().horizontalHeader()->setStretchLastSection(true);
    note_->setObjectName(QStringLiteral("tableNote"));
    note_->setTextFormat(Qt::PlainText);
    note_->setWordWrap(true);
    note_->setMinimumHeight(note_->fontMetrics().lineSpacing());
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(metrics::kPageEdge, metrics::kRelated, metrics::kPageEdge, metrics::kGroups);
    column->setSpacing(metrics::kRelated);
    column->addWidget(&Grid(), 1);
    column->addWidget(note_);
    auto* restore = new QPushButton(Say(Words(), say::kRestoreText));
    restore->setObjectName(QStringLiteral("cmdRestoreTexts"));
    restore->setToolTip(Say(Words(), say::kRestoreTextTip));
    restore->setAutoDefault(false);
    connect(restore, &QPushButton::clicked, &Grid(), &ctlItemGrid::ClearWanted);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(MakeButtons(false));
    buttons->addStretch(1);
    buttons->addWidget(restore);
    column->addLayout(buttons);
    connect(Grid().selectionModel(), &QItemSelectionModel::currentChanged, this, &ctlTicketTable::ShowNote);
    connect(&Grid().Model(), &GridModel::UntakenChanged, this, &ctlTicketTable::ShowNote);
    ShowNote();
}

// What is wrong in the cell, else with the format, else what the cell or the format is for.
void ctlTicketTable::ShowNote() {
    const QModelIndex current = Grid().currentIndex();
    QString problem = Grid().Model().Problem(current);
    if (problem.isEmpty()) problem = ProblemOf(Grid().CurrentNumber());
    note_->setForegroundRole(problem.isEmpty() ? role::kQuietText : role::kProblem);
    QString words = problem.isEmpty() ? Grid().Model().Help(current) : problem;
    if (const int format = Grid().CurrentNumber(); words.isEmpty() && format > 0)
        words = Say(Words(), UseOf(format));
    note_->setText(words);
}

const CTickets& ctlTicketTable::Tickets() const {
    return std::as_const(Session()).Document().Tickets();
}

int ctlTicketTable::NumberOf(const QString& key) const {
    for (const Item* format : Tickets().Items()) {
        if (format->Find(KeyBytes(key))) return format->Number();
    }
    return 0;
}

std::string ctlTicketTable::Lines(const std::vector<int>& numbers, bool) const {
    return CopyTickets(Tickets(), numbers);
}

ctlItemTable::Pasted ctlTicketTable::Read(std::string_view lines, int first) const {
    PastedTickets pasted = PasteTickets(Tickets(), lines, first);
    return {pasted.count, first + pasted.count - 1 <= kTicketFormats, std::move(pasted.changes),
            pasted.notTaken};
}

std::vector<Change> ctlTicketTable::Cleared(int number) const {
    return RestoreTicket(Tickets(), number);
}

}  // namespace calyx::ui
