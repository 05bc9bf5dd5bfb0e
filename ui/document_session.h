#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "model/document/history.h"
#include "model/document/indicator.h"

namespace calyx::ui {

// The open document with everything a window needs around it: undo, what changed since the last save,
// the read report. Every edit goes through here, as lines, and every view follows its signals.
class DocumentSession : public QObject {
    Q_OBJECT

  public:
    explicit DocumentSession(ModelContext& context, QObject* parent = nullptr);

    CIndicator& Document() { return document_; }
    const CIndicator& Document() const { return document_; }
    ModelContext& Context() { return context_; }
    const ReadReport& Report() const { return report_; }

    // File operations; errors are calyx::Error, the document stays as it was.
    void New();
    void Open(const std::string& filename, bool skipChecks);
    void OpenCopy(const std::string& filename, bool skipChecks);  // as a new document, never saved
    void Save(const std::string& filename, CIndicator::Over over = CIndicator::Over::Anything);

    // Edits. `name` is the undo step's; consecutive edits with one join key are one step. What was
    // refused comes back and changes nothing.
    std::vector<Refusal> Edit(const std::vector<KeyValue>& lines, const std::string& name,
                              const std::string& joinKey = {});
    // A change of more than lines, as one step.
    std::vector<Refusal> Do(const std::string& name,
                            const std::function<CIndicator::Taken(CIndicator& document)>& act);
    // One parameter. The step's name is made from label and values. Nothing: taken over.
    std::optional<std::string> SetParameter(const std::string& key, const std::string& text, bool typing);
    // Why a text would be refused for a parameter, without changing anything; nothing: it would not.
    std::optional<std::string> Check(const std::string& key, const std::string& text) const;
    // Back to what was last saved. False: nothing changed, since the line follows from other parameters.
    bool RevertParameter(const std::string& key);
    // Whether that would change anything.
    bool CanRevert(const Change& sinceSave) const;

    // The cards that a connected indicator reports (the value of its line HARDWARE), kept beside every
    // document until the next call; empty: none is connected. Views hear of it by Changed.
    void TakeLiveCards(const std::string& reported);

    // Typing is one step until it ends. What was typed so far goes back when it has become wrong.
    void EndTyping();
    void TakeBackTyping(const std::string& key);
    // Before the document is saved, sent or left: what is being typed is taken. What cannot be taken comes
    // back in words, one an input, and stays where it was typed.
    QStringList FinishInput();
    // What was typed and cannot be taken is given up.
    void GiveUpInput() { emit GivingUp(); }

    // Each also asks, by GoTo, that what is concerned is shown.
    void Undo();
    void Redo();
    std::optional<std::string> UndoName() const;
    std::optional<std::string> RedoName() const;

    // What is wrong with the document, as last found: after every edit; while typing goes on a moment after
    // it, or when Settle comes first.
    const std::vector<BrokenRule>& Problems() const { return problems_; }
    // Looks now, if anything was typed since it last looked.
    void Settle();

    // Against the last save or load, by the lines of the file.
    const ChangeSet& ChangesSinceSave() const;
    std::optional<std::string> SavedValue(const std::string& key) const;
    const std::vector<KeyValue>& SavedLines() const { return savedLines_; }

  signals:
    void Replaced();                                // another document, or the same one anew
    void Changed(const calyx::ChangeSet& changes);  // after every edit, undo and redo
    void Saved();
    void Settled();  // Problems() are anew after typing
    // An edit has taken the lines of these values, which are not their initial ones, or their line cannot
    // hold them: saving loses them. Empty: of those told before nothing is to be told any more.
    void Unkept(const std::vector<calyx::Refusal>& values);
    void GoTo(const QStringList& keys);  // the view shall show one of these parameters, best the first
    void Told(const QString& message);   // for the status line
    void Finishing(QStringList* wrong);  // FinishInput: inputs take what they hold, or add their words
    void GivingUp();                     // GiveUpInput

  private:
    void TakeBaseline();
    void Use(CIndicator&& document);
    void Begin(CIndicator&& document);
    void Announce(const ChangeSet& changes, bool typing = false);
    void AnnounceAndShow(const ChangeSet& changes);
    std::string StepName(const std::string& key, const ChangeSet& changes) const;

    ModelContext& context_;
    CIndicator document_;
    History history_;
    ReadReport report_;
    void Look();
    void TellUnkept();

    static constexpr int kMoment = 150;  // ms

    std::vector<KeyValue> savedLines_;
    std::string liveCards_;
    std::vector<BrokenRule> problems_;
    std::vector<KeyValue> knownLines_;            // when it last looked
    std::vector<std::string> edited_;             // keys, since then
    bool unsettled_ = false;                      // typed since then
    QTimer moment_;                               // until it looks
    mutable std::optional<ChangeSet> sinceSave_;  // until the next change
};

}  // namespace calyx::ui
