#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace calyx {

// One parameter with its text, as a line holds it.
struct KeyValue {
    std::string key;
    std::string value;
    friend bool operator==(const KeyValue&, const KeyValue&) = default;
};

// A change of one parameter. Nothing on a side: the line is not there.
struct Change {
    std::string key;
    std::optional<std::string> before;
    std::optional<std::string> after;
    friend bool operator==(const Change&, const Change&) = default;
};

// The difference between two lists of lines, and so a step of undo, a preview of what would be sent,
// or what a merge would take.
class ChangeSet {
  public:
    void Add(Change change) { changes_.push_back(std::move(change)); }
    const std::vector<Change>& Changes() const { return changes_; }
    bool Empty() const { return changes_.empty(); }
    std::size_t Count() const { return changes_.size(); }

    ChangeSet Inverse() const;
    // This one followed by the later one, as one; parameters that came back to where they were drop out.
    ChangeSet Then(const ChangeSet& later) const;
    // The changes whose key the test accepts.
    template <class Test>
    ChangeSet Where(Test&& test) const {
        ChangeSet some;
        for (const Change& change : changes_) {
            if (test(change)) some.Add(change);
        }
        return some;
    }

    friend bool operator==(const ChangeSet&, const ChangeSet&) = default;

  private:
    std::vector<Change> changes_;
};

// In the order of `before`; parameters that only `after` has stand where `after` has them, behind the
// one before them. Keys are compared without regard to case; of a key that occurs twice the first counts.
ChangeSet Difference(const std::vector<KeyValue>& before, const std::vector<KeyValue>& after);

// The lines of a text ("KEY=VALUE" with any line end) as pairs.
std::vector<KeyValue> ReadLines(std::string_view text);

}  // namespace calyx
