#include "model/document/cross_checks.h"

#include <map>

#include "model/language/text.h"
#include "model/scales/scale_checks.h"
#include "model/setpoints/setpoint_checks.h"

namespace calyx {

namespace {

// What is wrong, in words.
constexpr int kAliasTwice = 4450;     // {1} alias, {2} where it stands first
constexpr int kStreamNoScale = 4402;  // {1} scale
constexpr int kOutputNoScale = 4408;  // {1} scale
constexpr int kPointIsInput = 4451;   // {1} point, {2} its function, {3} setpoint
constexpr int kAliasedPoint = 4452;   // {1} point, {2} digital points' title

bool ScaleExists(const CIndicator& document, int scale) {
    return scale >= 1 && scale <= 32 && document.Scales().Scale(scale).ScaleType() != 1;
}

// All aliases become constants of one Scrivo program.
class AliasCheck {
  public:
    AliasCheck(const CIndicator& document, CBrokenRules& rules) : document_(document), rules_(rules) {}

    void Run() {
        TakeOtherNames();
        for (const Section* section : document_.Sections()) {
            if (section->Name() == "widgets") continue;  // they check their names themselves
            for (const Item* item : section->Items()) CheckItem(*section, *item);
        }
        for (const int number : document_.Widgets().Numbers()) {
            const std::string name(Trim(document_.Widgets().widget(number).Values().name.Trimmed()));
            const auto first = seen_.find(Upper(name));
            if (name.empty() || first == seen_.end()) continue;
            rules_.Add({"widgets", number, "WDGT#" + std::to_string(number),
                        document_.Context().texts.Format(kAliasTwice, {name, first->second.title})});
        }
    }

  private:
    // What else the import file declares: a constant for each card with named points, types and constants
    // for the tables of the memory cards.
    void TakeOtherNames() {
        const CHardware& hardware = document_.Hardware();
        for (const int number : hardware.DigitalIOs()) {
            const CDigitalIO& points = hardware.DigitalIO(number);
            if (points.HasAlias()) Declare(points.ConstantOfCard(), hardware.ItemTitle(points.Parameters()));
        }
        for (const int slot : hardware.MemoryCards()) {
            const CMemoryCard& memory = hardware.MemoryCard(slot);
            for (const int table : memory.Schemas()) {
                const CSchema& schema = memory.Schema(table);
                const std::string name(schema.Name()), title = hardware.ItemTitle(schema.Parameters());
                if (name.empty()) continue;
                Declare(name + "Record", title);
                Declare(name + "Database", title);
                for (const SchemaField& field : schema.AllFields()) Declare(name + "_" + field.name, title);
            }
        }
    }

    void Declare(std::string_view name, const std::string& title) {
        seen_.try_emplace(Upper(name), Place{title, false});
    }

    void CheckItem(const Section& section, const Item& item) {
        const std::vector<bool> written = item.WrittenRows();
        for (std::size_t row = 0; row < item.RowCount(); ++row) {
            const std::string_view stem = item.Info(row).stem;
            if (!written[row] || (stem != "ALIAS" && !stem.starts_with("ALIAS."))) continue;
            const std::string alias(Trim(item.Text(row)));
            if (!alias.empty()) CheckAlias(section, item, row, alias);
        }
    }

    void CheckAlias(const Section& section, const Item& item, std::size_t row, const std::string& alias) {
        const ResourceTexts& texts = document_.Context().texts;
        std::string where = section.ItemTitle(item);
        const std::string_view stem = item.Info(row).stem;
        if (stem != "ALIAS") {
            where = texts.Format(kAliasedPoint, {stem.substr(std::string_view("ALIAS.").size()), where});
        }
        const auto [first, isNew] =
            seen_.try_emplace(Upper(alias), Place{where, section.Name() == "setpoints"});
        // Setpoints compare theirs with one another themselves.
        if (isNew || (first->second.ofSetpoint && section.Name() == "setpoints")) return;
        rules_.Add({std::string(section.Name()), item.Number(), item.Key(row),
                    texts.Format(kAliasTwice, {alias, first->second.title})});
    }

    struct Place {
        std::string title;
        bool ofSetpoint;
    };
    const CIndicator& document_;
    CBrokenRules& rules_;
    std::map<std::string, Place> seen_;  // the aliases in capitals, and where each stands first
};

void CheckHardwareSources(const CIndicator& document, CBrokenRules& rules) {
    const CHardware& hardware = document.Hardware();
    const auto add = [&](int number, const char* stem, int text, int scale) {
        rules.Add({"hardware", number, stem + std::to_string(number),
                   document.Context().texts.Format(text, {std::to_string(scale)})});
    };
    for (const int number : hardware.CommPorts()) {
        const PortFields& port = hardware.CommPort(number).Values();
        const bool streams = port.CanStream() && port.Streams() && port.source != 0;
        if (streams && !ScaleExists(document, port.source))
            add(number, "EDP.SOURCE#", kStreamNoScale, port.source);
    }
    for (const int number : hardware.AnalogOutputs()) {
        const std::int32_t source = hardware.AnalogOutput(number).Values().source;
        if (source != 0 && !ScaleExists(document, source)) add(number, "ALG.SOURCE#", kOutputNoScale, source);
    }
}

// A point that works as an input cannot be switched by a setpoint as well. Only outputs that the
// setpoint's kind writes count.
void CheckDigitalPoints(const CIndicator& document, CBrokenRules& rules) {
    constexpr std::string_view kBit = "BIT";
    const CHardware& hardware = document.Hardware();
    for (const CSetpoint& setpoint : document.Setpoints()) {
        const std::int32_t slot = setpoint.Values().digOutCard;
        if (slot <= 0 || !hardware.HasDigitalIO(slot)) continue;
        const CDigitalIO& points = hardware.DigitalIO(slot);
        const auto& rows = setpoint.Parameters();
        const std::vector<bool> written = rows.WrittenRows();
        for (std::size_t row = 0; row < rows.RowCount(); ++row) {
            const std::string_view stem = rows.Info(row).stem;
            const bool output = stem == "DIGOUT" || stem == "DUNDER" || stem == "DOVER" || stem == "DACCEPT";
            if (!output || !written[row]) continue;
            const std::string text = rows.Text(row);
            const auto point = text.starts_with(kBit) ? ReadInteger(text.substr(kBit.size())) : std::nullopt;
            if (!point || point->value < 1 || point->value > points.NumberOfPoints()) continue;
            const std::string function(points.PointDefinition(point->value));
            if (function == "OFF" || function == "OUTPUT") continue;
            rules.Add({"hardware", slot, "DIO." + std::to_string(point->value) + "#" + std::to_string(slot),
                       document.Context().texts.Format(kPointIsInput, {std::to_string(point->value), function,
                                                                       std::to_string(setpoint.Number())})});
        }
    }
}

}  // namespace

void CrossCheck(const CIndicator& document, CBrokenRules& rules) {
    const ResourceTexts& texts = document.Context().texts;
    const CHardware& hardware = document.Hardware();
    const auto scaleExists = [&](int scale) { return ScaleExists(document, scale); };
    AliasCheck(document, rules).Run();
    CheckHardwareSources(document, rules);
    CheckDigitalPoints(document, rules);
    CheckScalePorts(
        document.Scales(), [&](int port) { return hardware.InputOf(port); }, texts, rules);
    CheckSetpointSurroundings(
        document.Setpoints(),
        {.scaleExists = scaleExists,
         .pulseInputExists = [](int input) { return input >= 1; },  // the main board has some, too
         .digitalPoints =
             [&](int slot) {
                 return hardware.HasDigitalIO(slot) ? hardware.DigitalIO(slot).NumberOfPoints() : 0;
             },
         .isOutput = [&](int slot,
                         int point) { return hardware.DigitalIO(slot).PointDefinition(point) == "OUTPUT"; }},
        texts, rules);
    CheckWidgetScales(document.Widgets(), scaleExists, texts, rules);
    document.Tickets().CheckPorts([&](int port) { return hardware.HasPort(port); }, rules);
}

}  // namespace calyx
