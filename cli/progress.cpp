#include "cli/progress.h"

#include <algorithm>

namespace calyx::cli {

namespace {
constexpr std::size_t kBarWidth = 24;
}

void Progress::Step(const std::string& text) {
    if (text == step_) return;
    step_ = text;
    if (bar_) {
        Draw(text);
    } else {
        err_ << text << '\n';
    }
}

void Progress::Count(std::size_t done, std::size_t all) {
    if (!bar_) return;
    if (all == 0) return Draw(step_ + " " + std::to_string(done));
    const std::size_t filled = kBarWidth * std::min(done, all) / all;
    Draw("[" + std::string(filled, '#') + std::string(kBarWidth - filled, ' ') + "] " + std::to_string(done) +
         "/" + std::to_string(all) + " " + step_);
}

void Progress::Clear() {
    if (drawn_ == 0) return;
    err_ << '\r' << std::string(drawn_, ' ') << '\r' << std::flush;
    drawn_ = 0;
}

void Progress::End(const std::string& text) {
    Clear();
    if (bar_ || text != step_) err_ << text << '\n';
    step_ = text;
}

void Progress::Draw(const std::string& line) {
    const std::size_t rest = drawn_ > line.size() ? drawn_ - line.size() : 0;
    err_ << '\r' << line << std::string(rest, ' ') << std::flush;
    drawn_ = line.size();
}

}  // namespace calyx::cli
