#pragma once

#include <array>
#include <string>

#include "model/language/file_store.h"

namespace calyx {

// The twelve macro keys of the terminal, F1 to F12, kept in "macros.ini" of the user's folder.
struct MacroKey {
    std::string caption;  // on the key; empty: the key is free
    std::string text;     // what it sends; several lines are sent one after the other
    bool sendsEnter = true;
    friend bool operator==(const MacroKey&, const MacroKey&) = default;
};
using MacroKeys = std::array<MacroKey, 12>;

// What cannot be read is no macro: a missing or strange file gives free keys.
MacroKeys LoadMacroKeys(const IFileStore& files, const std::string& path);
// Raises std::system_error.
void SaveMacroKeys(IFileStore& files, const std::string& path, const MacroKeys& keys);

}  // namespace calyx
