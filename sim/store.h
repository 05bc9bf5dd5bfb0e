#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace calyx::sim {

// A state file that cannot be used; what() says why, with its name.
class StateFileError : public std::runtime_error {
  public:
    enum class Doing { kReading, kWriting };
    StateFileError(Doing doing, const std::string& text) : std::runtime_error(text), doing_(doing) {}
    Doing When() const { return doing_; }

  private:
    Doing doing_;
};

// The parameters that the indicator holds, in the order in which they were first stored. Keys have no
// case and are kept in capitals; the last value stored for a key wins and stays in the key's place.
class Store {
  public:
    // The memory of the indicator, in bytes of "KEY=VALUE" CR LF lines.
    static constexpr std::size_t kMaxBytes = 16u << 20;
    static constexpr std::size_t kMaxKey = 32;

    // A letter first, then letters, digits and "._%+-#"; at most kMaxKey characters.
    static bool IsPlausibleKey(std::string_view key);

    // False when the memory is full; nothing is changed then. Needs a plausible key; the value holds
    // neither CR nor LF.
    bool Set(std::string_view key, std::string_view value);
    // Nothing when the key is absent. Valid until the next change.
    const std::string* Find(std::string_view key) const;
    void Remove(std::string_view key);
    void RemoveKeysBeginning(std::string_view beginning);

    // Stores every line of a text that is a parameter line; whatever else the text holds (headings,
    // comments, empty lines) is passed over. Lines may end with CR LF, LF or CR.
    void TakeLines(std::string_view text);

    // All lines, "KEY=VALUE" CR LF each.
    std::string Text() const;
    // Counts up at every change of content.
    std::uint64_t Changes() const { return changes_; }

    // The state file: a heading line, then Text(). Save puts a new file, written as ".NAME.calyx-new" beside
    // it, in the place of the old one, so that a reader finds the one or the other whole. Load gives nothing
    // for a file that is absent or empty, and refuses one that Save did not write rather than have it
    // overwritten later. Raise StateFileError.
    void Save(const std::filesystem::path& file) const;
    static std::optional<Store> Load(const std::filesystem::path& file);

  private:
    struct Line {
        std::string key;
        std::string value;
    };

    template <class Condition>
    void RemoveLines(Condition condition);

    std::vector<Line> lines_;
    std::unordered_map<std::string, std::size_t> index_;  // key to place in lines_
    std::size_t bytes_ = 0;
    std::uint64_t changes_ = 0;
};

}  // namespace calyx::sim
