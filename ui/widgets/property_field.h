#pragma once

#include <QLabel>
#include <QObject>
#include <memory>
#include <string>

#include "ui/form/control.h"
#include "ui/widgets/screen_edits.h"

namespace calyx::ui {

// One property of the widgets that are chosen, which all have it: label, control, unit and the words below
// when what was typed is wrong. What is wrong is never taken.
class PropertyField : public QObject {
    Q_OBJECT

  public:
    // The widgets are children of `parent`; `like` is the item of one of those that are chosen.
    PropertyField(DocumentSession& session, ScreenState& state, ScreenEdits& edits, const Item& like,
                  std::size_t row, QWidget* parent);

    const std::string& Stem() const { return stem_; }
    int Group() const { return group_; }
    QLabel* Label() const { return label_; }
    QWidget* ControlWidget() const { return control_->Widget(); }
    QLabel* Unit() const { return unit_; }
    QLabel* Message() const { return message_; }
    QString Caption() const { return label_->text(); }
    QString Help() const { return help_; }

    // Follows the document and the choice.
    void Refresh();
    bool eventFilter(QObject* watched, QEvent* event) override;

  signals:
    void Focused();

  private:
    std::string JoinKey() const { return "WDGT " + stem_; }
    void Take(const form::Entry& entry, bool typing);
    void Leave();
    void GiveUp();
    void ShowMessage();
    void ShowValue();

    DocumentSession& session_;
    ScreenState& state_;
    ScreenEdits& edits_;
    std::string stem_;
    int group_;
    QString help_;
    QLabel *label_, *unit_, *message_;
    std::unique_ptr<form::Control> control_;
    form::Entry entry_;
    std::string text_;        // of all that are chosen
    bool different_ = false;  // they have different ones
    bool writing_ = false;
};

}  // namespace calyx::ui
