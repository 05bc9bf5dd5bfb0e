#include "model/kept/kept_sections.h"

#include <algorithm>
#include <array>
#include <map>

#include "model/language/text.h"

namespace calyx {

namespace {

using Starts = std::span<const std::string_view>;
using namespace std::string_view_literals;

bool BeginsWithOne(std::string_view key, Starts starts) {
    return std::any_of(starts.begin(), starts.end(),
                       [key](std::string_view start) { return StartsNoCase(key, start); });
}

void AppendLine(std::string& out, const KeyValue& line) {
    out.append(line.key).append(1, '=').append(line.value).append("\r\n");
}

constexpr std::array kPromptKeys{"PROMPT#"sv};
constexpr KeptKind kPrompts{"prompts", 2120, kPromptKeys, {}, {}};

constexpr std::array kScaleKeys{"SC."sv};
constexpr std::array kScaleAliases{AliasBlock{"-- Scale Aliases", "SC.ALIAS#"}};
constexpr std::array kCalibration{"SC.WVAL#"sv, "SC.LC.CD#"sv, "SC.LC.CW#"sv, "SC.LC.CZ#"sv, "SC.WLIN."sv};
constexpr std::array kScaleWithheld{"SC.WVAL#"sv, "SC.LC.CD#"sv,    "SC.LC.CW#"sv,      "SC.LC.CZ#"sv,
                                    "SC.WLIN."sv, "SC.NUMWEIGH#"sv, "SC.MAX_WEIGHT#"sv, "SC.MAX_DATE#"sv};
constexpr KeptKind kScales{"scales", 2122, kScaleKeys, kScaleWithheld, kScaleAliases};

constexpr std::array kTicketKeys{"GFMT."sv,       "NFMT."sv,      "TRWIN."sv,      "TRWOUT."sv,
                                 "SPFMT."sv,      "HDRFMT1="sv,   "HDRFMT2="sv,    "ACC."sv,
                                 "TR."sv,         "ALERT.FMT="sv, "ALERT.PORT="sv, "ALERT.VERT="sv,
                                 "ALERT.HORZ="sv, "ALERT.PRN="sv, "AUXFMT."sv,     "AUD."sv};
constexpr KeptKind kTickets{"tickets", 2123, kTicketKeys, {}, {}};

constexpr std::array kWidgetKeys{"WDGT#"sv};
constexpr KeptKind kWidgets{"widgets", 2124, kWidgetKeys, {}, {}};

constexpr std::array kSetpointKeys{"SP."sv};
constexpr std::array kSetpointAliases{AliasBlock{"-- Setpoint Aliases", "SP.ALIAS#"}};
constexpr KeptKind kSetpoints{"setpoints", 2125, kSetpointKeys, {}, kSetpointAliases};

constexpr KeptKind kCustomParms{"customparms", 2126, {}, {}, {}};

constexpr std::array kBoxKeys{"SJ."sv};
constexpr std::array kBoxWithheld{"SJ.SERIAL_NUMBER#"sv};
constexpr KeptKind kJunctionBoxes{"junctionboxes", 2127, kBoxKeys, kBoxWithheld, {}};

}  // namespace

void KeptSection::AppendText(std::string& out, const Target& target) const {
    for (const KeyValue& line : Lines()) {
        if (target.all || !BeginsWithOne(line.key, kind_->withheld)) AppendLine(out, line);
    }
}

std::string KeptSection::GetIWriteImportDef() const {
    std::string text;
    for (const AliasBlock& block : kind_->aliases) {
        text.append(block.heading).append("\r\n");
        std::map<std::int32_t, std::string> aliases;  // by item number
        for (const KeyValue& line : Lines()) {
            if (!StartsNoCase(line.key, block.start)) continue;
            const auto number = ReadInteger(std::string_view(line.key).substr(block.start.size()));
            if (number && !Trim(line.value).empty()) aliases.emplace(number->value, Trim(line.value));
        }
        for (auto& [number, alias] : aliases) {
            if (alias.size() < block.padTo) alias.resize(block.padTo, ' ');
            text.append(alias)
                .append(" : constant integer := ")
                .append(std::to_string(number))
                .append(";\r\n");
        }
    }
    return text;
}

std::string KeptSection::LinesOf(Starts starts) const {
    std::string text;
    for (const KeyValue& line : Lines()) {
        if (BeginsWithOne(line.key, starts)) AppendLine(text, line);
    }
    return text;
}

std::string CScales::GetCalibrationValues() const {
    return LinesOf(kCalibration);
}

CPrompts::CPrompts(const ModelContext& context) : KeptSection(context, kPrompts) {}
CScales::CScales(const ModelContext& context) : KeptSection(context, kScales) {}
CTickets::CTickets(const ModelContext& context) : KeptSection(context, kTickets) {}
CWidgets::CWidgets(const ModelContext& context) : KeptSection(context, kWidgets) {}
CSetpoints::CSetpoints(const ModelContext& context) : KeptSection(context, kSetpoints) {}
CCustomParms::CCustomParms(const ModelContext& context) : KeptSection(context, kCustomParms) {}
CJunctionBoxes::CJunctionBoxes(const ModelContext& context) : KeptSection(context, kJunctionBoxes) {}

}  // namespace calyx
