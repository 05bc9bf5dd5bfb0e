#include "ui/widgets/screen_commands.h"

#include <QGridLayout>
#include <QToolButton>
#include <QWidget>
#include <algorithm>
#include <array>

#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/widgets/widget_texts.h"

namespace calyx::ui {

using namespace widget_text;

namespace {

constexpr std::array kAlign{kAlignLeft, kAlignCentre, kAlignRight, kAlignTop, kAlignMiddle, kAlignBottom};
constexpr std::array kTools{kAlignLeft,    kAlignTop,   kAlignCentre, kAlignMiddle, kAlignRight, kAlignBottom,
                            kSpreadAcross, kSpreadDown, kSameWidth,   kSameHeight,  kToFront,    kToBack};

}  // namespace

ScreenCommands::ScreenCommands(ScreenEdits& edits, const ResourceTexts& texts, QObject* parent)
    : QObject(parent), texts_(texts) {
    using Keys = QKeySequence;
    Make(kCut, "widgetCut", Keys::Cut, [&edits] { edits.Cut(); });
    Make(kCopy, "widgetCopy", Keys::Copy, [&edits] { edits.Copy(); });
    Make(kPaste, "widgetPaste", Keys::Paste, [&edits] { edits.Paste(); });
    Make(kDuplicate, "widgetDuplicate", Keys(Qt::CTRL | Qt::Key_D), [&edits] { edits.Duplicate(); });
    Make(kDelete, "widgetDelete", Keys::Delete, [&edits] { edits.Delete(); });
    Make(kSelectAll, "widgetSelectAll", Keys::SelectAll, [&edits] { edits.SelectAll(); });
    Make(kToFront, "widgetToFront", Keys(Qt::CTRL | Qt::SHIFT | Qt::Key_PageUp), ToolIcon::ToFront,
         [&edits] { edits.Reorder(Order::ToFront); });
    Make(kForward, "widgetForward", Keys(Qt::ALT | Qt::Key_PageUp),
         [&edits] { edits.Reorder(Order::Forward); });
    Make(kBackward, "widgetBackward", Keys(Qt::ALT | Qt::Key_PageDown),
         [&edits] { edits.Reorder(Order::Backward); });
    Make(kToBack, "widgetToBack", Keys(Qt::CTRL | Qt::SHIFT | Qt::Key_PageDown), ToolIcon::ToBack,
         [&edits] { edits.Reorder(Order::ToBack); });
    const struct {
        int text;
        const char* name;
        ToolIcon icon;
        Edge edge;
    } aligns[] = {{kAlignLeft, "alignLeft", ToolIcon::AlignLeft, Edge::Left},
                  {kAlignCentre, "alignCentre", ToolIcon::AlignCentre, Edge::Centre},
                  {kAlignRight, "alignRight", ToolIcon::AlignRight, Edge::Right},
                  {kAlignTop, "alignTop", ToolIcon::AlignTop, Edge::Top},
                  {kAlignMiddle, "alignMiddle", ToolIcon::AlignMiddle, Edge::Middle},
                  {kAlignBottom, "alignBottom", ToolIcon::AlignBottom, Edge::Bottom}};
    for (const auto& align : aligns)
        Make(align.text, align.name, {}, align.icon, [&edits, edge = align.edge] { edits.Align(edge); });
    Make(kSpreadAcross, "spreadAcross", {}, ToolIcon::SpreadAcross,
         [&edits] { edits.SpreadEvenly(Qt::Horizontal); });
    Make(kSpreadDown, "spreadDown", {}, ToolIcon::SpreadDown, [&edits] { edits.SpreadEvenly(Qt::Vertical); });
    Make(kSameWidth, "sameWidth", {}, ToolIcon::SameWidth, [&edits] { edits.MakeAlike(true, false); });
    Make(kSameHeight, "sameHeight", {}, ToolIcon::SameHeight, [&edits] { edits.MakeAlike(false, true); });
    import_ = Make(kImport, "widgetImport", {}, [] {});
}

QAction* ScreenCommands::Make(int text, const char* name, const QKeySequence& key,
                              std::function<void()> act) {
    auto* action = new QAction(Say(texts_, text), this);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    QString tip = Say(texts_, text + kTipOf);
    if (!key.isEmpty()) tip += QStringLiteral(" (%1)").arg(key.toString(QKeySequence::NativeText));
    action->setToolTip(tip);
    action->setStatusTip(tip);
    connect(action, &QAction::triggered, this, [run = std::move(act)] { run(); });
    commands_.push_back({text, action});
    return action;
}

QAction* ScreenCommands::Make(int text, const char* name, const QKeySequence& key, ToolIcon icon,
                              std::function<void()> act) {
    QAction* action = Make(text, name, key, std::move(act));
    action->setIcon(IconOf(icon));
    return action;
}

QAction* ScreenCommands::Find(int text) const {
    return std::find_if(commands_.begin(), commands_.end(),
                        [text](const Command& command) { return command.text == text; })
        ->action;
}

void ScreenCommands::AttachTo(QWidget& widget) const {
    for (const Command& command : commands_) widget.addAction(command.action);
}

QMenu* ScreenCommands::MakeMenu(QWidget& parent) const {
    auto* menu = new QMenu(&parent);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setToolTipsVisible(true);
    for (const int text : {kCut, kCopy, kPaste, kDuplicate, kDelete}) menu->addAction(Find(text));
    menu->addSeparator();
    menu->addAction(Find(kSelectAll));
    menu->addSeparator();
    QMenu* order = menu->addMenu(Say(texts_, kOrderMenu));
    for (const int text : {kToFront, kForward, kBackward, kToBack}) order->addAction(Find(text));
    QMenu* align = menu->addMenu(Say(texts_, kAlignMenu));
    for (const int text : kAlign) align->addAction(Find(text));
    align->addSeparator();
    for (const int text : {kSpreadAcross, kSpreadDown}) align->addAction(Find(text));
    QMenu* size = menu->addMenu(Say(texts_, kSizeMenu));
    for (const int text : {kSameWidth, kSameHeight}) size->addAction(Find(text));
    menu->addSeparator();
    menu->addAction(import_);
    return menu;
}

QWidget* ScreenCommands::MakeTools() const {
    constexpr int kColumns = 2;
    auto* tools = new QWidget;
    tools->setObjectName(QStringLiteral("screenTools"));
    tools->setAccessibleName(Say(texts_, kToolsName));
    auto* grid = new QGridLayout(tools);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(2);
    for (std::size_t i = 0; i < kTools.size(); ++i) {
        auto* button = new QToolButton;
        button->setDefaultAction(Find(kTools[i]));
        button->setText(PlainCaption(button->text()));
        button->setToolButtonStyle(Qt::ToolButtonIconOnly);
        button->setFixedSize(metrics::kControlHeight, metrics::kControlHeight);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
        const int place = static_cast<int>(i);
        grid->addWidget(button, place / kColumns, place % kColumns);
    }
    grid->setRowStretch(static_cast<int>(kTools.size()) / kColumns, 1);
    return tools;
}

}  // namespace calyx::ui
