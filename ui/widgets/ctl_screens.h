#pragma once

#include <QWidget>
#include <optional>

#include "ui/widgets/screen_edits.h"
#include "ui/widgets/screen_state.h"
#include "ui/window/page_factory.h"

class QLabel;
class QScrollArea;

namespace calyx::ui {

class ctlPalette;
class ctlProperties;
class ctlScreen;
class ctlViewBar;
class ScreenCommands;

// The screen editor: palette and screens above, the screen with its tools, beside it the widgets by name
// and the properties of those that are chosen.
class ctlScreens : public QWidget {
    Q_OBJECT

  public:
    ctlScreens(DocumentSession& session, const PageTools& tools);
    ~ctlScreens() override;

    // Shows the screen of the widget and chooses it; after undo all widgets that it changed.
    bool FocusKey(const QString& key);

    ctlScreen* Canvas() const { return canvas_; }
    ScreenState& State() { return state_; }
    ScreenEdits& Edits() { return edits_; }

  signals:
    void KeyFocused(const QString& key);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* MakeTop();
    QWidget* MakeMiddle();
    QWidget* MakeSide();
    void Connect();
    void ShowZoom();
    void TurnZoom(int steps);
    void ShowEmpty();
    void Import();
    void OpenImport(const QString& path);
    void TellProblem(const QString& text, const QString& details) const;
    const ResourceTexts& Texts() const { return session_.Context().texts; }

    DocumentSession& session_;
    const PageTools& tools_;
    Settings& settings_;
    ScreenState state_;
    ScreenEdits edits_;
    ScreenCommands* commands_;
    ctlPalette* palette_;
    ctlScreen* canvas_;
    QScrollArea* area_;
    QLabel* empty_;
    ctlViewBar* bar_;
    ctlProperties* properties_;
    int zoom_ = 100;    // per cent
    bool fits_ = true;  // it follows the room
};

}  // namespace calyx::ui
