#include "ui/dialogs/frm_keyboard.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTreeView>

#include "ui/dialogs/screen_fit.h"
#include "ui/panes/pane_list.h"
#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/metrics.h"

namespace calyx::ui {

namespace {

QString KeysOf(const QAction& action) {
    return QKeySequence::listToString(action.shortcuts(), QKeySequence::NativeText);
}

}  // namespace

frmKeyboard::frmKeyboard(const ResourceTexts& texts, const QList<QAction*>& commands, QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("frmKeyboard"));
    setWindowTitle(Say(texts, say::kKeyboardTitle));
    setAttribute(Qt::WA_DeleteOnClose);
    std::vector<PaneList::Row> rows;
    for (const QAction* command : commands) {
        if (!command->shortcut().isEmpty())
            rows.push_back({.cells = {KeysOf(*command), PlainCaption(command->iconText())}});
    }
    // Keys that belong to no command.
    const struct {
        const char* keys;
        int text;
    } others[] = {{"F1", say::kKeyFieldHelp},
                  {"Esc", say::kKeyLeave},
                  {"Enter", say::kKeyChoose},
                  {"Space", say::kKeyAct},
                  {"Left, Right", say::kKeyFold},
                  {"Alt+Up, Alt+Down", say::kKeyItems},
                  {"Down, F4", say::kKeyList},
                  {"F2, Enter", say::kKeyEdit},
                  {"Ctrl+Shift+Up, Ctrl+Shift+Down", say::kKeyMove}};
    for (const auto& other : others)
        rows.push_back({.cells = {QString::fromLatin1(other.keys), Say(texts, other.text)}});

    auto* list = new PaneList(Say(texts, say::kKeyboardTitle),
                              {Say(texts, say::kKeyboardKeys), Say(texts, say::kKeyboardDoes)}, 1);
    list->SetRows(std::move(rows));
    list->View()->setSelectionMode(QAbstractItemView::NoSelection);  // there is nothing to do with a row
    list->View()->setFocusPolicy(Qt::NoFocus);
    auto* close = new QPushButton(Say(texts, say::kCloseMnemonic));
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(close);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(metrics::kGroups, metrics::kGroups, metrics::kGroups, metrics::kGroups);
    all->setSpacing(metrics::kGroups);
    all->addWidget(list, 1);
    all->addLayout(buttons);
    resize(FitScreen(*this, QSize(520, 520)));
}

}  // namespace calyx::ui
