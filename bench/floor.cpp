#include "bench/floor.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <system_error>

namespace calyx::bench {

namespace {

constexpr std::size_t kEntries = 8192;  // a full-size configuration fits
constexpr int kSlotBits = 14;
constexpr std::size_t kSlots = std::size_t{1} << kSlotBits;

char Fold(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

bool SameKey(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    if (std::memcmp(a.data(), b.data(), a.size()) == 0) return true;
    return std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return Fold(x) == Fold(y); });
}

// Eight bytes at a time, the last ones together with some before them. The upper bits are the good ones.
std::uint64_t Hash(std::string_view key) {
    constexpr std::uint64_t kFold = 0x2020202020202020u, kMix = 0x9E3779B97F4A7C15u;
    const auto load = [&key](std::size_t at) {
        std::uint64_t chunk;
        std::memcpy(&chunk, key.data() + at, 8);
        return chunk | kFold;
    };
    std::uint64_t hash = key.size();
    if (key.size() < 8) {
        for (const char c : key) hash = hash * 37 + static_cast<unsigned char>(c | 0x20);
    } else {
        for (std::size_t at = 0; at + 8 < key.size(); at += 8) {
            hash = (hash ^ load(at)) * kMix;
            hash ^= hash >> 32;
        }
        hash ^= load(key.size() - 8);
    }
    return hash * kMix;
}

class File {
  public:
    File(const std::string& path, int flags) : number_(open(path.c_str(), flags | O_CLOEXEC, 0666)) {
        Check(number_);
    }
    ~File() { close(number_); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    int Number() const { return number_; }
    std::size_t Size() const {
        struct stat status;
        Check(fstat(number_, &status));
        return static_cast<std::size_t>(status.st_size);
    }
    static ssize_t Check(ssize_t result) {
        if (result < 0) throw std::system_error(errno, std::generic_category());
        return result;
    }

  private:
    int number_;
};

}  // namespace

FloorTable::FloorTable(std::string_view text) : slots_(kSlots) {
    entries_.reserve(kEntries);
    const char* at = text.data();
    const char* const stop = at + text.size();
    while (at != stop) {
        const auto* newline =
            static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(stop - at)));
        const char* const end = newline == nullptr ? stop : newline;
        const char* const last = end != at && end[-1] == '\r' ? end - 1 : end;
        const auto length = static_cast<std::size_t>(last - at);
        if (const void* found = length == 0 ? nullptr : std::memchr(at, '=', length)) {
            const auto* equals = static_cast<const char*>(found);
            entries_.push_back({{at, static_cast<std::size_t>(equals - at)},
                                {equals + 1, static_cast<std::size_t>(last - equals - 1)}});
        }
        at = newline == nullptr ? stop : newline + 1;
    }
    if (entries_.size() > kEntries) throw std::length_error("more lines than the table is made for");
    for (std::size_t i = 0; i < entries_.size(); ++i) Insert(static_cast<std::uint32_t>(i));
}

// The first of several equal keys stays.
void FloorTable::Insert(std::uint32_t place) {
    const std::string_view key = entries_[place].key;
    std::size_t slot = Hash(key) >> (64 - kSlotBits);
    for (; slots_[slot] != 0; slot = (slot + 1) % kSlots) {
        if (SameKey(entries_[slots_[slot] - 1].key, key)) return;
    }
    slots_[slot] = place + 1;
}

std::string FloorTable::Text() const {
    std::size_t size = 0;
    for (const Entry& entry : entries_) size += entry.key.size() + entry.value.size() + 3;
    std::string text;
    text.reserve(size);
    for (const Entry& entry : entries_)
        text.append(entry.key).append(1, '=').append(entry.value).append("\r\n");
    return text;
}

void FloorWrite(const std::string& path, std::string_view bytes) {
    const File file(path, O_WRONLY | O_CREAT | O_TRUNC);
    while (!bytes.empty())
        bytes.remove_prefix(
            static_cast<std::size_t>(File::Check(write(file.Number(), bytes.data(), bytes.size()))));
    File::Check(fsync(file.Number()));
}

void FlushFolder(const std::string& folder) {
    const File file(folder, O_RDONLY | O_DIRECTORY);
    File::Check(fsync(file.Number()));
}

std::string FloorRead(const std::string& path) {
    const File file(path, O_RDONLY);
    std::string bytes(file.Size(), '\0');
    std::size_t used = 0;
    while (used < bytes.size()) {
        const ssize_t got = File::Check(read(file.Number(), &bytes[used], bytes.size() - used));
        if (got == 0) break;
        used += static_cast<std::size_t>(got);
    }
    bytes.resize(used);
    return bytes;
}

double DropFromCache(const std::string& path) {
    const File file(path, O_RDONLY);
    File::Check(fdatasync(file.Number()));  // pages that still wait to be written cannot be dropped
    posix_fadvise(file.Number(), 0, 0, POSIX_FADV_DONTNEED);
    const std::size_t size = file.Size(), page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    void* const mapped = mmap(nullptr, size, PROT_READ, MAP_SHARED, file.Number(), 0);
    if (mapped == MAP_FAILED) throw std::system_error(errno, std::generic_category());
    std::vector<unsigned char> pages((size + page - 1) / page);
    mincore(mapped, size, pages.data());
    munmap(mapped, size);
    const auto kept = std::count_if(pages.begin(), pages.end(), [](unsigned char p) { return (p & 1) != 0; });
    return static_cast<double>(kept) / static_cast<double>(pages.size());
}

}  // namespace calyx::bench
