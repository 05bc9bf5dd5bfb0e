#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/setpoints/setpoints.h"
#include "tests/support/model_fixture.h"

namespace calyx::test {

class Setpoints : public testing::Test {
  protected:
    TestContext context{CALYX_DATA_DIR};
    CSetpoints setpoints{context};
    ReadReport report;

    // Lines separated by blanks, without "SP."; "#1" where they name no setpoint: "KIND=GROSS VALUE#2=5".
    static std::vector<KeyValue> Pairs(const std::string& lines) {
        std::vector<KeyValue> pairs;
        for (const std::string_view line : Split(lines, ' ')) {
            const std::size_t equals = line.find('=');
            if (equals == std::string_view::npos) continue;
            std::string key = "SP." + std::string(line.substr(0, equals));
            if (key.find('#') == std::string::npos) key += "#1";
            pairs.push_back({std::move(key), std::string(line.substr(equals + 1))});
        }
        return pairs;
    }
    void Read(const std::string& lines) {
        std::string text;
        for (const auto& [key, value] : Pairs(lines))
            text.append(key).append("=").append(value).append("\r\n");
        Dictionary file(text);
        report = {};
        setpoints.Initialize();
        setpoints.RestoreState(file, report);
    }
    std::vector<Refusal> Set(const std::string& lines, Section::Check check = Section::Check::Strict) {
        std::vector<Change> changes;
        for (const auto& [key, value] : Pairs(lines)) changes.push_back({key, std::nullopt, value});
        return setpoints.Take(changes, check);
    }
    std::string Text(const std::string& stem, int number = 1) const {
        const auto& item = setpoints.Item(number).Parameters();
        const auto row = item.Find(SetpointKey(stem, number));
        return row ? item.Text(*row) : "no row " + stem;
    }
    // The stems of a setpoint's lines for a target, in their order.
    std::string Stems(int number = 1, const Target& target = Target::Everything()) const {
        std::string text, stems;
        setpoints.Item(number).Parameters().Append(text, target);
        for (const KeyValue& line : ReadLines(text)) {
            stems += (stems.empty() ? "" : " ") + line.key.substr(3, line.key.find('#') - 3);
        }
        return stems;
    }
};

}  // namespace calyx::test
