#pragma once

#include <QObject>
#include <string>
#include <vector>

#include "ui/document_session.h"

namespace calyx::ui {

// What the parts of the screen editor have in common: the screen that is shown and the widgets chosen on
// it. The choice keeps to its widgets when edits and undo change their numbers.
class ScreenState : public QObject {
    Q_OBJECT

  public:
    explicit ScreenState(DocumentSession& session, QObject* parent = nullptr);

    const CWidgets& Widgets() const { return std::as_const(session_).Document().Widgets(); }
    const ResourceTexts& Texts() const { return session_.Context().texts; }

    int Screen() const { return screen_; }
    void ShowScreen(int screen);  // 1 to 20; nothing is chosen then
    std::vector<int> OnScreen() const { return Widgets().OnScreen(screen_); }

    const std::vector<int>& Chosen() const { return chosen_; }  // ascending
    bool IsChosen(int number) const;
    // The one that the others follow when they are aligned; 0 without a choice.
    int Lead() const { return lead_; }
    // The widgets are of one screen, which is shown from then on. `lead` is one of them, or 0: the last.
    void Choose(std::vector<int> numbers, int lead = 0);
    void Toggle(int number);

    // Whether the last change came from elsewhere, by undo for example, and this key was among its lines:
    // then the widgets that it was about are chosen already. Asked once.
    bool TakeTouched(std::string_view key);

    // While it lives, changes of the document leave the choice as it is: for edits under which widgets
    // keep their numbers.
    class Keep {
      public:
        explicit Keep(ScreenState& state) : state_(state) { ++state_.keeps_; }
        ~Keep() { --state_.keeps_; }
        Keep(const Keep&) = delete;
        Keep& operator=(const Keep&) = delete;

      private:
        ScreenState& state_;
    };

  signals:
    void ScreenShown();  // another screen
    void ChosenChanged();
    void WidgetsChanged();  // the document's; screen and choice are right already

  private:
    void Follow(const ChangeSet& changes, bool anew);
    void SetChosen(std::vector<int> numbers, int lead);

    DocumentSession& session_;
    int screen_ = 1;
    std::vector<int> chosen_, touched_;
    int lead_ = 0;
    int keeps_ = 0;
    ChangeSet last_;                    // that touched them
    std::vector<std::string> records_;  // as they were last seen
};

}  // namespace calyx::ui
