#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/link.h"
#include "cli/options.h"
#include "cli/progress.h"
#include "comm/comparison.h"
#include "comm/download.h"
#include "comm/upload.h"

namespace calyx::cli {

// "--only base,setpoints": the groups of a download, as bits of download_option.
struct Groups {
    std::optional<std::string> only;

    void Declare(Options& options);
    // Raises UsageError for an unknown group and for calibration without base, which is never sent.
    unsigned Mask() const;
};

// The progress of an upload and of a download on the terminal.
class UploadProgress final : public IUploadEvents {
  public:
    UploadProgress(Program& program, Progress& progress) : program_(program), progress_(progress) {}
    void Status(const std::string& text) override { progress_.Step(text); }
    void Received(std::size_t characters) override { progress_.Count(characters, 0); }
    bool Cancelled() override { return program_.Cancelled(); }

  private:
    Program& program_;
    Progress& progress_;
};
class DownloadProgress final : public IDownloadEvents {
  public:
    DownloadProgress(Program& program, Progress& progress) : program_(program), progress_(progress) {}
    void Status(const std::string& text) override { progress_.Step(text); }
    void Line(const std::string&, int number, int total) override {
        progress_.Count(static_cast<std::size_t>(number), static_cast<std::size_t>(total));
    }
    void Notice(const std::string& title, const std::string& text) override {
        progress_.Clear();
        program_.Say(title + ": " + text);
    }
    // Told once, as the error that the program ends with.
    void Failure(const std::string&, const std::string&) override {}

  private:
    Program& program_;
    Progress& progress_;
};

// What the connected indicator holds, as it says it. Raises 12801, with the words of what stands in the
// way; Interrupted.
std::string ReadDump(Program& program, Link& link, Progress& progress);
// The same as lines and as a document.
Held ReadIndicator(Program& program, Link& link, Progress& progress);

}  // namespace calyx::cli
