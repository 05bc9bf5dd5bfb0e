#pragma once

#include <cstdint>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "comm/download.h"
#include "model/language/file_store.h"

namespace calyx {

// Everything that is needed to go on with a run of lines that the link broke off, also after a restart.
struct SendRecord {
    std::string where;     // the way to the indicator, as the link names it
    std::string document;  // name of the configuration's file, for people
    std::string backup;    // file with what the indicator held before; empty: none
    TargetVersion target;
    int timeoutMs = DownloadOptions{}.timeoutMs;
    bool haltOnError = false;
    bool restores = false;      // the run puts back what was there before
    std::size_t unchanged = 0;  // lines that were not sent because the indicator held them
    std::size_t notKnown = 0;   // and because its firmware does not have them
    std::vector<DownloadStep> steps;
    std::vector<LineFate> fates;  // of the lines that are done

    std::size_t Left() const;  // lines that are still to be sent
};

// The journal of the run under way: its lines are written, flushed to disk, before the first is sent, and the
// fate of each is added when it is known. After a failure of the computer itself the last fates may be
// missing; those lines are then sent twice, which changes nothing.
//
// One file, one run. Where it cannot be written, Begin raises 20002; a fate that cannot be added is no
// failure of the run, which then would be resumed earlier than it broke off.
class SendJournal {
  public:
    SendJournal(IFileStore& files, const ResourceTexts& texts, std::string path)
        : files_(files), texts_(texts), path_(std::move(path)) {}

    // A run that was broken off; nothing: there is none, or the file is none of this program.
    std::optional<SendRecord> Find() const;
    void Begin(const SendRecord& record);
    void GoOn();  // after Find, before the first Add
    void Add(LineFate fate);
    // The run has stopped and may go on later: lets go of the file, which some systems let nobody replace or
    // remove before.
    void Rest() { out_.close(); }
    void Remove();  // the run has ended; a journal that is not there is no failure

  private:
    IFileStore& files_;
    const ResourceTexts& texts_;
    std::string path_;
    std::ofstream out_;
};

// Passes on what a download tells and adds the fate of every line to the journal.
class JournaledEvents final : public IDownloadEvents {
  public:
    JournaledEvents(SendJournal& journal, IDownloadEvents& events) : journal_(journal), events_(events) {}

    void Status(const std::string& text) override { events_.Status(text); }
    void Line(const std::string& line, int number, int total) override { events_.Line(line, number, total); }
    void Done(LineFate fate) override {
        journal_.Add(fate);
        events_.Done(fate);
    }
    void Errors(const std::string& text) override { events_.Errors(text); }
    void Notice(const std::string& title, const std::string& text) override { events_.Notice(title, text); }
    void Failure(const std::string& title, const std::string& text) override { events_.Failure(title, text); }

  private:
    SendJournal& journal_;
    IDownloadEvents& events_;
};

}  // namespace calyx
