#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "model/language/section.h"
#include "model/prompts/custom_pairs.h"

namespace calyx {

// The custom parameters: lines that the user adds under names of his own, sent behind the general ones.
class CCustomParms : public Section {
  public:
    explicit CCustomParms(const ModelContext& context) : Section(context) {}

    std::string_view Name() const override { return "customparms"; }
    int Title() const override { return 2126; }
    std::vector<Item*> Items() override { return {&pairs_}; }
    std::string GetPrintOutput() const override;

    // Name and value of the places in use, in their order.
    std::vector<KeyValue> Pairs() const;

    // Gives up the pairs whose name is the key of another section, and tells it. For the document, once
    // all sections have read a file.
    void DropOwned(const std::function<bool(std::string_view key)>& ownedByOthers, const Dictionary& lines,
                   ReadReport& report);

  protected:
    // Bars names that stand twice or that another section owns, and finds the places of values that come
    // under their names.
    void Prepare(std::vector<Change>& changes, Check check, const ValueOf& valueOf) override;

  private:
    CustomPairs pairs_;
};

}  // namespace calyx
