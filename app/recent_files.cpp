#include "app/recent_files.h"

#include <algorithm>

#include "platform/paths.h"

namespace calyx {

namespace {

void Shorten(std::vector<std::string>& files, std::int16_t most) {
    files.resize(std::min(files.size(), static_cast<std::size_t>(std::max<std::int16_t>(most, 0))));
}

}  // namespace

std::vector<std::string> CMRU::Files() const {
    std::vector<std::string> files = settings_.RecentFiles;
    Shorten(files, settings_.MRUListEntries);
    return files;
}

void CMRU::Remove(const std::string& file) {
    std::erase_if(settings_.RecentFiles, [&](const std::string& kept) { return SamePath(kept, file); });
}

void CMRU::Add(const std::string& file) {
    if (file.empty()) return;
    Remove(file);
    settings_.RecentFiles.insert(settings_.RecentFiles.begin(), file);
    Shorten(settings_.RecentFiles, settings_.MRUListEntries);
}

}  // namespace calyx
