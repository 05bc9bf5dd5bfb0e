#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace calyx {

// What reading a file passed over or changed. Opening itself stays silent; `check` and the read
// report pane show this.
struct ReadNote {
    enum class Kind {
        TextLine,       // a line without "=": a comment; not kept
        UnknownKey,     // nobody asked for the key; not kept. `section`: whose keys begin so, if any
        DuplicateKey,   // a later occurrence; the first one counts
        ListValue,      // not one of the allowed words; `became` says what it reads as
        NotUnderstood,  // no number, date or switch; the default stays
        PartlyRead,     // only the start of the value is a number
        Cut,            // longer than its field
        NotWritten,     // read, but no line of the document as it stands: saving leaves it out. What only
                        // the indicator keeps, statistics, is not told
    };
    Kind kind;
    std::string section;  // empty where no section is concerned
    std::string key;
    std::string value;
    std::string became;      // what the document holds now, where that differs
    std::uint32_t line = 0;  // 1-based line of the file; 0: not from a file
    // In words, why it became that and what to do, where the kind does not say it.
    std::string reason{};
};

class ReadReport {
  public:
    void Add(ReadNote note) { notes_.push_back(std::move(note)); }
    const std::vector<ReadNote>& Notes() const { return notes_; }
    bool Empty() const { return notes_.empty(); }
    std::size_t Count() const { return notes_.size(); }

    // The section that reads at present; notes that name none are its own.
    void Enter(std::string section) { section_ = std::move(section); }
    const std::string& Section() const { return section_; }

  private:
    std::vector<ReadNote> notes_;
    std::string section_;
};

}  // namespace calyx
