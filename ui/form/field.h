#pragma once

#include <QLabel>
#include <QMenu>
#include <QObject>
#include <memory>
#include <string>

#include "ui/document_session.h"
#include "ui/form/control.h"
#include "ui/form/mark.h"
#include "ui/form/page_state.h"

namespace calyx::ui::form {

// One parameter on a page: mark, label, control, unit and the message below, and what passes between
// control and document.
class Field : public QObject {
    Q_OBJECT

  public:
    // The widgets are children of `parent`, which a group lays out and which outlives the field. The
    // parameter exists.
    Field(DocumentSession& session, std::string section, std::string key, QWidget* parent,
          const ControlMaker& make = {});

    Mark* MarkWidget() const { return mark_; }
    QLabel* Label() const { return label_; }
    QWidget* ControlWidget() const { return control_->Widget(); }
    QLabel* Unit() const { return unit_; }
    QLabel* Message() const { return message_; }

    const std::string& Key() const { return key_; }
    QString ShownKey() const;  // of its line, the first of several
    int Group() const { return group_; }
    bool IsSwitch() const { return !control_->ShowsText(); }
    bool IsPresent() const { return present_; }
    bool Covers(const std::string& key) const;  // its own key or one of the lines that it stands for
    void SetCaption(const QString& withMnemonic);
    QString PlainCaption() const { return caption_; }

    // Follows the document. `anew`: another document, so that nothing typed is kept.
    void Refresh(const PageState& state, bool anew);
    QMenu* MakeMenu();  // a child of the control, deletes itself when closed
    bool eventFilter(QObject* watched, QEvent* event) override;

  signals:
    void Focused(const QString& key);
    void ShowInLines(const QString& key);

  private:
    std::optional<Parameter> Find() const;
    void Take(const Entry& entry, bool typing);
    void Leave();
    void Finish(QStringList& wrong);  // as if it were left, but what is wrong stays and is told
    void GiveUp();                    // back to the document's value
    bool HoldsKeys(QEvent* event);
    void ShowHelp();
    void SetPresent(bool present);
    void GatherMarks(const Parameter& parameter, const PageState& state);
    bool IsChange(const Change& change) const;
    QString ChangeWords(const Parameter& parameter, const Change& change) const;
    void ShowMessage();
    void Tell(const QString& note);

    void ResetToDefault();
    void Revert();
    void CopyAsLine();
    void ShowLine();
    void ShowFirmware();

    DocumentSession& session_;
    const ResourceTexts& texts_;
    std::string section_, key_;
    std::vector<std::string> lineKeys_;
    int group_;
    QString caption_, description_;
    std::string defaultText_;
    Mark* mark_;
    QLabel* label_;
    std::unique_ptr<Control> control_;
    QLabel* unit_;
    QLabel* message_;
    std::string text_;       // of the document, as the control has last heard of it
    Entry entry_;            // what was entered and not taken, unless right
    QString problem_;        // the broken rule
    QStringList markWords_;  // of what else a mark says
    IconName markIcon_ = IconName::Changed;
    bool present_ = true;
    bool writing_ = false;  // a change that comes from this control
};

}  // namespace calyx::ui::form
