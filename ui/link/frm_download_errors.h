#pragma once

#include <QDialog>
#include <vector>

#include "comm/download.h"

namespace calyx::ui {

// The lines that the indicator did not accept, each with the reason.
class frmDownloadErrors : public QDialog {
    Q_OBJECT

  public:
    frmDownloadErrors(const ResourceTexts& texts, const std::vector<FailedLine>& failed, QWidget* parent);
};

}  // namespace calyx::ui
