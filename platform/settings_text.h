#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace calyx {

// The text of a settings file:
//
//   # comment
//   [SOFTWARE\Calyx\Calyx\3.10.0\Settings]
//   IPAddress=128.1.1.1
//
// In values "\\", "\r" and "\n" stand for a backslash and the two line ends; any other byte stands for
// itself, blanks at both ends included. Headings and names are found without regard to case; of a name
// that occurs twice the first counts. Lines that are not understood are kept.
class SettingsText {
  public:
    explicit SettingsText(std::string_view file);

    std::optional<std::string> Get(std::string_view keyPath, std::string_view name) const;
    void Set(std::string_view keyPath, std::string_view name, std::string_view value);
    std::string Text() const;

  private:
    struct Place {
        std::size_t line;  // of the value, or where its line belongs
        bool section;      // whether a heading of the key path was found
        bool value;
    };
    Place Find(std::string_view keyPath, std::string_view name) const;

    std::vector<std::string> lines_;
};

}  // namespace calyx
