#pragma once

#include <QWidget>

#include "model/ports/saved_streams.h"
#include "model/ports/stream_sample.h"
#include "ui/window/page_factory.h"

class QComboBox;
class QLabel;
class QLineEdit;

namespace calyx::ui {

class FormPage;

// The page of a serial port: its fields, and below them what its stream sends, with the formats that were
// saved under a name.
class ctlPort : public QWidget {
    Q_OBJECT

  public:
    ctlPort(DocumentSession& session, const ItemRef& port, const PageTools& tools);

    FormPage* Form() const { return form_; }

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    QWidget* MakeStreamBar();
    void ShowSample();
    void ShowWhetherSent();
    void FillNames();
    void LoadFormat();
    void SaveFormat();
    void DeleteFormat();
    template <class Act>
    void Try(Act&& act);
    const StreamFields& Stream() const;

    DocumentSession& session_;
    int port_;
    const PageTools& tools_;
    SavedStreams saved_;
    FormPage* form_;
    QLabel* sample_;
    QLabel* notSent_;
    QLineEdit* weight_;
    QComboBox *mode_, *state_, *names_;
};

}  // namespace calyx::ui
