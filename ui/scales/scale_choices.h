#pragma once

#include <QString>
#include <cstdint>
#include <string>
#include <vector>

#include "model/document/indicator.h"

namespace calyx::ui {

// What a scale can take its weight from, and what its edits mean. Source numbers are those of CScale: a
// channel, a port, a scale, or port and box of VexalSource.

// A source with what is said of it: "3" on a chip, "Channel 3" in a sentence.
struct SourceChoice {
    std::int32_t source = 0;
    QString shortWords, words;
    friend bool operator==(const SourceChoice&, const SourceChoice&) = default;
};

bool TakesSeveral(std::int32_t kind);  // sources: channels of a load cell scale, scales of a total
bool TakesOne(std::int32_t kind);

// The sources that the scale has, in their order; also those that do not exist, which is said.
std::vector<SourceChoice> PresentSources(const CIndicator& document, int scale);
// Those that exist and that the scale does not have yet.
std::vector<SourceChoice> OfferedSources(const CIndicator& document, int scale);

// The lines that give the scale other sources.
std::vector<KeyValue> SourceLines(const CScale& scale, const std::vector<std::int32_t>& sources);

// The input type of the first port that could be a source of that kind; the hardware where no port could.
std::string KeyForSources(const CIndicator& document, std::int32_t kind);

// What a change of the kind clears or sets back, in words: the sources, values that are not as the
// present kind starts with. Empty: nothing is lost.
QStringList LostByKind(const CIndicator& document, int scale, std::int32_t kind);

}  // namespace calyx::ui
