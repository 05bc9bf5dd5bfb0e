#include "ui/link/differences.h"

#include <unordered_set>

#include "comm/download_plan.h"
#include "model/language/text.h"

namespace calyx::ui {

namespace {

std::vector<KeyValue> SentLines(const CIndicator& document, const Target& target) {
    using namespace download_option;
    DownloadOptions options;
    options.mask = chkBase | chkCalibration | chkSetpoints | chkWidgets | chkSchemas;
    std::string text;
    for (const std::string& line : SendingOrder(document, options, target)) text.append(line).append("\r\n");
    return ReadLines(text);
}

// The keys that the document's file has but a download leaves out.
std::unordered_set<std::string> WithheldKeys(const CIndicator& document, const std::vector<KeyValue>& sent) {
    std::unordered_set<std::string> keys;
    for (const KeyValue& line : document.Lines()) keys.insert(Upper(line.key));
    for (const KeyValue& line : sent) keys.erase(Upper(line.key));
    return keys;
}

}  // namespace

ChangeSet AgainstIndicator(const CIndicator& document, const std::string& dump, const Target& target) {
    const std::vector<KeyValue> sent = SentLines(document, target);
    // Read as a document, the dump loses what no configuration holds, and both sides are written alike.
    CIndicator indicator(document.Context());
    indicator.LoadText(dump, "DUMPALL");
    std::unordered_set<std::string> held;
    for (const KeyValue& line : ReadLines(dump)) held.insert(Upper(line.key));

    std::vector<KeyValue> holds = SentLines(indicator, target);
    std::erase_if(holds, [&](const KeyValue& line) { return !held.contains(Upper(line.key)); });
    const auto withheld = WithheldKeys(document, sent);
    return Difference(sent, holds).Where([&](const Change& change) {
        return !withheld.contains(Upper(change.key));
    });
}

}  // namespace calyx::ui
