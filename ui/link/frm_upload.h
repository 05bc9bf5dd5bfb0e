#pragma once

#include <QDialog>

#include "comm/upload.h"
#include "model/language/resource_texts.h"

class QLabel;

namespace calyx::ui {

class ElapsedLabel;

// Shows how far reading from the indicator is, and carries its Cancel button.
class frmUpload : public QDialog, public IUploadEvents {
    Q_OBJECT

  public:
    frmUpload(const ResourceTexts& texts, QWidget* parent);

    void StartElapsed();
    void Status(const std::string& text) override;
    void Received(std::size_t characters) override;
    bool Cancelled() override { return cancelled_; }
    void Finish();  // closes it

    void reject() override { cancelled_ = true; }

  private:
    const ResourceTexts& texts_;
    QLabel* status_;
    QLabel* received_;
    ElapsedLabel* elapsed_;
    bool cancelled_ = false;
};

}  // namespace calyx::ui
