#include "model/prompts/prompts.h"

#include "model/language/error.h"

namespace calyx {

namespace {

using F = PromptFields;

constexpr int kLabels = 6000;  // + number of the prompt
constexpr int kHelp = 6011, kGroup = 6012, kNumbers = 6013;

constexpr Codec<std::string> kPromptText{
    ValueKind::Text, F::kLongest,
    [](std::string& out, const std::string& value, const Target&) { out += value; },
    [](std::string& value, std::string_view text) {
        value = text.substr(0, F::kLongest);
        return text.size() <= F::kLongest ? Taken::Whole : Taken::Cut;
    }};

template <std::size_t... Place>
consteval auto MakeRows(std::index_sequence<Place...>) {
    return std::array{row<&F::texts, kPromptText, Place>(
        kStem<"PROMPT#", static_cast<int>(Place) + 1>, "",
        {.label = kLabels + 1 + static_cast<int>(Place), .group = kGroup, .help = kHelp})...};
}
constexpr auto kRows = MakeRows(std::make_index_sequence<F::kCount>());
constexpr auto kLayout = Lines{kRows}.Run<F::kCount>("PROMPT#1");
constexpr RowTable<F> kTable{kRows, [](const F&) { return Layout<F>(kLayout); }};

}  // namespace

CPrompts::CPrompts(const ModelContext& context) : Section(context), prompts_(kTable, context) {}

const std::string& CPrompts::Prompt(int number) const {
    if (number < 1 || number > F::kCount) {
        throw Error(code::kOutOfRange, "Calyx.CPrompts.Prompt",
                    Context().texts.Format(code::kOutOfRange,
                                           {std::to_string(number), Context().texts.Text(kNumbers)}));
    }
    return prompts_.fields.texts[static_cast<std::size_t>(number - 1)];
}

}  // namespace calyx
