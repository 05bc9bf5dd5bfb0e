#pragma once

#include "cli/documents.h"
#include "cli/program.h"
#include "model/language/change_set.h"

namespace calyx::cli {

// Changes grouped by section and item, in the order of the file body. The two documents are asked where the
// keys belong. `showDefaults` adds the initial value of each parameter.
void ListDifferences(Program& program, const ChangeSet& changes, const CIndicator& before,
                     const CIndicator& after, bool showDefaults = false);

// The two forms of that listing, for commands that print more than it.
Json DifferencesJson(const ChangeSet& changes, const CIndicator& before, const CIndicator& after,
                     bool showDefaults = false);
void PrintDifferences(std::ostream& out, const ChangeSet& changes, const CIndicator& before,
                      const CIndicator& after, bool showDefaults = false);

// Prints values that were not taken over, each with its reason, on stderr.
void SayRefused(Program& program, const std::vector<Refusal>& refused);

}  // namespace calyx::cli
