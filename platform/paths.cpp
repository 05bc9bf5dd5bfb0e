#include "platform/paths.h"

#include <system_error>

namespace calyx {

namespace fs = std::filesystem;

fs::path PathOf(std::string_view text) {
    return fs::path(std::u8string(text.begin(), text.end()));
}

std::string TextOf(const fs::path& path) {
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

std::string FolderText(std::string_view folder) {
    // Nothing is relative to a working folder that was deleted: the path then stays as it is.
    std::error_code noWorkingFolder;
    const fs::path absolute = fs::absolute(PathOf(folder), noWorkingFolder);
    // An empty last element is what makes a path end with its separator.
    return TextOf(((noWorkingFolder ? PathOf(folder) : absolute) / "").make_preferred());
}

void MakeFolder(const std::string& folder) {
    std::error_code failure;
    fs::create_directories(PathOf(folder), failure);
    if (failure) throw std::system_error(failure);
}

}  // namespace calyx
