#pragma once

#include <QWidget>
#include <memory>
#include <set>
#include <string>

#include "ui/window/page_factory.h"

namespace calyx::ui {

class ctlScaleSource;
class FormPage;
namespace form {
class Control;
class Field;
class Parameter;
}  // namespace form

// The page of a scale: its kind above, the fields of the kind below, its source among them. A change of the
// kind that would clear sources or set values back asks first.
class ctlScale : public QWidget {
    Q_OBJECT

  public:
    ctlScale(DocumentSession& session, const ItemRef& scale, const PageTools& tools);
    ~ctlScale() override;

    FormPage* Form() const { return form_; }
    bool FocusKey(const QString& key);
    void SetDiffering(const std::set<std::string>& keys);

  signals:
    void KeyFocused(const QString& key);  // of the kind
    void ParameterWanted(const QString& key);

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    QWidget* MakeHeader();
    std::unique_ptr<form::Control> MakeControl(const form::Parameter& parameter, QWidget* parent);
    void Follow(bool anew);
    void Refresh();
    bool MayChange(std::int32_t kind);

    DocumentSession& session_;
    int number_;
    const PageTools& tools_;
    std::unique_ptr<form::Field> kind_;  // goes before its widgets
    ctlScaleSource* source_ = nullptr;
    FormPage* form_;
    std::set<std::string> differing_;  // in capitals
    bool stale_ = false, staleAnew_ = true;
};

}  // namespace calyx::ui
