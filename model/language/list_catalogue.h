#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "model/language/resource_texts.h"
#include "model/language/text_list.h"

namespace calyx {

// The list catalogue: every value list by name, read from "calyx.dat". The file is readable text:
//
//   # comment
//   [GEN.TRKMDS]
//   texts=30101,30102      numbers of the display texts, one a key
//   keys=OFF,MODE1         the words of the parameter lines
//   default=OFF
//
// A defect (unequal lengths, a default that is no key, a list given twice) raises std::runtime_error
// with the line's number: the file belongs to the program and must be whole.
class ListCatalogue {
  public:
    void Read(std::string_view file, const ResourceTexts& texts);

    // The list of that name; nothing when the catalogue has none.
    const CTextList* List(std::string_view name) const;
    const std::vector<std::string>& Names() const { return names_; }  // in file order

  private:
    struct Draft;
    void Finish(Draft& draft, const ResourceTexts& texts);

    std::vector<std::string> names_;
    std::map<std::string, CTextList, std::less<>> lists_;
};

}  // namespace calyx
