#include "ui/window/kept_model.h"

#include <algorithm>
#include <unordered_set>

#include "model/language/text.h"
#include "ui/form/bytes.h"
#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/icons.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

namespace {

constexpr int kKeyColumn = 0;
constexpr int kValueColumn = 1;

}  // namespace

void KeptModel::Refresh() {
    std::string state;
    session_.Document().FindSection(place_.section)->AppendState(state);
    std::vector<KeyValue> lines = ReadLines(state);
    std::erase_if(lines, [this](const KeyValue& line) { return !Holds(place_, line.key); });

    std::unordered_set<std::string> saved;
    for (const KeyValue& line : session_.SavedLines()) saved.insert(Upper(line.key) + "=" + line.value);
    changed_.clear();
    for (const KeyValue& line : lines)
        changed_.push_back(!saved.contains(Upper(line.key) + "=" + line.value));

    const bool sameKeys = std::equal(lines.begin(), lines.end(), lines_.begin(), lines_.end(),
                                     [](const KeyValue& a, const KeyValue& b) { return a.key == b.key; });
    if (!sameKeys) beginResetModel();
    lines_ = std::move(lines);
    if (!sameKeys) return endResetModel();
    if (!lines_.empty()) emit dataChanged(index(0, kKeyColumn), index(rowCount() - 1, kValueColumn));
}

int KeptModel::Find(const QString& key) const {
    const std::string wanted = KeyBytes(key);
    const auto found = std::find_if(lines_.begin(), lines_.end(),
                                    [&](const KeyValue& line) { return EqualNoCase(line.key, wanted); });
    return found == lines_.end() ? -1 : static_cast<int>(found - lines_.begin());
}

QString KeptModel::KeyAt(int row) const {
    return row < 0 || row >= rowCount() ? QString() : KeyText(lines_[static_cast<std::size_t>(row)].key);
}

int KeptModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

int KeptModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 2;
}

QVariant KeptModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const auto row = static_cast<std::size_t>(index.row());
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
        case Qt::ToolTipRole:
            return ShownValue(index.column() == kKeyColumn ? lines_[row].key : lines_[row].value);
        case Qt::FontRole:
            return FixedFont();
        case Qt::DecorationRole:
            if (index.column() == kKeyColumn && changed_[row]) return Icon(IconName::Changed);
            return {};
        default:
            return {};
    }
}

bool KeptModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || index.column() != kValueColumn) return false;
    const KeyValue& line = lines_[static_cast<std::size_t>(index.row())];
    const std::string bytes = ValueBytes(OneLine(value.toString()), line.value);
    if (bytes == line.value) return true;
    const auto refused = session_.SetParameter(line.key, bytes, false);
    if (refused) emit session_.Told(Shown(*refused));
    return !refused;
}

Qt::ItemFlags KeptModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (index.column() == kValueColumn) flags |= Qt::ItemIsEditable;
    return flags;
}

QVariant KeptModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter));
    if (role != Qt::DisplayRole) return {};
    return Say(session_.Context().texts, section == kKeyColumn ? say::kKeptKey : say::kKeptValue);
}

}  // namespace calyx::ui
