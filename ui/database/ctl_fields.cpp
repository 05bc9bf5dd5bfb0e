#include "ui/database/ctl_fields.h"

#include <QClipboard>
#include <QGuiApplication>
#include <algorithm>
#include <utility>

#include "model/language/text.h"
#include "ui/database/database_texts.h"
#include "ui/database/schema_clipboard.h"
#include "ui/database/schema_edits.h"
#include "ui/prompts/prompts_texts.h"
#include "ui/text.h"

namespace calyx::ui {

using namespace database_text;

namespace {

constexpr int kRowsOfField = 3;  // name, type, keyed; behind the row of the table's name

QStringList Headings(const ResourceTexts& texts) {
    QStringList headings;
    for (const int text : kFieldHeadings) headings += Say(texts, text);
    return headings;
}

const CSchema* SchemaOf(const CIndicator& document, int slot, int table) {
    const CHardware& hardware = document.Hardware();
    if (!hardware.HasMemoryCard(slot)) return nullptr;
    const std::vector<int> tables = hardware.MemoryCard(slot).Schemas();
    const bool there = std::find(tables.begin(), tables.end(), table) != tables.end();
    return there ? &hardware.MemoryCard(slot).Schema(table) : nullptr;
}

}  // namespace

GridSource ctlFields::FieldsOf(const std::shared_ptr<Place>& place) {
    return [place](const CIndicator& document) {
        std::vector<GridRow> rows;
        const CSchema* schema = SchemaOf(document, place->slot, place->table);
        if (schema == nullptr) return rows;
        const auto& item = schema->Parameters();
        for (int field = 1; field <= schema->FieldCount(); ++field) {
            GridRow& row = rows.emplace_back();
            row.item = {std::string(document.Hardware().Name()), item.Title(), place->table};
            row.title = QString::number(field);
            for (int i = 1; i <= kRowsOfField; ++i)
                row.cells.push_back(
                    {item.Key(static_cast<std::size_t>((field - 1) * kRowsOfField + i)), {}, {}});
        }
        return rows;
    };
}

ctlFields::ctlFields(DocumentSession& session) : ctlFields(session, std::make_shared<Place>()) {}

ctlFields::ctlFields(DocumentSession& session, std::shared_ptr<Place> place)
    : ctlRowGrid(session, new GridModel(session, Headings(session.Context().texts), FieldsOf(place), nullptr),
                 Say(session.Context().texts, kFieldsName)),
      session_(session),
      place_(std::move(place)) {
    setObjectName(QStringLiteral("fieldGrid"));
    SetMovable([](int) { return true; });
    connect(this, &ctlRowGrid::MoveWanted, this, &ctlFields::Move);
    connect(this, &ctlRowGrid::RemoveWanted, this, &ctlFields::Remove);
    connect(this, &ctlRowGrid::CopyRowsWanted, this, &ctlFields::CopyFields);
    connect(this, &ctlRowGrid::PasteRowsWanted, this, &ctlFields::PasteFields);
}

void ctlFields::SetTable(int slot, int table) {
    const Place place{slot, table};
    if (std::exchange(*place_, place) == place) return;
    FinishEditor();
    Model().Refresh();
    if (Model().rowCount() > 0) GoTo(0, 1);
}

QWidget* ctlFields::MakeCommands() {
    using namespace prompts_text;
    const auto up = [this] { MoveCurrent(-1); };
    const auto down = [this] { MoveCurrent(1); };
    return MakeBar({{kAddField, kAddFieldTip, "cmdAddField", [this] { Add(); }, Qt::Key_Insert},
                    {kMoveUp, kFieldUpTip, "cmdFieldUp", up, Qt::ALT | Qt::Key_Up},
                    {kMoveDown, kFieldDownTip, "cmdFieldDown", down, Qt::ALT | Qt::Key_Down},
                    {kRemoveFields, kRemoveFieldsTip, "cmdRemoveFields", [this] { Remove(); }}});
}

const CSchema* ctlFields::Schema() const {
    return SchemaOf(std::as_const(session_).Document(), place_->slot, place_->table);
}

void ctlFields::TellNoTable() {
    emit session_.Told(Say(session_.Context().texts, kNoTableChosen));
}

bool ctlFields::Edit(const std::string& step, const std::function<void(CSchema& schema)>& act) {
    return EditCard(session_, place_->slot, step,
                    [&](CMemoryCard& card) { act(card.Schema(place_->table)); });
}

bool ctlFields::HasRoom(std::size_t more) {
    if (Schema()->AllFields().size() + more <= static_cast<std::size_t>(CSchema::MaxFields())) return true;
    emit session_.Told(
        Say(session_.Context().texts, kNoRoomForFields, QString::number(CSchema::MaxFields())));
    return false;
}

void ctlFields::Add() {
    if (Schema() == nullptr) return TellNoTable();
    if (!HasRoom(1)) return;
    const int row = currentIndex().isValid() ? currentIndex().row() + 1 : Model().rowCount();
    const SchemaField field{FreeFieldName(Schema()->AllFields()), Schema()->Types().Default(), false};
    Edit(session_.Context().texts.Format(kFieldAdded, {Schema()->Name(), field.name}),
         [&](CSchema& schema) { schema.InsertField(row + 1, field); });
    GoToAndEdit(row, 1);
}

void ctlFields::Remove() {
    const std::vector<int> rows = ChosenRows();
    if (Schema() == nullptr || rows.empty()) return TellNoTable();
    const ResourceTexts& texts = session_.Context().texts;
    const std::string name = Schema()->AllFields()[static_cast<std::size_t>(rows.front())].name;
    const std::string step =
        rows.size() == 1 ? texts.Format(kFieldRemoved, {Schema()->Name(), name})
                         : texts.Format(kFieldsRemoved, {Schema()->Name(), std::to_string(rows.size())});
    const int column = currentIndex().column();
    Edit(step, [&](CSchema& schema) {
        for (auto row = rows.rbegin(); row != rows.rend(); ++row) schema.RemoveField(*row + 1);
    });
    if (Model().rowCount() > 0) GoTo(std::min(rows.front(), Model().rowCount() - 1), column);
}

void ctlFields::Move(int from, int to) {
    const std::string name = Schema()->AllFields()[static_cast<std::size_t>(from)].name;
    const int column = currentIndex().column();
    Edit(session_.Context().texts.Format(kFieldMoved, {Schema()->Name(), name, std::to_string(to + 1)}),
         [&](CSchema& schema) { schema.MoveField(from + 1, to + 1); });
    GoTo(to, column);
}

void ctlFields::CopyFields() {
    if (Schema() == nullptr) return TellNoTable();
    const std::vector<SchemaField> all = Schema()->AllFields();
    std::vector<SchemaField> fields;
    for (const int row : ChosenRows()) fields.push_back(all[static_cast<std::size_t>(row)]);
    QGuiApplication::clipboard()->setText(Shown(FieldsAsText(fields)));
}

// Below the current one. A name that the table has already is told of by its check.
void ctlFields::PasteFields() {
    if (Schema() == nullptr) return TellNoTable();
    const ResourceTexts& texts = session_.Context().texts;
    const auto fields = FieldsOfText(Utf8(QGuiApplication::clipboard()->text()), Schema()->Types());
    if (fields.empty()) return emit session_.Told(Say(texts, kNoFieldsCopied));
    if (!HasRoom(fields.size())) return;
    const int row = currentIndex().isValid() ? ChosenRows().back() + 1 : Model().rowCount();
    Edit(texts.Format(kFieldsPasted, {Schema()->Name(), std::to_string(fields.size())}),
         [&](CSchema& schema) {
             std::vector<SchemaField> all = schema.AllFields();
             all.insert(all.begin() + row, fields.begin(), fields.end());
             schema.SetFields(all);
         });
    GoTo(row, 0);
}

}  // namespace calyx::ui
