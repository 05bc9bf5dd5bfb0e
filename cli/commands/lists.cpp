#include "cli/commands/commands.h"
#include "cli/exit.h"
#include "cli/program.h"
#include "model/language/text.h"

namespace calyx::cli {

namespace {

class Lists final : public Command {
  public:
    std::string_view Name() const override { return "lists"; }
    std::string_view Help() const override {
        return "prints the value lists that parameters take their words from";
    }
    std::string Notes() const override {
        return "One entry a line, separated by tabs: list, word of the parameter line, display text, and "
               "\"default\"\n"
               "for the entry that a new configuration has.\n";
    }
    bool HasListing() const override { return true; }

    void Declare(Options& options) override {
        options.Word(name_, "NAME", "only this list; case does not count");
    }

    int Run(Program& program) override {
        const ListCatalogue& lists = program.Model().lists;
        std::vector<std::string> names;
        for (const std::string& name : lists.Names()) {
            if (!name_ || EqualNoCase(name, *name_)) names.push_back(name);
        }
        if (names.empty()) throw UsageError("there is no list " + *name_ + "; without NAME all are printed");
        program.List([&] { return AsJson(lists, names); },
                     [&](std::ostream& out) { Print(out, lists, names); });
        return kDone;
    }

  private:
    static Json AsJson(const ListCatalogue& lists, const std::vector<std::string>& names) {
        Json listing = Json::array();
        for (const std::string& name : names) {
            const CTextList& list = *lists.List(name);
            for (const auto& entry : list) {
                listing.push_back({{"list", name},
                                   {"key", Utf8(entry.key)},
                                   {"text", Utf8(entry.text)},
                                   {"default", entry.key == list.Default()}});
            }
        }
        return listing;
    }

    static void Print(std::ostream& out, const ListCatalogue& lists, const std::vector<std::string>& names) {
        for (const std::string& name : names) {
            const CTextList& list = *lists.List(name);
            for (const auto& entry : list) {
                out << name << '\t' << entry.key << '\t' << entry.text << '\t'
                    << (entry.key == list.Default() ? "default" : "") << '\n';
            }
        }
    }

    std::optional<std::string> name_;
};

}  // namespace

std::unique_ptr<Command> MakeLists() {
    return std::make_unique<Lists>();
}

}  // namespace calyx::cli
