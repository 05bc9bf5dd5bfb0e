#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace calyx {

// Paths travel through the program as UTF-8 text. These two are the crossing to the standard
// library's paths; on systems where names are bytes, bytes that are no UTF-8 pass unharmed.
std::filesystem::path PathOf(std::string_view text);
std::string TextOf(const std::filesystem::path& path);

// Whether two paths name the same file as far as their text tells: where the system does not tell
// large from small letters, neither does this.
bool SamePath(std::string_view a, std::string_view b);

// A folder's path made absolute, ending with the platform's separator, so that a file name can be
// appended directly. Never fails.
std::string FolderText(std::string_view folder);

// Makes the folder and those above it; one that stands already is no failure. Raises std::system_error.
void MakeFolder(const std::string& folder);

}  // namespace calyx
