#include "model/language/versions.h"

#include <algorithm>

#include "model/language/text.h"

namespace calyx {

std::string Words(Gate gate) {
    if (gate.Ungated()) return "all versions";
    std::string words;
    const auto name = [](std::size_t i) {
        return std::string(kVersions[i].substr(0, kVersions[i].size() - 1));
    };
    for (std::size_t i = 0; i < kVersions.size(); ++i) {
        if ((gate.versions >> i & 1u) == 0) continue;
        std::size_t last = i;
        while (last + 1 < kVersions.size() && (gate.versions >> (last + 1) & 1u) != 0) ++last;
        if (!words.empty()) words += ", ";
        words += name(i);
        if (last != i) words += " to " + name(last);
        i = last;
    }
    return words.empty() ? "no version" : words;
}

void TargetVersion::TakeReply(std::string_view reply) {
    std::string text(reply);
    text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
    const std::string_view trimmed = Trim(text);
    // An empty reply and a refusal hold no version, and neither says that the flag is set.
    const bool refused = trimmed.empty() || trimmed.find("??") != std::string_view::npos;
    cb2 = !refused && trimmed.find("CB2") != std::string_view::npos;
    const std::size_t dot = trimmed.rfind('.');
    if (!refused && dot != std::string_view::npos && dot > 0) prefix = trimmed.substr(1, dot);
}

std::string_view VersionPrefix(std::string_view version) {
    const std::size_t dot = version.rfind('.');
    return dot == std::string_view::npos ? std::string_view{} : version.substr(0, dot + 1);
}

}  // namespace calyx
