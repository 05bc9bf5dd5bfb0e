#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace calyx::bench {

// The least that opening a configuration can cost: the text split at line ends and "=", its lines as
// views in a hash table that finds keys without regard to case. No checksum, no checks, no sections.
class FloorTable {
  public:
    explicit FloorTable(std::string_view text);
    std::size_t Count() const { return entries_.size(); }
    std::string Text() const;  // the lines in their order, in one piece

  private:
    struct Entry {
        std::string_view key, value;
    };
    void Insert(std::uint32_t place);

    std::vector<Entry> entries_;
    std::vector<std::uint32_t> slots_;  // place + 1 in entries_, 0: free
};

// The least that saving can cost: the bytes written to a new file and flushed to disk. POSIX calls, as
// for the read below; failures throw std::system_error.
void FloorWrite(const std::string& path, std::string_view bytes);
void FlushFolder(const std::string& folder);
std::string FloorRead(const std::string& path);

// Asks the system to drop the file from its cache. The share of the file that is still there: 0 when it
// went, 1 when the system keeps it (a file system in memory always does).
double DropFromCache(const std::string& path);

}  // namespace calyx::bench
