#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/language/context.h"
#include "model/language/file_store.h"
#include "model/ports/port_fields.h"

namespace calyx {

// Stream formats that a technician keeps under a name, in "streams.ini". The file is read anew for every
// operation, since another program may have it open; what it holds besides is kept.
//   20001 not readable   20002 not written   10002 a name that cannot head a section
class SavedStreams {
  public:
    static constexpr std::size_t kNameWidth = 40;  // longer names are cut

    SavedStreams(const ModelContext& context, std::string path)
        : context_(&context), path_(std::move(path)) {}

    std::vector<std::string> Names() const;  // in file order
    bool Has(std::string_view name) const;
    std::optional<StreamFields> Load(std::string_view name) const;
    void Save(std::string_view name, const StreamFields& stream);  // in the place of one of that name
    void Remove(std::string_view name);

    const std::string& Path() const { return path_; }

  private:
    std::string Read() const;
    void Write(const std::string& text) const;
    std::string SectionName(std::string_view name) const;

    const ModelContext* context_;
    std::string path_;
};

}  // namespace calyx
