#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace calyx {

// The parameter dictionary: the lines of a file by key, found without regard to case. The first
// occurrence of a key wins. Keys and values are views into the text that the dictionary owns; neither
// is trimmed, and a value may hold "=".
//
// A key that has been looked up counts as asked for, so that what nobody asked for can be reported.
class Dictionary {
  public:
    struct Entry {
        std::string_view key;
        std::string_view value;
        std::uint32_t line = 0;  // 1-based
        bool asked = false;
    };
    // Neighbours whose keys begin alike, up to the first "." or "#": "SC." or "WDGT#"; a key without
    // either is a run of its own. Files are written section by section, so the runs are few.
    struct Run {
        std::string_view head;
        std::span<const Entry> entries;
    };
    // The entries of one item, whose keys begin with one head, "SC.", and end with one number, "#3"; in
    // file order. For an item of many rows this is far quicker than asking for each of its keys.
    class Group {
      public:
        class Iterator {
          public:
            Iterator(const Dictionary& lines, std::uint32_t place) : lines_(&lines), place_(place) {}
            const Entry& operator*() const { return lines_->entries_[place_]; }
            Iterator& operator++() {
                place_ = lines_->nextInGroup_[place_];
                return *this;
            }
            bool operator==(const Iterator&) const = default;

          private:
            const Dictionary* lines_;
            std::uint32_t place_;
        };

        Group(const Dictionary& lines, std::uint32_t first) : lines_(&lines), first_(first) {}
        Iterator begin() const { return {*lines_, first_}; }
        Iterator end() const { return {*lines_, kNone}; }

      private:
        const Dictionary* lines_;
        std::uint32_t first_;
    };

    struct TextLine {  // a line without "=": a comment, or something that is no parameter
        std::string_view text;
        std::uint32_t line = 0;
    };

    explicit Dictionary(std::string text);
    static Dictionary FromEntries(const std::vector<std::pair<std::string, std::string>>& lines);

    // Nothing when the key is absent. Marks the entry as asked for.
    const Entry* Find(std::string_view key);
    const Entry* Peek(std::string_view key) const;
    std::string FindParameter(std::string_view key, std::string_view absent);
    void MarkAsked(const Entry& entry) {
        entries_[static_cast<std::size_t>(&entry - entries_.data())].asked = true;
    }

    // Whether an item's keys, with this before and behind their stems, make a group.
    static bool IsGrouped(std::string_view head, std::string_view suffix) {
        return suffix.starts_with('#') && head.find_first_of(".#") + 1 == head.size() && head.ends_with('.');
    }
    Group GroupOf(std::string_view head, std::string_view suffix) const;

    const std::string& Text() const { return *text_; }
    std::string ReleaseText() && { return std::move(*text_); }            // its entries are gone with it
    const std::vector<Entry>& Entries() const { return entries_; }        // in file order, first occurrences
    const std::vector<Run>& Runs() const { return runs_; }                // all entries, in file order
    const std::vector<Entry>& Duplicates() const { return duplicates_; }  // later occurrences
    const std::vector<TextLine>& TextLines() const { return textLines_; }

  private:
    void ReadLines();
    std::size_t ReadLines(bool splitAtReturns);  // how many CRs stand before LFs
    void Index();
    void FindRuns();
    void FindGroups();
    std::size_t GroupSlotOf(std::string_view head, std::string_view suffix) const;
    std::size_t SlotOf(std::string_view key) const;

    std::unique_ptr<std::string> text_;
    std::vector<Entry> entries_;
    std::vector<Entry> duplicates_;
    std::vector<Run> runs_;
    std::vector<TextLine> textLines_;
    std::vector<std::uint32_t> slots_;  // index + 1 into entries_, 0: free; size a power of two
    int slotShift_ = 0;                 // from a hash to its slot

    static constexpr std::uint32_t kNone = ~0u;
    struct Ends {
        std::uint32_t first = 0, last = 0;
    };
    std::vector<Ends> groups_;
    std::vector<std::uint32_t> groupSlots_;   // index + 1 into groups_, 0: free
    std::vector<std::uint32_t> nextInGroup_;  // of every entry, kNone: the last
};

}  // namespace calyx
