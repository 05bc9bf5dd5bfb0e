#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "model/language/section.h"
#include "tests/support/model_fixture.h"

namespace calyx::test {

// Compares with a file of tests/golden; CALYX_WRITE_GOLDEN=1 in the environment writes it instead, for
// a person to read through.
inline void ExpectGolden(const std::string& name, const std::string& text) {
    const std::string path = std::string(CALYX_SOURCE_DIR) + "/tests/golden/" + name;
    if (std::getenv("CALYX_WRITE_GOLDEN") != nullptr) {
        std::ofstream(path, std::ios::binary) << text;
        GTEST_SKIP() << path << " written";
    }
    EXPECT_EQ(text, ReadFile(path)) << name;
}

// One line a key in the order of writing, one column a version (the last two: an unknown version, and
// an old version with the CB2 flag): "x" where the line is written.
inline std::string VersionMatrix(const Section& section) {
    std::vector<Target> targets;
    std::string heading(24, ' ');
    for (const auto version : kVersions) {
        targets.push_back({.version = VersionBit(version)});
        heading += version.substr(0, 4);
        heading += ' ';
    }
    targets.push_back({.version = VersionBit("2.04.")});
    targets.push_back({.version = VersionBit("1.00."), .cb2 = true});
    std::vector<std::map<std::string, int>> written;
    for (const Target& target : targets) {
        std::string text;
        section.AppendText(text, target);
        auto& keys = written.emplace_back();
        for (const KeyValue& line : ReadLines(text)) ++keys[line.key];
    }
    std::string matrix = heading + "2.04 CB2\n";
    for (const KeyValue& line : ReadLines(section.GetTextOutput(true))) {
        matrix += line.key;
        matrix.append(line.key.size() < 24 ? 24 - line.key.size() : 1, ' ');
        for (const auto& keys : written) {
            const int times = keys.contains(line.key) ? keys.at(line.key) : 0;
            matrix += (times == 0 ? "." : times == 1 ? "x" : std::to_string(times)) + "    ";
        }
        matrix.erase(matrix.find_last_not_of(' ') + 1);
        matrix += '\n';
    }
    return matrix;
}

}  // namespace calyx::test
