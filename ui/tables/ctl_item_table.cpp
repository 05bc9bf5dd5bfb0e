#include "ui/tables/ctl_item_table.h"

#include <QAction>
#include <QHBoxLayout>
#include <QPushButton>
#include <utility>

#include "model/language/text.h"
#include "ui/tables/item_clipboard.h"
#include "ui/tables/tables_texts.h"
#include "ui/text.h"
#include "ui/theme/metrics.h"

namespace calyx::ui {

ctlItemTable::ctlItemTable(DocumentSession& session, const Texts& texts) : session_(session), texts_(texts) {}

void ctlItemTable::MakeGrid(QStringList headings, GridSource source) {
    auto* model = new GridModel(session_, std::move(headings), std::move(source), this);
    grid_ = new ctlItemGrid(session_, model, Say(Words(), texts_.name), [this] { return HoldsItems(); });
    connect(grid_, &ctlItemGrid::OpenWanted, this, &ctlItemTable::OpenWanted);
    connect(grid_, &ctlItemGrid::CopyWanted, this, &ctlItemTable::Copy);
    connect(grid_, &ctlItemGrid::PasteWanted, this, &ctlItemTable::Paste);
    connect(grid_, &ctlItemGrid::ClearWanted, this, &ctlItemTable::Clear);
    connect(grid_, &ctlGrid::ParameterWanted, this, &ctlItemTable::ParameterWanted);
    // The grid itself takes these keys.
    AddCommand(say::kOpenPage, "itemOpen", {}, [this] { emit OpenWanted(grid_->CurrentNumber()); });
    AddCommand(say::kCopyItems, "itemCopy", {}, [this] { Copy(); });
    AddCommand(say::kPasteItems, "itemPaste", {}, [this] { Paste(); });
    AddCommand(say::kClearItems, "itemClear", {}, [this] { Clear(); });
}

int ctlItemTable::NumberOf(const QString& key) const {
    const auto number = ReadInteger(KeyBytes(key.section(QLatin1Char('#'), 1, 1)));
    return number ? number->value : 0;
}

QAction* ctlItemTable::AddCommand(int text, const char* name, const QKeySequence& keys,
                                  const std::function<void()>& act) {
    auto* command = new QAction(Say(Words(), text), this);
    command->setObjectName(QLatin1String(name));
    command->setShortcut(keys);
    command->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(command, &QAction::triggered, this, act);
    addAction(command);
    commands_.push_back(command);
    grid_->SetCommands(commands_);
    return command;
}

QWidget* ctlItemTable::MakeButtons(bool withClear) {
    auto* buttons = new QWidget;
    auto* row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(metrics::kRelated);
    const auto add = [&](int text, int tip, const QString& keys, const char* name, auto act) {
        auto* button = new QPushButton(Say(Words(), text));
        button->setObjectName(QLatin1String(name));
        button->setToolTip(Say(Words(), tip) +
                           (keys.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(keys)));
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, act);
        row->addWidget(button);
    };
    const auto keys = [](const QKeySequence& sequence) {
        return sequence.toString(QKeySequence::NativeText);
    };
    add(say::kOpenPage, say::kOpenTip, {}, "cmdOpen", [this] { emit OpenWanted(grid_->CurrentNumber()); });
    add(say::kCopyItems, say::kCopyTip, keys(QKeySequence::Copy), "cmdCopy", [this] { Copy(); });
    add(say::kPasteItems, say::kPasteTip, keys(QKeySequence::Paste), "cmdPaste", [this] { Paste(); });
    if (!withClear) return buttons;
    row->addStretch(1);
    add(say::kClearItems, say::kClearItemsTip, {}, "cmdClearRows", [this] { Clear(); });
    return buttons;
}

QString ctlItemTable::ProblemOf(int number) const {
    if (grid_->Model().rowCount() == 0) return {};
    const std::string& section = grid_->Model().RowAt(0).item.section;
    for (const BrokenRule& rule : session_.Problems()) {
        if (rule.section == section && rule.item == number) return Shown(rule.text);
    }
    return {};
}

bool ctlItemTable::Apply(const std::vector<Change>& changes, const std::string& step) {
    if (changes.empty()) return false;
    ChangeSet set;
    for (const Change& change : changes) set.Add(change);
    session_.Do(step, [&](CIndicator& document) { return document.Apply(set); });
    return true;
}

void ctlItemTable::Copy() {
    const std::vector<int> numbers = grid_->ChosenNumbers();
    CopyItems(Lines(numbers, true), Lines(numbers, false));
    emit session_.Told(Say(Words(), texts_.copied, QString::number(numbers.size())));
}

bool ctlItemTable::HoldsItems() const {
    return Read(CopiedItems(), 1).count > 0;
}

void ctlItemTable::Paste() {
    const std::vector<int> chosen = grid_->ChosenNumbers();
    if (chosen.empty()) return;
    const int first = chosen.front();
    const Pasted pasted = Read(CopiedItems(), first);
    if (pasted.count == 0) return emit session_.Told(Say(Words(), texts_.nothingToPaste));
    const std::string count = std::to_string(pasted.count), at = std::to_string(first);
    if (!pasted.fits) return emit session_.Told(Shown(Words().Format(texts_.noRoom, {count, at})));
    Apply(pasted.changes, Words().Format(texts_.pasteStep, {count, at}));
    if (pasted.notAsGiven > 0)
        emit session_.Told(Say(Words(), texts_.notAsGiven, QString::number(pasted.notAsGiven)));
}

void ctlItemTable::Clear() {
    const std::vector<int> numbers = grid_->ChosenNumbers();
    std::vector<Change> changes;
    for (const int number : numbers) {
        for (Change& change : Cleared(number)) changes.push_back(std::move(change));
    }
    const bool several = numbers.size() > 1;
    const std::string what =
        std::to_string(several ? static_cast<int>(numbers.size()) : grid_->CurrentNumber());
    if (!Apply(changes, Words().Format(several ? texts_.clearSeveralStep : texts_.clearStep, {what})))
        emit session_.Told(Say(Words(), texts_.nothingToClear));
}

}  // namespace calyx::ui
