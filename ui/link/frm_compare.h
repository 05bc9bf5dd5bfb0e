#pragma once

#include <QDialog>

#include "model/document/indicator.h"

namespace calyx::ui {

// Differences between two configurations, parameter by parameter.
class frmCompare : public QDialog {
    Q_OBJECT

  public:
    struct Sides {
        QString title;
        QString before, after;  // headings
        QString same;           // what is said when there is no difference
    };

    // The documents are asked where the keys belong.
    frmCompare(const ChangeSet& changes, const CIndicator& before, const CIndicator& after,
               const Sides& sides, QWidget* parent);

  signals:
    void Chosen(const QString& key);
};

}  // namespace calyx::ui
