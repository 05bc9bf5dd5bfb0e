#pragma once

#include <QObject>
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
    void OpenText(std::string text, const std::string& filename);  // an indicator's dump
    void Save(const std::string& filename);

    // Edits. `name` is the undo step's; consecutive edits with one join key are one step. What was
    // refused comes back and changes nothing.
    std::vector<Refusal> Edit(const std::vector<KeyValue>& lines, const std::string& name,
                              const std::string& joinKey = {});
    // One parameter. The step's name is made from label and values. Nothing: taken over.
    std::optional<std::string> SetParameter(const std::string& key, const std::string& text, bool typing);
    // Why a text would be refused for a parameter, without changing anything; nothing: it would not.
    std::optional<std::string> Check(const std::string& key, const std::string& text) const;
    void RevertParameter(const std::string& key);  // back to what was last saved
    void EndTyping() { history_.Seal(); }

    // Each also asks, by GoTo, that the first parameter concerned is shown.
    void Undo();
    void Redo();
    std::optional<std::string> UndoName() const;
    std::optional<std::string> RedoName() const;

    // Against the last save or load, by the lines of the file.
    ChangeSet ChangesSinceSave() const;
    std::optional<std::string> SavedValue(const std::string& key) const;
    const std::vector<KeyValue>& SavedLines() const { return savedLines_; }

  signals:
    void Replaced();                                // another document, or the same one anew
    void Changed(const calyx::ChangeSet& changes);  // after every edit, undo and redo
    void Saved();
    void GoTo(const QString& key);  // the view shall show this parameter

  private:
    void TakeBaseline();
    void Announce(const ChangeSet& changes);
    void AnnounceAndShow(const ChangeSet& changes);
    std::string StepName(const std::string& key, const ChangeSet& changes) const;

    ModelContext& context_;
    CIndicator document_;
    History history_;
    ReadReport report_;
    std::vector<KeyValue> savedLines_;
};

}  // namespace calyx::ui
