#include "comm/comm_log.h"

#include <filesystem>

namespace calyx {

void CommLog::Start() {
    out_.close();
    out_.clear();
    out_.open(std::filesystem::path(std::u8string(path_.begin(), path_.end())),
              std::ios::binary | std::ios::trunc);
    failed_ = !out_;
}

void CommLog::Write(std::string_view text, bool outgoing) {
    if (!out_.is_open()) return;
    const auto end = text.find_last_not_of("\r\n");
    out_ << (outgoing ? "OUT:" : "IN:") << text.substr(0, end + 1) << "\r\n" << std::flush;
    if (out_) return;
    failed_ = true;
    Stop();
}

}  // namespace calyx
