#include "ui/items/grid_model.h"

#include <algorithm>
#include <utility>

#include "model/language/text.h"
#include "ui/form/form_texts.h"
#include "ui/form/words.h"
#include "ui/items/items_texts.h"
#include "ui/items/typed_text.h"
#include "ui/text.h"
#include "ui/theme/icons.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

using form::Entry;
using form::PageState;
using form::Parameter;

namespace {

const Section* SectionOf(const CIndicator& document, std::string_view name) {
    for (const Section* section : document.Sections()) {
        if (section->Name() == name) return section;
    }
    return nullptr;
}

bool SameCells(const GridRow& a, const GridRow& b) {
    return a.item == b.item && std::equal(a.cells.begin(), a.cells.end(), b.cells.begin(), b.cells.end(),
                                          [](const auto& x, const auto& y) { return x.key == y.key; });
}

std::optional<std::size_t> RowOfStem(const Item& item, std::string_view stem) {
    for (std::size_t row = 0; row < item.RowCount(); ++row) {
        if (item.Info(row).stem == stem) return row;
    }
    return std::nullopt;
}

}  // namespace

GridSource ItemsAsRows(std::string section, std::vector<int> kinds, std::vector<std::string> stems) {
    return [section = std::move(section), kinds = std::move(kinds),
            stems = std::move(stems)](const CIndicator& document) {
        std::vector<GridRow> rows;
        const Section* of = SectionOf(document, section);
        if (of == nullptr) return rows;
        for (const Item* item : of->Items()) {
            if (std::find(kinds.begin(), kinds.end(), item->Title()) == kinds.end()) continue;
            GridRow& row = rows.emplace_back();
            row.item = {section, item->Title(), item->Number()};
            row.title = Shown(of->ItemTitle(*item));
            for (const std::string& stem : stems) {
                const auto found = RowOfStem(*item, stem);
                row.cells.push_back({found ? item->Key(*found) : std::string(), {}, {}});
            }
        }
        return rows;
    };
}

QStringList ItemHeadings(const DocumentSession& session, const std::string& section, int kind,
                         const std::vector<std::string>& stems) {
    const CIndicator& document = session.Document();
    const ResourceTexts& texts = document.Context().texts;
    QStringList headings{QString()};
    const Section* of = SectionOf(document, section);
    if (of == nullptr) return headings;
    for (const Item* item : of->Items()) {
        if (item->Title() != kind) continue;
        for (const std::string& stem : stems) {
            const auto row = RowOfStem(*item, stem);
            headings += row ? Say(texts, item->Info(*row).more.label) : QString();
        }
        break;
    }
    return headings;
}

GridModel::GridModel(DocumentSession& session, QStringList headings, GridSource source, QObject* parent)
    : QAbstractTableModel(parent),
      session_(session),
      headings_(std::move(headings)),
      source_(std::move(source)) {}

void GridModel::Refresh() {
    std::vector<GridRow> rows = source_(std::as_const(session_).Document());
    const bool same = std::equal(rows.begin(), rows.end(), rows_.begin(), rows_.end(), SameCells);
    if (!same) beginResetModel();
    rows_ = std::move(rows);
    Fill();
    if (!same) {
        endResetModel();
    } else if (!rows_.empty()) {
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    }
    emit UntakenChanged();
}

void GridModel::Fill() {
    const CIndicator& document = std::as_const(session_).Document();
    std::map<std::string, PageState> states;
    std::map<std::string, Typed> stays;
    cells_.assign(rows_.size(), {});
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const GridRow& row = rows_[i];
        const std::string& name = row.item.section;
        const Section* section = SectionOf(document, name);
        cells_[i].resize(row.cells.size());
        if (section == nullptr) continue;
        if (!states.contains(name)) states.emplace(name, PageState::Of(session_, name, differing_));
        for (const Item* item : section->Items()) {
            if (item->Number() != row.item.number || (row.item.kind != 0 && item->Title() != row.item.kind))
                continue;
            for (std::size_t c = 0; c < row.cells.size(); ++c) {
                const std::string& key = row.cells[c].key;
                const auto of = key.empty() ? std::nullopt : item->Find(key);
                if (!of) continue;
                cells_[i][c] = Look(*item, *of, states.at(name));
                const auto typed = untaken_.find(key);
                // A value that has become another one since is what counts.
                if (typed != untaken_.end() && typed->second.was == cells_[i][c].text) stays.insert(*typed);
            }
        }
    }
    untaken_ = std::move(stays);
    AlignColumns();
}

// A column of numbers, and no words among them, stands on the right with its heading.
void GridModel::AlignColumns() {
    std::vector<bool> figures(static_cast<std::size_t>(columnCount()), false), words = figures;
    for (const auto& row : cells_) {
        for (std::size_t c = 0; c < row.size(); ++c) {
            if (!row[c].present) continue;
            const bool word =
                !row[c].isNumber || (!row[c].shown.isEmpty() && row[c].shown.front().isLetter());
            (word ? words : figures)[c + 1] = true;
        }
    }
    for (std::size_t c = 0; c < figures.size(); ++c) figures[c] = figures[c] && !words[c];
    if (std::exchange(figures_, figures) != figures && columnCount() > 0)
        emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

Qt::Alignment GridModel::AlignmentOf(int column) const {
    const auto place = static_cast<std::size_t>(column);
    const bool figures = place < figures_.size() && figures_[place];
    return (figures ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

GridModel::Cell GridModel::Look(const Item& item, std::size_t row, const PageState& state) const {
    const ResourceTexts& texts = session_.Context().texts;
    const Parameter parameter(item, row);
    const RowInfo& info = parameter.Info();
    const QLocale locale;
    Cell cell;
    cell.present = parameter.IsPresent();
    cell.editable = cell.present && info.more.use != Use::ReadOnly;
    cell.text = parameter.Text();
    if (!cell.present) return cell;
    cell.isSwitch = info.kind == ValueKind::Switch && parameter.List() == nullptr;
    cell.isOn = cell.isSwitch && cell.text == parameter.Words().on;
    cell.isNumber =
        parameter.List() == nullptr && (info.kind == ValueKind::Integer || info.kind == ValueKind::Decimal);
    if (!cell.isSwitch && !cell.text.empty()) {
        cell.shown = form::ValueWords(texts, parameter, cell.text, locale);
        if (info.kind == ValueKind::Decimal && parameter.List() == nullptr)
            cell.shown.replace(QLatin1Char('.'), locale.decimalPoint());
    }
    // The column says what is meant: "2" of "SLOT2", as it is typed.
    if (const auto parts = form::SplitNumber(cell.text);
        !parts.number.empty() && form::IsReference(item.Key(row)))
        cell.shown = Shown(parts.number);
    cell.isDefault = cell.text == item.InitialText(row) || cell.text == parameter.DefaultText();
    const std::string key = Upper(item.Key(row));
    if (const auto rule = state.problems.find(key); rule != state.problems.end())
        cell.problem = Shown(rule->second);
    if (const auto change = state.sinceSave.find(key); change != state.sinceSave.end()) {
        cell.changed = true;
        const auto& before = change->second.before;
        cell.marks +=
            before ? Say(texts, form::kMarkChanged, form::ValueWords(texts, parameter, *before, locale))
                   : Say(texts, form::kMarkNew);
    }
    cell.differs = state.differing.contains(key);
    if (cell.differs) cell.marks += Say(texts, form::kMarkDiffers);
    return cell;
}

void GridModel::SetDiffering(const std::set<std::string>& keys) {
    differing_.clear();
    for (const std::string& key : keys) differing_.insert(Upper(key));
    Refresh();
}

const GridCell* GridModel::SpecAt(const QModelIndex& index) const {
    if (!index.isValid() || index.column() == 0) return nullptr;
    const auto& cells = RowAt(index.row()).cells;
    const auto place = static_cast<std::size_t>(index.column() - 1);
    return place < cells.size() ? &cells[place] : nullptr;
}

const GridModel::Cell* GridModel::CellAt(const QModelIndex& index) const {
    const GridCell* spec = SpecAt(index);
    if (spec == nullptr || spec->key.empty()) return nullptr;
    return &cells_[static_cast<std::size_t>(index.row())][static_cast<std::size_t>(index.column() - 1)];
}

const GridModel::Typed* GridModel::TypedAt(const QModelIndex& index) const {
    const auto found = untaken_.find(KeyAt(index));
    return found == untaken_.end() ? nullptr : &found->second;
}

std::string GridModel::KeyAt(const QModelIndex& index) const {
    const GridCell* spec = SpecAt(index);
    return spec == nullptr ? std::string() : spec->key;
}

form::Offers GridModel::OffersAt(const QModelIndex& index) const {
    const std::string key = KeyAt(index);
    if (!form::IsReference(key)) return {};
    return [this, key] { return form::References(std::as_const(session_).Document(), key); };
}

QString GridModel::GoToOf(const QModelIndex& index) const {
    const GridCell* spec = SpecAt(index);
    return spec == nullptr || !spec->key.empty() ? QString() : spec->goTo;
}

QModelIndex GridModel::Find(const QString& key) const {
    const std::string wanted = KeyBytes(key);
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        for (std::size_t c = 0; c < rows_[i].cells.size(); ++c) {
            if (EqualNoCase(rows_[i].cells[c].key, wanted))
                return index(static_cast<int>(i), static_cast<int>(c + 1));
        }
    }
    return {};
}

std::optional<Parameter> GridModel::ParameterAt(const QModelIndex& index) const {
    const Cell* cell = CellAt(index);
    if (cell == nullptr || !cell->editable) return std::nullopt;
    return LookUp(index);
}

std::optional<Parameter> GridModel::LookUp(const QModelIndex& index) const {
    if (CellAt(index) == nullptr) return std::nullopt;
    return form::FindParameter(std::as_const(session_).Document(), RowAt(index.row()).item.section,
                               KeyAt(index));
}

bool GridModel::IsAbsent(const QModelIndex& index) const {
    const Cell* cell = CellAt(index);
    return cell != nullptr && !cell->present;
}

QString GridModel::Untaken(const QModelIndex& index) const {
    const Typed* typed = TypedAt(index);
    return typed == nullptr ? QString() : typed->text;
}

QString GridModel::Problem(const QModelIndex& index) const {
    if (const Typed* typed = TypedAt(index)) return typed->words;
    const Cell* cell = CellAt(index);
    return cell == nullptr ? QString() : cell->problem;
}

QString GridModel::Help(const QModelIndex& index) const {
    const auto parameter = LookUp(index);
    const int help = parameter ? parameter->Info().more.help : 0;
    return help == 0 ? QString() : Say(session_.Context().texts, help);
}

QString GridModel::NameOf(const QModelIndex& index) const {
    return Say(session_.Context().texts, items_text::kCellName, RowAt(index.row()).title,
               headings_[index.column()]);
}

void GridModel::Keep(const QModelIndex& index, const QString& typed, const QString& words) {
    const Cell* cell = CellAt(index);
    if (cell == nullptr) return;
    untaken_[KeyAt(index)] = {typed, words, cell->text};
    emit dataChanged(index, index);
    emit UntakenChanged();
}

void GridModel::Enter(const QModelIndex& index, const Entry& entry, const QString& typed) {
    const QPersistentModelIndex place(index);  // the change may bring other rows
    if (entry.state != Entry::State::Right) return Keep(index, typed, entry.words);
    GiveUp(index);
    const auto refused = session_.SetParameter(KeyAt(index), entry.text, false);
    if (refused && place.isValid()) Keep(place, typed, Shown(*refused));
}

void GridModel::GiveUp(const QModelIndex& index) {
    if (untaken_.erase(KeyAt(index)) == 0) return;
    emit dataChanged(index, index);
    emit UntakenChanged();
}

void GridModel::GiveUpAll() {
    if (untaken_.empty()) return;
    untaken_.clear();
    Refresh();
}

void GridModel::AddUntaken(QStringList& wrong) const {
    for (const auto& [key, typed] : untaken_) {
        wrong += NameOf(Find(KeyText(key))) + QStringLiteral(": ") + typed.words;
    }
}

QString GridModel::Copy(const QModelIndexList& cells) const {
    std::map<int, std::map<int, QString>> lines;
    for (const QModelIndex& index : cells) {
        const Cell* cell = CellAt(index);
        const bool isSwitch = cell != nullptr && cell->isSwitch;
        lines[index.row()][index.column()] =
            isSwitch ? Shown(cell->text) : data(index, Qt::DisplayRole).toString();
    }
    QStringList text;
    for (const auto& [row, line] : lines) {
        QStringList words;
        for (const auto& [column, word] : line) words += word;
        text += words.join(QLatin1Char('\t'));
    }
    return text.join(QLatin1Char('\n'));
}

void GridModel::Paste(const QModelIndexList& cells, const QString& text) {
    if (cells.isEmpty()) return;
    QString plain = text;
    plain.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    if (plain.endsWith(QLatin1Char('\n'))) plain.chop(1);
    const QStringList lines = plain.split(QLatin1Char('\n'));
    std::vector<std::pair<QModelIndex, QString>> texts;
    if (lines.size() == 1 && !plain.contains(QLatin1Char('\t'))) {
        for (const QModelIndex& index : cells) texts.emplace_back(index, plain);
        return TakeAll(texts, 0);
    }
    const QModelIndex first = *std::min_element(cells.begin(), cells.end());
    int unfitting = 0;
    bool ended = false;
    for (int i = 0; i < lines.size(); ++i) {
        const int row = first.row() + i;
        ended = ended || row >= rowCount() || IsHeading(row);
        const QStringList words = lines[i].split(QLatin1Char('\t'));
        for (int c = 0; c < words.size(); ++c) {
            const int column = first.column() + c;
            if (!ended && column < columnCount()) {
                texts.emplace_back(index(row, column), words[c]);
            } else if (!words[c].isEmpty()) {
                ++unfitting;
            }
        }
    }
    TakeAll(texts, unfitting);
}

// All that can be taken goes in as one step, the rest stays in its cells. Words beside the parameters are
// passed over when they are what the cell says, as when whole rows are copied and put back.
void GridModel::TakeAll(const std::vector<std::pair<QModelIndex, QString>>& texts, int unfitting) {
    const ResourceTexts& words = session_.Context().texts;
    std::vector<KeyValue> lines;
    std::map<std::string, QString> typed;
    std::map<std::string, QString> wrong;
    for (const auto& [index, text] : texts) {
        const std::string key = KeyAt(index);
        if (key.empty()) {
            if (!text.isEmpty() && text != data(index, Qt::DisplayRole).toString()) ++unfitting;
            continue;
        }
        typed[key] = text;
        const auto parameter = ParameterAt(index);
        if (!parameter) {
            if (!text.isEmpty()) wrong[key] = Say(words, items_text::kNotUsedHere);
            continue;
        }
        const Entry entry = ReadTyped(*parameter, words, text);
        if (entry.state == Entry::State::Right) {
            lines.push_back({key, entry.text});
            untaken_.erase(key);
        } else {
            wrong[key] = entry.words;
        }
    }
    std::size_t taken = lines.size();
    for (const Refusal& refusal : Store(lines, items_text::kPasteStep)) {
        wrong[refusal.key] = Shown(refusal.reason);
        --taken;
    }
    for (const auto& [key, reason] : wrong) Keep(Find(KeyText(key)), typed[key], reason);
    QString told = Say(words, items_text::kPasted, QString::number(taken));
    if (!wrong.empty())
        told += QLatin1Char(' ') + Say(words, items_text::kStayMarked, QString::number(wrong.size()));
    if (unfitting > 0)
        told += QLatin1Char(' ') + Say(words, items_text::kNotFitting, QString::number(unfitting));
    emit session_.Told(told);
}

std::vector<Refusal> GridModel::Store(const std::vector<KeyValue>& lines, int step) {
    if (lines.empty()) return {};
    const std::string count = std::to_string(lines.size());
    // One value is named as if it had been typed.
    const std::string name =
        lines.size() == 1 ? std::string() : session_.Context().texts.Format(step, {count});
    session_.EndTyping();
    auto refused = session_.Edit(lines, name);
    session_.EndTyping();
    return refused;
}

void GridModel::ResetToDefault(const QModelIndexList& cells) {
    std::vector<KeyValue> lines;
    bool gaveUp = false;
    for (const QModelIndex& index : cells) {
        const auto parameter = ParameterAt(index);
        if (!parameter) continue;
        gaveUp = untaken_.erase(KeyAt(index)) > 0 || gaveUp;
        if (!CellAt(index)->isDefault) lines.push_back({KeyAt(index), parameter->DefaultText()});
    }
    if (lines.empty() && !gaveUp) {
        emit session_.Told(Say(session_.Context().texts, items_text::kAllDefault));
        return;
    }
    if (lines.empty()) return Refresh();
    Store(lines, items_text::kDefaultsStep);
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(headings_.size());
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const GridRow& row = RowAt(index.row());
    const Cell* cell = CellAt(index);
    const GridCell* spec = SpecAt(index);
    const Typed* typed = TypedAt(index);
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            if (index.column() == 0) return row.title;
            if (typed != nullptr) return typed->text;
            if (cell != nullptr) return cell->shown;
            return spec == nullptr ? QString() : spec->words;
        case Qt::CheckStateRole:
            if (cell == nullptr || !cell->isSwitch || !cell->present) return {};
            return cell->isOn ? Qt::Checked : Qt::Unchecked;
        case Qt::FontRole:
            if (row.cells.empty()) return StrongFont();
            if (cell != nullptr && typed == nullptr && !cell->isDefault) {
                QFont bold = FiguresFont();
                bold.setBold(true);
                return bold;
            }
            return {};
        case Qt::ForegroundRole:
            if (typed != nullptr) return QApplication::palette().color(role::kProblem);
            if (row.cells.empty()) return QApplication::palette().color(role::kText);
            if (cell == nullptr && index.column() > 0)
                return QApplication::palette().color(GoToOf(index).isEmpty() ? role::kQuietText
                                                                             : role::kAccent);
            return {};
        case Qt::TextAlignmentRole:
            return QVariant::fromValue(AlignmentOf(index.column()));
        case Qt::DecorationRole:
            if (!Problem(index).isEmpty() || typed != nullptr) return Icon(IconName::Problem);
            if (cell != nullptr && cell->differs) return Icon(IconName::Differs);
            if (cell != nullptr && cell->changed) return Icon(IconName::Changed);
            return {};
        case Qt::ToolTipRole:
            return ToolTipOf(index);
        case Qt::AccessibleTextRole:
            return index.column() == 0 ? row.title : SpokenOf(index);
        case Qt::AccessibleDescriptionRole:
            if (const auto parameter = LookUp(index))
                return form::Description(session_.Context().texts, *parameter);
            return {};
        default:
            return {};
    }
}

QString GridModel::SpokenOf(const QModelIndex& index) const {
    const Cell* cell = CellAt(index);
    QString value = data(index, Qt::DisplayRole).toString();
    if (cell != nullptr && cell->isSwitch) value = Shown(cell->text);
    if (cell != nullptr && value.isEmpty()) value = Say(session_.Context().texts, form::kEmpty);
    QString spoken = NameOf(index) + QStringLiteral(": ") + value;
    if (const QString problem = Problem(index); !problem.isEmpty()) spoken += QStringLiteral(". ") + problem;
    return spoken;
}

QVariant GridModel::ToolTipOf(const QModelIndex& index) const {
    const auto parameter = LookUp(index);
    if (!parameter) return {};
    QStringList first;
    if (const QString problem = Problem(index); !problem.isEmpty()) first += problem;
    if (IsAbsent(index)) first += Say(session_.Context().texts, items_text::kNotUsedHere);
    first += CellAt(index)->marks;
    QString tip;
    for (const QString& line : first) tip += QStringLiteral("<p>%1</p>").arg(line.toHtmlEscaped());
    return tip + form::ToolTip(session_.Context().texts, *parameter, QLocale());
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    const auto parameter = ParameterAt(index);
    if (role != Qt::CheckStateRole || !parameter) return false;
    const form::SwitchWords words = parameter->Words();
    const bool on = value.toInt() == Qt::Checked;
    Enter(index, {.text = on ? words.on : words.off}, {});
    return true;
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section >= headings_.size()) return {};
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue(AlignmentOf(section));
    return role == Qt::DisplayRole ? QVariant(headings_[section]) : QVariant();
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    if (!index.isValid() || IsHeading(index.row())) return Qt::NoItemFlags;
    const Cell* cell = CellAt(index);
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (cell == nullptr || !cell->editable) return flags;
    return flags | (cell->isSwitch ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}

}  // namespace calyx::ui
