// Opens any bytes. What the document then writes must read back as the same document, without a remark,
// and every view of it must stand.

#include "fuzz/require.h"
#include "model/document/indicator.h"
#include "model/document/send_steps.h"
#include "tests/support/model_fixture.h"

namespace {

using namespace calyx;
using namespace calyx::fuzz;

constexpr const char* kName = "any.mrn";

void LookFromEverywhere(const CIndicator& document) {
    document.Validate();
    document.GetPrintOutput();
    document.ImportFileText();
    for (const Section* section : document.Sections()) section->State();
    for (const auto version : {"1.00.", "2.03.", "2.04.", "3.10."}) {
        const Target target{.version = VersionBit(version)};
        for (int step = 0; step <= static_cast<int>(SendStep::Database); ++step)
            LinesOf(document, static_cast<SendStep>(step), target);
    }
}

// Sections that only keep their lines write what the file held, byte for byte.
void CompareKept(const CIndicator& document, const std::string& text) {
    const Dictionary lines(text);
    for (const Section* section : document.Sections()) {
        if (dynamic_cast<const KeptSection*>(section) == nullptr) continue;
        std::string kept;
        for (const Dictionary::Entry& entry : lines.Entries()) {
            if (section->Owns(entry.key))
                kept.append(entry.key).append(1, '=').append(entry.value).append("\r\n");
        }
        RequireEqual(section->StoreState(), kept, "kept lines are written as they were read");
    }
}

void ReadBack(test::TestContext& context, const CIndicator& document) {
    context.memory.files[kName] = document.FileText();
    CIndicator again(context);
    try {
        const ReadReport report = again.Load(kName, false);
        for (const ReadNote& note : report.Notes())
            Require(false, "a saved line gives a remark: " + note.key);
    } catch (const Error& error) {
        // A file that was opened without its checks keeps the version that they reject.
        Require(error.Code() == code::kIndicatorRevision, "a saved file opens: " + error.Description());
        again.LoadText(document.FileText(), kName);
    }
    RequireEqual(again.Body(), document.Body(), "the document reads back as it was");
    Require(again.CODFilename() == document.CODFilename(), "the program's name reads back as it was");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static test::TestContext context(CALYX_DATA_DIR);
    const std::string text(reinterpret_cast<const char*>(data), size);
    context.memory.files[kName] = text;
    CIndicator document(context);
    try {
        document.Load(kName, false);
    } catch (const Error&) {
        Require(!document.IsInitialised(), "a rejected file leaves the document as it was");
    }
    document.LoadText(text, kName);
    Require(!document.IsDirty(), "nothing is edited after opening");
    LookFromEverywhere(document);
    CompareKept(document, text);
    ReadBack(context, document);
    return 0;
}
