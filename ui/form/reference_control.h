#pragma once

#include "ui/form/line_controls.h"

namespace calyx::ui::form {

// The number of something else in the document: typed, or chosen from what there is (Down, F4 or the
// arrow in the box). Words that stand for a number in the lines ("NONE", "PROG") can be typed as well.
class ReferenceControl final : public NumberControl {
    Q_OBJECT

  public:
    ReferenceControl(const RowInfo& info, const ResourceTexts& texts, Offers offers, QWidget* parent);
    Entry Read(bool leaving) const override;
    QString Sign() const override;  // the name of what the number names

  private:
    void Choose();

    const ResourceTexts& texts_;
    const Offers offers_;
};

}  // namespace calyx::ui::form
