#include "cli/commands/commands.h"
#include "cli/documents.h"
#include "cli/exit.h"
#include "model/language/text.h"

namespace calyx::cli {

namespace {

class Get final : public Command {
  public:
    std::string_view Name() const override { return "get"; }
    std::string_view Help() const override { return "prints values of a file as the document writes them"; }
    std::string Notes() const override {
        return "One KEY prints its value alone, several print KEY=VALUE lines. Exit code 1 when a KEY is "
               "unknown or\n"
               "the file has no such line.\n";
    }
    bool HasListing() const override { return true; }

    void Declare(Options& options) override {
        options.Word(file_, "FILE", "configuration file");
        options.Words(keys_, "KEY...", "parameter keys; case does not count", true);
        opening_.Declare(options);
    }

    int Run(Program& program) override {
        const CIndicator document = opening_.Open(program, file_);
        std::vector<KeyValue> values;
        for (const std::string& key : keys_) {
            const Place place = FindPlace(document, key);
            if (place.item != nullptr) {
                // A custom parameter's line has the name that its user gave it.
                const std::string own = place.item->Key(place.row);
                values.push_back({EqualNoCase(own, key) ? own : Upper(key), place.item->Text(place.row)});
            } else if (place.section != nullptr) {
                program.Say("the file has no line " + key);
            } else {
                program.Say("there is no parameter " + key + "; keys lists them");
            }
        }
        program.List([&] { return AsJson(values); }, [&](std::ostream& out) { Print(out, values); });
        return values.size() == keys_.size() ? kDone : kFindings;
    }

  private:
    static Json AsJson(const std::vector<KeyValue>& values) {
        Json listing = Json::object();
        for (const KeyValue& line : values) listing[Utf8(line.key)] = Utf8(line.value);
        return listing;
    }

    void Print(std::ostream& out, const std::vector<KeyValue>& values) const {
        for (const KeyValue& line : values) {
            if (keys_.size() > 1) out << line.key << '=';
            out << line.value << '\n';
        }
    }

    std::string file_;
    std::vector<std::string> keys_;
    Opening opening_;
};

}  // namespace

std::unique_ptr<Command> MakeGet() {
    return std::make_unique<Get>();
}

}  // namespace calyx::cli
