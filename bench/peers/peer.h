#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "model/language/change_set.h"

namespace calyx::bench {

// Another way of keeping keys and values in a file, on the same data.
class Peer {
  public:
    virtual ~Peer() = default;

    // Puts the lines into a new file in the peer's own form, by its own means.
    virtual void Make(const std::vector<KeyValue>& lines, const std::string& path) = 0;
    // Reads the file until every value is at hand as text.
    virtual void Load(const std::string& path) = 0;
    virtual std::size_t Count() const = 0;  // values read
    // Writes what Load has read to a new file.
    virtual void Save(const std::string& path) = 0;
    // Forgets what Load has read.
    virtual void Clear() = 0;
};

// Nothing where the library was not found when this was built.
std::unique_ptr<Peer> MakeQSettingsPeer();
std::unique_ptr<Peer> MakeSimpleIniPeer();
std::unique_ptr<Peer> MakePropertyTreePeer();

}  // namespace calyx::bench
