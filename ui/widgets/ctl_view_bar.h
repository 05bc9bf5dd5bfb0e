#pragma once

#include <QWidget>

#include "app/settings.h"
#include "model/language/resource_texts.h"

class QCheckBox;
class QLabel;
class QSpinBox;
class QToolButton;

namespace calyx::ui {

// Below the screen: the grid and the lock, which are preferences and kept, and how large the screen shows.
class ctlViewBar : public QWidget {
    Q_OBJECT

  public:
    // Per cent.
    static constexpr int kLeastZoom = 100, kMostZoom = 400, kZoomStep = 25;

    ctlViewBar(const ResourceTexts& texts, Settings& settings);

    void ShowZoom(int percent, bool fits);

  signals:
    void ViewChanged();  // grid or lock
    void ZoomTurned(int steps);
    void FitToggled(bool fits);

  private:
    QSpinBox* MakeSide(std::int32_t& side, int name, const char* object);
    QToolButton* MakeButton(const QString& text, int tip, const char* name);
    QCheckBox* MakeBox(int text, int tip, const char* name);
    QCheckBox* MakeSwitch(bool& setting, int text, int tip, const char* name);

    const ResourceTexts& texts_;
    QLabel* zoom_;
    QCheckBox* fit_;
};

}  // namespace calyx::ui
