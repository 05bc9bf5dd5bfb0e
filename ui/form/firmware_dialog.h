#pragma once

#include <QDialog>

#include "model/language/resource_texts.h"
#include "ui/form/parameter.h"

namespace calyx::ui::form {

// Which firmware version is sent what of a parameter. Deletes itself when closed.
class FirmwareDialog : public QDialog {
    Q_OBJECT

  public:
    FirmwareDialog(const ResourceTexts& texts, const Parameter& parameter, QWidget* parent);
};

}  // namespace calyx::ui::form
