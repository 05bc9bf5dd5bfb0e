#pragma once

#include <QAction>
#include <QMenu>
#include <QObject>
#include <vector>

#include "ui/widgets/screen_edits.h"
#include "ui/widgets/tool_icons.h"

namespace calyx::ui {

// The commands for chosen widgets, with their keys: in the menu of the screen and as tools beside it.
class ScreenCommands : public QObject {
    Q_OBJECT

  public:
    ScreenCommands(ScreenEdits& edits, const ResourceTexts& texts, QObject* parent);

    // The keys work where the cursor is in one of these.
    void AttachTo(QWidget& widget) const;
    QMenu* MakeMenu(QWidget& parent) const;  // deletes itself when closed
    QWidget* MakeTools() const;
    QAction* Import() const { return import_; }

  private:
    struct Command {
        int text;
        QAction* action;
    };
    QAction* Make(int text, const char* name, const QKeySequence& key, std::function<void()> act);
    QAction* Make(int text, const char* name, const QKeySequence& key, ToolIcon icon,
                  std::function<void()> act);
    QAction* Find(int text) const;

    const ResourceTexts& texts_;
    std::vector<Command> commands_;
    QAction* import_;
};

}  // namespace calyx::ui
