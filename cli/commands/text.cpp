#include "cli/text.h"

#include "cli/commands/commands.h"
#include "cli/documents.h"
#include "cli/exit.h"

namespace calyx::cli {

namespace {

class Text final : public Command {
  public:
    std::string_view Name() const override { return "text"; }
    std::string_view Help() const override { return "prints the parameter lines of a file"; }
    std::string Notes() const override {
        return "Without --firmware all lines are printed as the body of the file holds them, calibration "
               "included.\n"
               "With it, those that a download to this version may send, without calibration.\n";
    }
    bool HasListing() const override { return true; }

    void Declare(Options& options) override {
        options.Word(file_, "FILE", "configuration file");
        options.Text(section_, "--section", "NAME", "only this section: general, prompts, hardware, ...");
        firmware_.Declare(options);
        opening_.Declare(options);
    }

    int Run(Program& program) override {
        firmware_.Apply(program);
        const CIndicator document = opening_.Open(program, file_);
        target_ = program.Model().target.Gated();
        const auto sections = Chosen(document);
        program.List(
            [&] {
                Json lines = Json::array();
                for (const Section* section : sections) {
                    for (const auto& [key, value] : ReadLines(LinesOf(*section))) {
                        lines.push_back(
                            {{"section", section->Name()}, {"key", Utf8(key)}, {"value", Utf8(value)}});
                    }
                }
                return lines;
            },
            [&](std::ostream& out) {
                for (const Section* section : sections) out << WithLineFeeds(LinesOf(*section));
            });
        return kDone;
    }

  private:
    std::string LinesOf(const Section& section) const {
        if (!firmware_.prefix) return section.StoreState();
        std::string lines;
        section.AppendLines(lines, target_);
        return lines;
    }

    std::vector<const Section*> Chosen(const CIndicator& document) const {
        const auto all = document.Sections();
        if (!section_) return all;
        std::string names;
        for (const Section* section : all) {
            if (section->Name() == *section_) return {section};
            names.append(names.empty() ? "" : ", ").append(section->Name());
        }
        throw UsageError("there is no section " + *section_ + "; there are " + names);
    }

    std::string file_;
    std::optional<std::string> section_;
    Firmware firmware_;
    Opening opening_;
    Target target_;
};

}  // namespace

std::unique_ptr<Command> MakeText() {
    return std::make_unique<Text>();
}

}  // namespace calyx::cli
