#pragma once

#include <string>
#include <vector>

namespace calyx {

// A rule that the configuration breaks, with what a window needs to jump to the field.
struct BrokenRule {
    std::string section;  // name of the section, as on the command line
    int item = 0;         // 1-based; 0: the section has no items
    std::string key;      // parameter key; empty: the rule is about the item as a whole
    std::string text;     // for the user

    friend bool operator==(const BrokenRule&, const BrokenRule&) = default;
};

// The rules that a section breaks at present. A section is valid when there are none.
class CBrokenRules {
  public:
    void Add(BrokenRule rule) { rules_.push_back(std::move(rule)); }
    std::size_t Count() const { return rules_.size(); }
    auto begin() const { return rules_.begin(); }
    auto end() const { return rules_.end(); }

  private:
    std::vector<BrokenRule> rules_;
};

}  // namespace calyx
