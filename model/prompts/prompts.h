#pragma once

#include <array>
#include <string>

#include "model/language/section.h"

namespace calyx {

// What the indicator asks its operator for.
struct PromptFields {
    static constexpr int kCount = 10;
    static constexpr std::size_t kLongest = 40;  // characters

    std::array<std::string, kCount> texts;  // blanks count: a prompt may end in one

    friend bool operator==(const PromptFields&, const PromptFields&) = default;
};

// The operator prompts 1 to 10; the name numbers of setpoints refer to them.
class CPrompts : public Section {
  public:
    explicit CPrompts(const ModelContext& context);

    std::string_view Name() const override { return "prompts"; }
    int Title() const override { return 2120; }
    std::vector<Item*> Items() override { return {&prompts_}; }

    const std::string& Prompt(int number) const;  // 1 to 10, else 10002

  private:
    RowItem<PromptFields> prompts_;
};

}  // namespace calyx
