#pragma once

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/folders.h"

namespace calyx {

class IFileStore;

// A value is there, but no text; what() names its kind.
class NoTextError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Named text values below key paths ("SOFTWARE\Calyx\...", separated by "\" on every platform). Paths
// and names are the program's own words: no line end, "=" or "]" in them, and their case does not
// count. Values hold any bytes.
//
// Set is a plan that Get sees at once and Save carries out, all values together.
class ISettingsStore {
  public:
    enum class Root { User, Machine };

    virtual ~ISettingsStore() = default;

    // Nothing when there is no such value. Raises std::system_error when the store cannot be read, and
    // NoTextError where it keeps values of other kinds too and this is one.
    virtual std::optional<std::string> Get(Root root, std::string_view keyPath, std::string_view name) = 0;
    virtual void Set(Root root, std::string_view keyPath, std::string_view name, std::string_view value) = 0;

    // Forgets what was read before, so that Get sees what other programs have saved since.
    virtual void Refresh() = 0;

    // Writes the user's values, then the machine-wide ones. Raises std::system_error when the user's
    // cannot be written. False when only the machine-wide ones could not: usual for a user without
    // administrator's rights, and no failure. What was not written is dropped from the plan.
    virtual bool Save() = 0;
};

// The store that the folders name: their settings files, or the registry where they name none.
std::unique_ptr<ISettingsStore> OpenSettings(const Folders& folders, IFileStore& files);

}  // namespace calyx
