#pragma once

#include <QDialog>

#include "comm/macro_keys.h"
#include "model/language/resource_texts.h"

class QCheckBox;
class QLineEdit;
class QPlainTextEdit;

namespace calyx::ui {

// What a macro key of the terminal is called and sends.
class frmMacro : public QDialog {
    Q_OBJECT

  public:
    frmMacro(const ResourceTexts& texts, const QString& name, const MacroKey& key, QWidget* parent);

    MacroKey Key() const;

  private:
    QLineEdit* caption_;
    QPlainTextEdit* text_;
    QCheckBox* enter_;
};

}  // namespace calyx::ui
