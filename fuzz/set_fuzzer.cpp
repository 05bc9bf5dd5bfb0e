// Takes any lines over into a document: the changes told are what happened, backwards and forwards, and
// no line can make a second one. The first byte chooses the document, and whether the rest is read as
// lines or as pairs that may hold line ends.

#include <vector>

#include "fuzz/require.h"
#include "model/document/indicator.h"
#include "model/language/text.h"
#include "tests/support/model_fixture.h"

namespace {

using namespace calyx;
using namespace calyx::fuzz;

struct Documents {
    test::TestContext context{CALYX_DATA_DIR};
    std::vector<CIndicator> all;

    Documents() {
        all.emplace_back(context).Initialize();
        for (const auto name : {"truck-scale", "batching-plant", "checkweigher-line", "silo"}) {
            const std::string path = std::string(CALYX_DATA_DIR) + "/samples/" + name + ".mrn";
            all.emplace_back(context).LoadText(test::ReadFile(path), path);
        }
    }
};

std::vector<KeyValue> ReadPairs(std::string_view text) {
    std::vector<KeyValue> pairs;
    for (const std::string_view piece : Split(text, '\xFF')) {
        const std::size_t equals = std::min(piece.find('='), piece.size());
        pairs.push_back({std::string(piece.substr(0, equals)),
                         std::string(piece.substr(std::min(equals + 1, piece.size())))});
    }
    return pairs;
}

void Undo(CIndicator& document, const CIndicator::Taken& taken, const std::string& before) {
    const std::string after = document.Body();
    Require((after == before) == taken.changes.Empty() || after == before, "a change is told");
    Require(document.Apply(taken.changes.Inverse()).refused.empty(), "an undo is not refused");
    RequireEqual(document.Body(), before, "an undo puts everything back");
    Require(document.Apply(taken.changes).refused.empty(), "a redo is not refused");
    RequireEqual(document.Body(), after, "a redo does everything again");
}

void ReadBack(const CIndicator& document) {
    CIndicator again(document.Context());
    again.LoadText(document.FileText(), "any.mrn");
    RequireEqual(again.Body(), document.Body(), "the document reads back as it was");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Documents documents;
    if (size == 0) return 0;
    const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
    CIndicator document = documents.all[data[0] / 2 % documents.all.size()];
    const std::string before = document.Body();
    const bool asLines = data[0] % 2 == 0;
    const auto taken = document.Import(asLines ? ReadLines(text) : ReadPairs(text));
    Undo(document, taken, before);
    ReadBack(document);

    CIndicator updated = documents.all[data[0] / 2 % documents.all.size()];
    const auto reported = updated.UpdateFromIndicator(text);
    Undo(updated, reported, before);
    ReadBack(updated);
    return 0;
}
