#pragma once

#include <initializer_list>
#include <utility>

#include "comm/serial/opening.h"
#include "model/language/reason.h"
#include "tests/comm/scripted_link.h"

namespace calyx::test {

// Holds the words for ports that do not open against what the system says by its numbers.
inline void ExpectWords(std::initializer_list<std::pair<int, int>> textsOfNumbers) {
    const TestContext context{CALYX_DATA_DIR};
    for (const auto& [number, text] : textsOfNumbers) {
        const serial::Opening opening{serial::Opening::Refused::Port, {number, std::system_category()}};
        const Error error =
            Raised([&] { serial::FailOpening(context.texts, "COM7", "9600,E,7,1", opening); });
        EXPECT_EQ(error.Code(), code::kLink);
        EXPECT_EQ(error.Description(), context.texts.Format(text, {"COM7", Reason(opening.error)}));
    }
}

}  // namespace calyx::test
