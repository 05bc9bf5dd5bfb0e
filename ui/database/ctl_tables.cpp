#include "ui/database/ctl_tables.h"

#include <algorithm>
#include <utility>

#include "ui/database/database_texts.h"
#include "ui/database/schema_clipboard.h"
#include "ui/database/schema_edits.h"
#include "ui/prompts/prompts_texts.h"
#include "ui/text.h"

namespace calyx::ui {

using namespace database_text;

namespace {

QStringList Headings(const ResourceTexts& texts) {
    QStringList headings;
    for (const int text : kTableHeadings) headings += Say(texts, text);
    return headings;
}

GridSource TablesOf(const std::shared_ptr<int>& slot) {
    return [slot](const CIndicator& document) {
        std::vector<GridRow> rows;
        const CHardware& hardware = document.Hardware();
        if (!hardware.HasMemoryCard(*slot)) return rows;
        for (const int table : hardware.MemoryCard(*slot).Schemas()) {
            const CSchema& schema = hardware.MemoryCard(*slot).Schema(table);
            const auto& item = schema.Parameters();
            rows.push_back({{std::string(hardware.Name()), item.Title(), table},
                            QString::number(table),
                            {{item.Key(0), {}, {}}, {{}, QString::number(schema.FieldCount()), {}}}});
        }
        return rows;
    };
}

}  // namespace

ctlTables::ctlTables(DocumentSession& session) : ctlTables(session, std::make_shared<int>(0)) {}

ctlTables::ctlTables(DocumentSession& session, std::shared_ptr<int> slot)
    : ctlRowGrid(session, new GridModel(session, Headings(session.Context().texts), TablesOf(slot), nullptr),
                 Say(session.Context().texts, kTablesName)),
      session_(session),
      slot_(std::move(slot)) {
    setObjectName(QStringLiteral("tableGrid"));
    connect(this, &ctlRowGrid::RemoveWanted, this, &ctlTables::Remove);
    connect(this, &ctlRowGrid::CopyRowsWanted, this, &ctlTables::CopyTables);
    connect(this, &ctlRowGrid::PasteRowsWanted, this, &ctlTables::PasteTables);
}

void ctlTables::SetSlot(int slot) {
    if (std::exchange(*slot_, slot) == slot) return;
    Model().Refresh();
    if (Model().rowCount() > 0) GoTo(0, 1);
}

int ctlTables::Table() const {
    return currentIndex().isValid() ? Model().RowAt(currentIndex().row()).item.number : 0;
}

bool ctlTables::GoToTable(int table) {
    for (int row = 0; row < Model().rowCount(); ++row) {
        if (Model().RowAt(row).item.number != table) continue;
        GoTo(row, 1);
        return true;
    }
    return false;
}

QWidget* ctlTables::MakeCommands() {
    using namespace prompts_text;
    return MakeBar({{kAddTable, kAddTableTip, "cmdAddTable", [this] { Add(false); }, Qt::Key_Insert},
                    {kSample, kSampleTip, "cmdSample", [this] { Add(true); }},
                    {kCopyRows, kCopyTablesTip, "cmdCopyTables", [this] { CopyTables(); }},
                    {kPasteRows, kPasteTablesTip, "cmdPasteTables", [this] { PasteTables(); }},
                    {kRemove, kRemoveTablesTip, "cmdRemoveTables", [this] { Remove(); }}});
}

const CMemoryCard& ctlTables::Card() const {
    return std::as_const(session_).Document().Hardware().MemoryCard(Slot());
}

std::vector<int> ctlTables::Chosen() const {
    std::vector<int> tables;
    for (const int row : ChosenRows()) tables.push_back(Model().RowAt(row).item.number);
    return tables;
}

bool ctlTables::HasRoom(int more) {
    const int most = SchemaKey::kMostTables;
    if (static_cast<int>(Card().Schemas().size()) + more <= most) return true;
    emit session_.Told(Say(session_.Context().texts, kNoRoomForTables, QString::number(most)));
    return false;
}

void ctlTables::Add(bool sample) {
    if (!HasRoom(1)) return;
    CMemoryCard trial = Card();
    const int table = sample ? trial.AddSample() : trial.Add(FreeTableName(Card()));
    const std::string name(trial.Schema(table).Name());
    EditCard(session_, Slot(), session_.Context().texts.Format(sample ? kSampleAdded : kTableAdded, {name}),
             [&](CMemoryCard& card) { sample ? card.AddSample() : card.Add(name); });
    if (!GoToTable(table)) return;
    setFocus();
    if (!sample) GoToAndEdit(currentIndex().row(), 1);
}

void ctlTables::Remove() {
    const std::vector<int> tables = Chosen();
    if (tables.empty()) return emit session_.Told(Say(session_.Context().texts, kNoTableChosen));
    const ResourceTexts& texts = session_.Context().texts;
    const std::string step = tables.size() == 1
                                 ? texts.Format(kTableRemoved, {Card().Schema(tables.front()).Name()})
                                 : texts.Format(kTablesRemoved, {std::to_string(tables.size())});
    EditCard(session_, Slot(), step, [&](CMemoryCard& card) {
        for (const int table : tables) card.Remove(table);
    });
}

void ctlTables::CopyTables() {
    const std::vector<int> tables = Chosen();
    if (tables.empty()) return emit session_.Told(Say(session_.Context().texts, kNoTableChosen));
    CopySchemas(Card().CopyText(tables));
    emit session_.Told(Say(session_.Context().texts, kTablesCopied, QString::number(tables.size())));
}

void ctlTables::PasteTables() {
    const ResourceTexts& texts = session_.Context().texts;
    const std::string lines = CopiedSchemas();
    const int count = TablesIn(lines);
    if (count == 0) return emit session_.Told(Say(texts, kNoTablesCopied));
    if (!HasRoom(count)) return;
    CMemoryCard trial = Card();
    const std::vector<int> tables = trial.Paste(lines);
    const std::string step = tables.size() == 1
                                 ? texts.Format(kTablePasted, {trial.Schema(tables.front()).Name()})
                                 : texts.Format(kTablesPasted, {std::to_string(tables.size())});
    EditCard(session_, Slot(), step, [&](CMemoryCard& card) { card.Paste(lines); });
    if (!tables.empty()) GoToTable(tables.front());
}

}  // namespace calyx::ui
