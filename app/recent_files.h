#pragma once

#include <string>
#include <vector>

#include "app/app_settings.h"

namespace calyx {

// The recently used files: newest first, none twice, at most MRUListEntries. They are a setting, so
// CAppSettings::Save is what keeps them.
class CMRU {
  public:
    explicit CMRU(CAppSettings& settings) : settings_(settings) {}

    std::vector<std::string> Files() const;
    void Add(const std::string& file);     // a full path; an empty one is passed over
    void Remove(const std::string& file);  // for one that is not there any more

  private:
    CAppSettings& settings_;
};

}  // namespace calyx
