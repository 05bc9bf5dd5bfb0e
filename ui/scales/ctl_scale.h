#pragma once

#include <QWidget>
#include <set>
#include <string>

#include "ui/window/page_factory.h"

class QComboBox;
class QGridLayout;
class QLabel;

namespace calyx::ui {

class ctlScaleSource;
class FormPage;
namespace form {
class Mark;
}

// The page of a scale: its kind and source above, the fields of the kind below. A change of the kind that
// would clear sources or set values back asks first.
class ctlScale : public QWidget {
    Q_OBJECT

  public:
    ctlScale(DocumentSession& session, const ItemRef& scale, const PageTools& tools);

    FormPage* Form() const { return form_; }
    bool FocusKey(const QString& key);
    void SetDiffering(const std::set<std::string>& keys);

  signals:
    void KeyFocused(const QString& key);  // of kind and source
    void ParameterWanted(const QString& key);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    QWidget* MakeHeader();
    void AddRow(QGridLayout* grid, int row, int text, const std::string& key, QWidget* control);
    void Follow();
    void Refresh();
    void ShowProblem();
    void ChangeKind();
    bool MayChange(std::int32_t kind);

    DocumentSession& session_;
    int number_;
    const PageTools& tools_;
    std::string kindKey_, sourceKey_;
    QComboBox* kind_;
    ctlScaleSource* source_;
    form::Mark* mark_;
    QLabel* message_;
    FormPage* form_;
    std::set<std::string> differing_;  // in capitals
    bool stale_ = false;
};

}  // namespace calyx::ui
