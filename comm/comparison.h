#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "comm/download_plan.h"

namespace calyx {

// What an indicator holds, as its dump says it. The lines decide what is there and what is not: read as a
// document alone, a line that the indicator does not have would look like its default.
struct Held {
    std::vector<KeyValue> lines;  // as they came, VERSION left out
    CIndicator document;          // the same, read as a file is

    std::string text;  // the dump itself

    // `where` names the indicator in messages.
    Held(const ModelContext& context, std::string dump, const std::string& where);

    // What it holds for a key, without regard to case; nothing: it has no such line.
    const std::string* Find(std::string_view key) const;
    // Whether it holds what was sent, be it in another way of writing ("5" for "5.0").
    bool Holds(const KeyValue& sent, const Target& target) const;

  private:
    std::unordered_map<std::string, std::size_t> index_;  // by key in capitals; the first one counts
};

// The parameter lines that a download of these groups (download_option) sends, in its order. Commands and
// the lines of a program are none.
std::vector<KeyValue> SentLines(const CIndicator& document, unsigned groups, const Target& target);

// What differs between the document, as a download of the groups sends it to the target, and what the
// indicator holds. `before` of a change is the document's side, `after` the indicator's own text; nothing: it
// has no such line. Lines of the groups that only the indicator has count too. Two ways of writing the same
// value ("5" and "5.0") do not differ.
ChangeSet AgainstIndicator(const CIndicator& document, const Held& held, unsigned groups,
                           const Target& target);

}  // namespace calyx
