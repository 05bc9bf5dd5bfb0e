#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace calyx::sim {

// Puts incoming bytes, cut anywhere, together into lines. CR ends a line; every LF is ignored. On an
// addressed line the character behind an STX at the start is an address, whatever it looks like.
class LineReader {
  public:
    explicit LineReader(bool addressed = false) : addressed_(addressed) {}

    // Longest line kept, in bytes. What a longer line has beyond that is dropped.
    static constexpr std::size_t kMaxLine = 70'000;

    // Takes bytes from the front, up to the end of the first line at most. True when a line is complete;
    // Line() then holds it until the next call.
    bool Take(std::string_view& bytes);

    const std::string& Line() const { return line_; }
    bool TooLong() const { return tooLong_; }

    // Forgets a line that was begun: its sender is gone.
    void Reset();

  private:
    void Append(std::string_view bytes);
    void TakeAddress(std::string_view& bytes);

    bool addressed_;

    std::string line_;
    bool tooLong_ = false;
    bool complete_ = false;
};

}  // namespace calyx::sim
