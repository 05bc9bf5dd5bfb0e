#include "ui/items/items_model.h"

#include <QRegularExpression>
#include <algorithm>
#include <set>

#include "model/language/text.h"
#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/icons.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

namespace {

std::optional<std::size_t> RowOf(const Item& item, std::string_view stem) {
    for (std::size_t row = 0; row < item.RowCount(); ++row) {
        if (item.Info(row).stem == stem) return row;
    }
    return std::nullopt;
}

bool IsListed(const Place& place, const Item& item) {
    return std::find(place.kinds.begin(), place.kinds.end(), item.Title()) != place.kinds.end();
}

}  // namespace

// Several items may stand behind one row: a port and its stream.
std::vector<ItemsModel::Row> ItemsModel::ReadRows() const {
    const CIndicator& document = session_.Document();
    const Section* section = nullptr;
    for (const Section* each : document.Sections()) {
        if (each->Name() == place_.section) section = each;
    }
    std::vector<Row> rows;
    if (section == nullptr) return rows;
    std::set<std::string> changed;
    const ChangeSet sinceSave = session_.ChangesSinceSave();
    for (const Change& change : sinceSave.Changes()) changed.insert(Upper(change.key));
    std::vector<BrokenRule> rules = session_.Problems();
    std::erase_if(rules, [&](const BrokenRule& rule) { return rule.section != place_.section; });

    for (const Item* item : section->Items()) {
        if (!IsListed(place_, *item)) continue;
        const ItemRef ref{std::string(place_.section), item->Title(), item->Number()};
        const bool goesOn = !rows.empty() && rows.back().ref == ref;
        if (!goesOn) {
            Row row{ref, {Shown(section->ItemTitle(*item))}, {}, false, true};
            for (std::size_t i = 0; i < place_.columns.size(); ++i) row.cells += QString();
            rows.push_back(std::move(row));
        }
        Row& row = rows.back();
        const std::vector<bool> written = item->WrittenRows();
        if (!goesOn) row.isSet = std::count(written.begin(), written.end(), true) > 1;
        for (std::size_t i = 0; i < place_.columns.size(); ++i) {
            const auto of = RowOf(*item, place_.columns[i]);
            const bool shown = of && (written[*of] || item->Info(*of).more.use != Use::Line);
            if (shown) row.cells[static_cast<qsizetype>(i + 1)] = ShownValue(DisplayText(*item, *of));
        }
        for (std::size_t i = 0; i < item->RowCount() && !row.changed; ++i) {
            row.changed = written[i] && changed.contains(Upper(item->Key(i)));
        }
        for (const BrokenRule& rule : rules) {
            if (row.problem.isEmpty() && item->Find(rule.key)) row.problem = Shown(rule.text);
        }
    }
    return rows;
}

void ItemsModel::Refresh() {
    std::vector<Row> rows = ReadRows();
    const bool sameItems = std::equal(rows.begin(), rows.end(), rows_.begin(), rows_.end(),
                                      [](const Row& a, const Row& b) { return a.ref == b.ref; });
    if (!sameItems) beginResetModel();
    rows_ = std::move(rows);
    AlignColumns();
    headings_ = {Say(session_.Context().texts, say::kItemColumn)};
    for (const std::string_view stem : place_.columns) {
        QString heading;
        for (const Section* section : std::as_const(session_).Document().Sections()) {
            if (section->Name() != place_.section) continue;
            for (const Item* item : section->Items()) {
                if (!heading.isEmpty() || !IsListed(place_, *item)) continue;
                const auto row = RowOf(*item, stem);
                if (row) heading = Say(session_.Context().texts, item->Info(*row).more.label);
            }
        }
        headings_ += heading;
    }
    if (!sameItems) return endResetModel();
    if (!rows_.empty()) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

int ItemsModel::Find(const ItemRef& ref) const {
    const auto found =
        std::find_if(rows_.begin(), rows_.end(), [&](const Row& row) { return row.ref == ref; });
    return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

int ItemsModel::FindKey(const QString& key) const {
    const std::string bytes = KeyBytes(key);
    for (const Section* section : std::as_const(session_).Document().Sections()) {
        if (section->Name() != place_.section) continue;
        for (const Item* item : section->Items()) {
            if (IsListed(place_, *item) && item->Find(bytes)) {
                return Find({std::string(place_.section), item->Title(), item->Number()});
            }
        }
    }
    return -1;
}

void ItemsModel::AlignColumns() {
    static const QRegularExpression number(QStringLiteral("^[+-]?[0-9.,]+$"));
    figures_.assign(place_.columns.size() + 1, false);
    for (std::size_t column = 0; column < figures_.size(); ++column) {
        bool any = false, words = false;
        for (const Row& row : rows_) {
            const QString& cell = row.cells[static_cast<qsizetype>(column)];
            any = any || !cell.isEmpty();
            words = words || (!cell.isEmpty() && !number.match(cell).hasMatch());
        }
        figures_[column] = any && !words;
    }
}

Qt::Alignment ItemsModel::AlignmentOf(int column) const {
    const auto place = static_cast<std::size_t>(column);
    const bool figures = place < figures_.size() && figures_[place];
    return (figures ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

int ItemsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int ItemsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(place_.columns.size() + 1);
}

QVariant ItemsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const Row& row = rows_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case Qt::DisplayRole:
            return row.cells[index.column()];
        case Qt::TextAlignmentRole:
            return QVariant::fromValue(AlignmentOf(index.column()));
        case Qt::ToolTipRole:
            return row.problem.isEmpty() ? row.cells[index.column()] : row.problem;
        case Qt::ForegroundRole:
            if (!row.isSet) return QApplication::palette().color(role::kQuietText);
            return {};
        case Qt::DecorationRole:
            if (index.column() != 0) return {};
            if (!row.problem.isEmpty()) return Icon(IconName::Problem);
            if (row.changed) return Icon(IconName::Changed);
            return {};
        case Qt::AccessibleTextRole:
            return index.column() == 0 && !row.problem.isEmpty()
                       ? row.cells[0] + QStringLiteral(". ") + row.problem
                       : row.cells[index.column()];
        default:
            return {};
    }
}

QVariant ItemsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section >= headings_.size()) return {};
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue(AlignmentOf(section));
    return role == Qt::DisplayRole ? QVariant(headings_[section]) : QVariant();
}

}  // namespace calyx::ui
