#pragma once

#include <QDialog>

#include "ui/widgets/scale_display.h"
#include "ui/widgets/screen_painter.h"

class QComboBox;
class QLabel;

namespace calyx::ui {

class ScreenPreview;

// Which screen of another configuration is taken, shown as it will look, and onto which one it goes.
class frmImportScreen : public QDialog {
    Q_OBJECT

  public:
    // `from` has a widget on some screen.
    frmImportScreen(const CWidgets& from, const QString& file, ScaleDisplays scales, int onto,
                    const ResourceTexts& texts, QWidget* parent);

  signals:
    void Chosen(int from, int to);

  private:
    void ShowChosen();

    const ResourceTexts& texts_;
    QComboBox *from_, *to_;
    ScreenPreview* preview_;
};

}  // namespace calyx::ui
