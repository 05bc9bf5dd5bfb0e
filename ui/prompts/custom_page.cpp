#include "ui/prompts/custom_page.h"

#include <QClipboard>
#include <QGuiApplication>
#include <algorithm>

#include "ui/prompts/ctl_row_grid.h"
#include "ui/prompts/prompts_texts.h"
#include "ui/text.h"
#include "ui/theme/metrics.h"

namespace calyx::ui {

namespace {

using namespace prompts_text;

constexpr int kSectionTitle = 2126;
constexpr int kPlaces = static_cast<int>(CustomPairs::kCount);
enum Column { kTitleColumn, kNameColumn, kValueColumn };

std::string NameKey(int row) {
    return CustomPairs::PlaceKey(static_cast<std::size_t>(row));
}
std::string ValueKey(int row) {
    return CustomPairs::ValueKey(static_cast<std::size_t>(row));
}

std::vector<GridRow> CustomRows(const CIndicator& document) {
    const ItemRef item{std::string(document.CustomParms().Name())};
    std::vector<GridRow> rows;
    for (int row = 0; row < kPlaces; ++row)
        rows.push_back({item, QString::number(row + 1), {{NameKey(row), {}, {}}, {ValueKey(row), {}, {}}}});
    return rows;
}

// Lines of parameters as two columns; anything else as it stands.
QString AsColumns(const QString& text) {
    if (text.contains(QLatin1Char('\t'))) return text;
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString& line : lines) {
        if (const qsizetype sign = line.indexOf(QLatin1Char('=')); sign > 0) line[sign] = QLatin1Char('\t');
    }
    return lines.join(QLatin1Char('\n'));
}

class CustomGrid : public ctlRowGrid {
  public:
    CustomGrid(DocumentSession& session, const QStringList& headings, const QString& name)
        : ctlRowGrid(session, new GridModel(session, headings, CustomRows, nullptr), name),
          session_(session) {
        SetMovable([](int) { return true; });
        connect(this, &ctlRowGrid::MoveWanted, this, &CustomGrid::Move);
        connect(this, &ctlRowGrid::RemoveWanted, this, &CustomGrid::Remove);
        connect(this, &ctlRowGrid::CopyRowsWanted, this, &CustomGrid::CopyRows);
        connect(this, &ctlRowGrid::PasteRowsWanted, this, &CustomGrid::PasteRows);
    }

    // A pair pasted at a name is a pair there, too.
    void Paste() override {
        const bool pairs = currentIndex().column() == kNameColumn &&
                           AsColumns(QGuiApplication::clipboard()->text()).contains(QLatin1Char('\t'));
        pairs ? PasteRows() : ctlRowGrid::Paste();
    }

    void Add() {
        for (int row = 0; row < kPlaces; ++row) {
            if (Value(NameKey(row)).empty() && Model().Untaken(Model().index(row, kNameColumn)).isNull())
                return GoToAndEdit(row, kNameColumn);
        }
        emit session_.Told(Say(Texts(), kAllTaken, QString::number(kPlaces)));
    }

    void Remove() {
        std::vector<KeyValue> lines;
        std::string name;
        for (const int row : ChosenRows()) {
            for (const Column column : {kNameColumn, kValueColumn})
                Model().GiveUp(Model().index(row, column));
            const std::string given = Value(NameKey(row));
            if (given.empty()) continue;
            name = given;
            lines.push_back({NameKey(row), {}});
        }
        if (lines.empty()) return emit session_.Told(Say(Texts(), kNothingToRemove));
        const std::string step = lines.size() == 1
                                     ? Texts().Format(kCustomRemoved, {name})
                                     : Texts().Format(kSeveralCustomRemoved, {std::to_string(lines.size())});
        session_.Do(step, [&](CIndicator& document) { return document.Import(lines); });
    }

    void CopyRows() {
        QModelIndexList cells;
        for (const int row : ChosenRows()) {
            for (const Column column : {kNameColumn, kValueColumn}) cells += Model().index(row, column);
        }
        QGuiApplication::clipboard()->setText(Model().Copy(cells));
    }

    void PasteRows() {
        const std::vector<int> rows = ChosenRows();
        const QString text = AsColumns(QGuiApplication::clipboard()->text());
        if (text.isEmpty() || rows.empty()) return ctlGrid::Paste();  // which says that there is nothing
        Model().Paste({Model().index(rows.front(), kNameColumn)}, text);
    }

  private:
    const ResourceTexts& Texts() const { return session_.Context().texts; }
    std::string Value(const std::string& key) const {
        return std::as_const(session_).Document().Value(key).value_or("");
    }

    void Move(int from, int to) {
        std::vector<std::pair<std::string, std::string>> pairs;
        for (int row = 0; row < kPlaces; ++row) pairs.emplace_back(Value(NameKey(row)), Value(ValueKey(row)));
        const auto moved = pairs[static_cast<std::size_t>(from)];
        pairs.erase(pairs.begin() + from);
        pairs.insert(pairs.begin() + to, moved);
        ChangeSet changes;
        for (const bool values : {false, true}) {
            for (int row = 0; row < kPlaces; ++row) {
                const auto& [name, value] = pairs[static_cast<std::size_t>(row)];
                changes.Add({values ? ValueKey(row) : NameKey(row), {}, values ? value : name});
            }
        }
        const std::string named = moved.first.empty() ? std::to_string(from + 1) : moved.first;
        const int column = currentIndex().column();
        session_.Do(Texts().Format(kCustomMoved, {named, std::to_string(to + 1)}),
                    [&](CIndicator& document) { return document.Apply(changes); });
        GoTo(to, column);
    }

    DocumentSession& session_;
};

}  // namespace

ctlGridPage* MakeCustomPage(DocumentSession& session) {
    const ResourceTexts& texts = session.Context().texts;
    QStringList headings;
    for (const int text : kCustomHeadings) headings += Say(texts, text);
    auto* grid = new CustomGrid(session, headings, Say(texts, kSectionTitle));
    grid->setObjectName(QStringLiteral("customGrid"));
    const int wide = QFontMetrics(grid->font()).averageCharWidth();
    grid->setColumnWidth(kNameColumn,
                         wide * static_cast<int>(CustomPairs::kLongestName + 4) + metrics::kIconLarge);
    const auto up = [grid] { grid->MoveCurrent(-1); };
    const auto down = [grid] { grid->MoveCurrent(1); };
    QWidget* bar = grid->MakeBar({{kAdd, kCustomAddTip, "cmdAdd", [grid] { grid->Add(); }, Qt::Key_Insert},
                                  {kRemove, kRemoveTip, "cmdRemove", [grid] { grid->Remove(); }},
                                  {kMoveUp, kMoveUpTip, "cmdUp", up, Qt::ALT | Qt::Key_Up},
                                  {kMoveDown, kMoveDownTip, "cmdDown", down, Qt::ALT | Qt::Key_Down}},
                                 kCustomHint);
    return new ctlGridPage(grid, bar);
}

}  // namespace calyx::ui
