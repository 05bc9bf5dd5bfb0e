#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "model/document/indicator.h"

namespace calyx {

// Undo and redo over the whole document: named steps, each a set of changes.
class History {
  public:
    struct Step {
        std::string name;  // "Unit ID: 1 to GATE-N"
        ChangeSet changes;
        std::string joinKey;
    };

    // Names a step by all of its changes.
    using Naming = std::function<std::string(const ChangeSet& whole)>;

    // Consecutive steps of one non-empty join key become one, so that typing in a field is one step, and
    // its name is that of the whole; a step that came back to where it began is dropped.
    void Record(const Naming& name, ChangeSet changes, std::string joinKey = {});
    void Record(std::string name, ChangeSet changes, std::string joinKey = {});
    // Takes the last step back for good if the next one of this key would join it: typing has left what
    // can be taken. The changes that this made; nothing when there is no such step.
    ChangeSet TakeBack(CIndicator& document, std::string_view joinKey);
    // Ends the joining: the next step stands on its own.
    void Seal();

    const Step* NextUndo() const { return at_ == 0 ? nullptr : &steps_[at_ - 1]; }
    const Step* NextRedo() const { return at_ == steps_.size() ? nullptr : &steps_[at_]; }
    // The step that was undone or redone, for the view to go there; nothing when there is none.
    const Step* Undo(CIndicator& document);
    const Step* Redo(CIndicator& document);
    void Clear();

  private:
    bool Joins(std::string_view joinKey) const;

    std::vector<Step> steps_;
    std::size_t at_ = 0;  // steps before it are done
    bool sealed_ = false;
};

}  // namespace calyx
