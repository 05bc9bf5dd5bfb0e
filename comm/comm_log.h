#pragma once

#include <fstream>
#include <string>
#include <string_view>

namespace calyx {

// The communication log, "commlog.txt": a line for every text that went out or came in. A log that cannot
// be written does not stop the link; it stops logging and says why.
class CommLog {
  public:
    explicit CommLog(std::string path) : path_(std::move(path)) {}

    // Deletes the log of the last connection and begins a new one.
    void Start();
    void Stop() { out_.close(); }
    // "OUT:" or "IN:" followed directly by the text, without the text's own line end. Only while started.
    void Write(std::string_view text, bool outgoing);

    bool Failed() const { return failed_; }
    const std::string& Path() const { return path_; }

  private:
    std::string path_;
    std::ofstream out_;
    bool failed_ = false;
};

}  // namespace calyx
