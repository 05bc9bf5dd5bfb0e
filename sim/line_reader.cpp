#include "sim/line_reader.h"

#include <algorithm>

namespace calyx::sim {

bool LineReader::Take(std::string_view& bytes) {
    if (complete_) Reset();
    if (addressed_) TakeAddress(bytes);
    const auto end = bytes.find('\r');
    Append(bytes.substr(0, end));
    complete_ = end != std::string_view::npos;
    bytes.remove_prefix(complete_ ? end + 1 : bytes.size());
    return complete_;
}

void LineReader::TakeAddress(std::string_view& bytes) {
    constexpr char kStx = 2;
    if (line_.empty() && bytes.starts_with(kStx)) {
        line_ = kStx;
        bytes.remove_prefix(1);
    }
    if (line_.size() != 1 || line_.front() != kStx || bytes.empty()) return;
    line_ += bytes.front();
    bytes.remove_prefix(1);
}

void LineReader::Reset() {
    line_.clear();
    tooLong_ = false;
    complete_ = false;
}

void LineReader::Append(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto lineFeed = std::min(bytes.find('\n'), bytes.size());
        const auto room = kMaxLine - line_.size();
        tooLong_ = tooLong_ || lineFeed > room;
        line_ += bytes.substr(0, std::min(lineFeed, room));
        bytes.remove_prefix(std::min(lineFeed + 1, bytes.size()));
    }
}

}  // namespace calyx::sim
