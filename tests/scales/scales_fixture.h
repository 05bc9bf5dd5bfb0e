#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/scales/scales.h"
#include "tests/support/model_fixture.h"

namespace calyx::test {

// Ports 3, 5 and 6 serve scales; of the others there is only port 1.
inline const std::string kPorts =
    "EDP.INPUT#1=CMD\r\nEDP.INPUT#3= vexal \r\nEDP.INPUT#5=SCALE\r\nEDP.INPUT#6=IND SC\r\n";

class ScalesTest : public testing::Test {
  protected:
    TestContext context{CALYX_DATA_DIR};
    CScales scales{context};
    ReadReport report;

    void Read(const std::string& lines) {
        report = {};
        Dictionary file(kPorts + lines);
        scales.RestoreState(file, report);
    }
    std::vector<Refusal> Set(std::vector<Change> changes, Section::Check check = Section::Check::Strict) {
        const Dictionary ports(kPorts);
        return scales.Take(std::move(changes), check,
                           [&](std::string_view key) -> std::optional<std::string> {
                               const Dictionary::Entry* entry = ports.Peek(key);
                               if (entry == nullptr) return std::nullopt;
                               return std::string(entry->value);
                           });
    }
    std::vector<Refusal> Set(const std::string& key, const std::string& value) {
        return Set({{key, std::nullopt, value}});
    }
    std::string Value(const std::string& key) const {
        for (const KeyValue& line : scales.State()) {
            if (line.key == key) return line.value;
        }
        return "no " + key;
    }
    static std::string InputOf(int port) {
        const Dictionary ports(kPorts);
        const Dictionary::Entry* entry = ports.Peek("EDP.INPUT#" + std::to_string(port));
        return entry == nullptr ? std::string() : std::string(Trim(entry->value));
    }
};

}  // namespace calyx::test
