#pragma once

#include <cstddef>
#include <string>

#include "comm/indicator_comm.h"
#include "model/language/context.h"
#include "model/language/file_store.h"

namespace calyx {

// What an upload shows while it runs, and its Cancel button.
class IUploadEvents {
  public:
    virtual ~IUploadEvents() = default;
    virtual void Status(const std::string& /*text*/) {}
    virtual void Received(std::size_t /*characters*/) {}
    virtual bool Cancelled() { return false; }
};

struct UploadReport {
    // Incomplete: it ends inside a line, so that nobody can tell how much is missing.
    enum class End { Complete, Cancelled, Streaming, NotInSetupMode, NoDump, Incomplete };

    End end = End::Complete;
    std::string text;    // the reply as it came, parameter lines
    std::string notice;  // why there is none, in words; empty after Complete and Cancelled
};

// Reads the whole configuration of a connected indicator. Writing and opening it is the caller's.
//
// Indicators whose target version is 3.06 to 3.10 can be read outside setup mode; all others are asked first.
// A reply without any line that the program knows is no dump. Raises 12801 when the link is lost.
UploadReport Upload(CIndicatorComm& link, const ModelContext& context, IUploadEvents& events);

// Puts the text in the place of the file, whole or not at all. 20002.
void WriteUpload(IFileStore& files, const ResourceTexts& texts, const std::string& path,
                 const std::string& text);

}  // namespace calyx
