#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <unordered_map>

namespace calyx {

// Texts shown to people, by number. The first language read is complete; a further one lies over it
// and falls back text by text.
//
// A file has one text a line, "126=3.10.00"; "#" begins a comment line and "\n" stands for a line
// break inside a text.
class ResourceTexts {
  public:
    void Read(std::string_view file);

    bool Has(int number) const { return texts_.contains(number); }
    // The text, or "#number" where none is known, so that a gap is seen rather than silent.
    std::string Text(int number) const;
    // "{1}", "{2}" ... are replaced by the arguments.
    std::string Format(int number, std::initializer_list<std::string_view> arguments) const;
    std::size_t Count() const { return texts_.size(); }

  private:
    std::unordered_map<int, std::string> texts_;
};

}  // namespace calyx
