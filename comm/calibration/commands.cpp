#include "comm/calibration/commands.h"

#include <algorithm>

#include "model/language/text.h"

namespace calyx {

namespace {

std::string Command(std::string_view stem, int n) {
    return "SC." + std::string(stem) + "#" + std::to_string(n);
}

std::string Command(std::string_view stem, int k, int n) {
    return Command(std::string(stem) + std::to_string(k), n);
}

}  // namespace

std::string GetZeroCalCommand(int n) {
    return Command("LC.CD", n);
}

std::string GetSpanCalCommand(int n) {
    return Command("LC.CW", n);
}

std::string GetWeightValueCommand(int n) {
    return Command("WVAL", n);
}

std::string GetDoZeroCalCommand(int n) {
    return Command("WZERO", n);
}

std::string GetDoSpanCalCommand(int n) {
    return Command("WSPAN", n);
}

std::string GetDoReZeroCommand(int n) {
    return Command("REZERO", n);
}

std::string GetLinearWeightCalCommand(int k, int n) {
    return Command("WLIN.V", k, n);
}

std::string GetLinearCountsCalCommand(int k, int n) {
    return Command("WLIN.F", k, n);
}

std::string GetDoLinearCalCommand(int k, int n) {
    return Command("WLIN.C", k, n);
}

std::string StripEcho(std::string_view reply, std::string_view command) {
    std::string value;
    ForEachLine(reply, [&](std::string_view line) {
        const std::string_view text = Trim(line);
        if (text.empty() || EqualNoCase(text, command) || text == "OK" || !value.empty()) return;
        const bool keyed = StartsNoCase(text, command) && text.substr(command.size()).starts_with('=');
        value = Trim(keyed ? text.substr(command.size() + 1) : text);
    });
    return value == "??" ? std::string() : value;
}

std::vector<KeyValue> CalibrationValues::Lines(int scale) const {
    std::vector<KeyValue> lines{{GetZeroCalCommand(scale), zeroCount},
                                {GetWeightValueCommand(scale), testWeight},
                                {GetSpanCalCommand(scale), spanCount}};
    for (int k = 1; k <= kPoints; ++k) {
        const auto place = static_cast<std::size_t>(k - 1);
        lines.push_back({GetLinearWeightCalCommand(k, scale), linearWeights[place]});
        lines.push_back({GetLinearCountsCalCommand(k, scale), linearCounts[place]});
    }
    return lines;
}

bool CalibrationValues::Read(const std::vector<KeyValue>& lines, int scale, CalibrationValues& values) {
    bool whole = true;
    const auto take = [&](const std::string& key, std::string& value) {
        const auto found = std::find_if(lines.begin(), lines.end(),
                                        [&](const KeyValue& line) { return EqualNoCase(line.key, key); });
        whole = whole && found != lines.end() && !found->value.empty();
        if (found != lines.end()) value = found->value;
    };
    take(GetZeroCalCommand(scale), values.zeroCount);
    take(GetWeightValueCommand(scale), values.testWeight);
    take(GetSpanCalCommand(scale), values.spanCount);
    for (int k = 1; k <= kPoints; ++k) {
        const auto place = static_cast<std::size_t>(k - 1);
        take(GetLinearWeightCalCommand(k, scale), values.linearWeights[place]);
        take(GetLinearCountsCalCommand(k, scale), values.linearCounts[place]);
    }
    return whole;
}

}  // namespace calyx
