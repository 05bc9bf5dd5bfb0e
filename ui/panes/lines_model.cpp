#include "ui/panes/lines_model.h"

#include <algorithm>

#include "model/language/text.h"
#include "ui/text.h"
#include "ui/texts.h"

namespace calyx::ui {

void LinesModel::SetLines(std::vector<ShownLine> lines) {
    if (lines == lines_) return;
    // The same keys with other values keep their rows, and so the selection and the place scrolled to.
    const bool sameKeys =
        std::equal(lines.begin(), lines.end(), lines_.begin(), lines_.end(),
                   [](const ShownLine& a, const ShownLine& b) { return a.key == b.key && a.sent == b.sent; });
    if (sameKeys) {
        lines_ = std::move(lines);
        emit dataChanged(index(0), index(rowCount() - 1));
        return;
    }
    beginResetModel();
    lines_ = std::move(lines);
    endResetModel();
}

int LinesModel::Find(const QString& key) const {
    const std::string wanted = KeyBytes(key);
    const auto found = std::find_if(lines_.begin(), lines_.end(),
                                    [&](const ShownLine& line) { return EqualNoCase(line.key, wanted); });
    return found == lines_.end() ? -1 : static_cast<int>(found - lines_.begin());
}

int LinesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

QVariant LinesModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const ShownLine& line = lines_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case Qt::DisplayRole:
            return ShownValue(line.key + "=" + line.value);
        case kKeyRole:
            return KeyText(line.key);
        case kChangedRole:
            return line.changed;
        case kReasonRole:
            return Reason(line);
        case Qt::ToolTipRole:
        case Qt::AccessibleTextRole: {
            QStringList words{ShownValue(line.key + "=" + line.value)};
            if (line.changed) words += Say(texts_, say::kChangedLine);
            if (!line.sent) words += Reason(line);
            return words.join(QStringLiteral("\n"));
        }
        default:
            return {};
    }
}

QString LinesModel::Reason(const ShownLine& line) const {
    if (line.sent) return {};
    if (line.gate.Ungated()) return Say(texts_, say::kNeverSent);
    return Say(texts_, say::kOnlyVersions, Shown(Words(line.gate)));
}

}  // namespace calyx::ui
