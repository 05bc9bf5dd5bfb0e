#include <system_error>

#include "cli/commands/commands.h"
#include "cli/documents.h"
#include "cli/exit.h"
#include "cli/listing.h"
#include "cli/text.h"
#include "model/language/file_store.h"
#include "model/language/reason.h"

namespace calyx::cli {

namespace {

class Print final : public Command {
  public:
    std::string_view Name() const override { return "print"; }
    std::string_view Help() const override { return "prints the listing of a configuration for people"; }
    bool HasListing() const override { return true; }

    void Declare(Options& options) override {
        options.Word(file_, "FILE", "configuration file");
        options.Text(html_, "--html", "OUT",
                     "writes the listing as a page to this file; an existing one is replaced");
        options.Text(pdf_, "--pdf", "OUT", "as a PDF document (in the desktop program only)");
        opening_.Declare(options);
    }

    int Run(Program& program) override {
        if (html_ && pdf_) throw UsageError("give --html or --pdf, not both");
        if (pdf_) throw UsageError("print --pdf is in the desktop program; here is --html");
        const CIndicator document = opening_.Open(program, file_);
        const std::string listing = document.GetPrintOutput();
        if (html_) {
            Write(program, ListingHtml(ReadListing(listing), file_));
        } else {
            program.List([&] { return ListingJson(ReadListing(listing)); },
                         [&](std::ostream& out) { out << WithLineFeeds(listing); });
        }
        return kDone;
    }

  private:
    void Write(Program& program, const std::string& page) const {
        try {
            program.Model().files->Replace(*html_, page);
        } catch (const std::system_error& failure) {
            throw Error(code::kFileNotWritten, "Calyx.Print.Write",
                        program.Model().texts.Format(code::kFileNotWritten, {*html_, Reason(failure)}));
        }
    }

    std::string file_;
    std::optional<std::string> html_, pdf_;
    Opening opening_;
};

}  // namespace

std::unique_ptr<Command> MakePrint() {
    return std::make_unique<Print>();
}

}  // namespace calyx::cli
