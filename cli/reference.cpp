#include "cli/reference.h"

#include <map>
#include <set>

#include "comm/firmware_keys.h"
#include "model/document/indicator.h"
#include "model/language/text.h"

namespace calyx::cli {

namespace {

std::string TextOf(const ModelContext& context, int number) {
    return number == 0 ? std::string() : context.texts.Text(number);
}

std::string Number(double value) {
    std::string text;
    AppendSingle(text, static_cast<float>(value));
    return text;
}

std::string Form(const RowInfo& info, const std::string& initial) {
    switch (info.kind) {
        case ValueKind::Text:
            return info.width == 0 ? "text" : "text, up to " + std::to_string(info.width) + " characters";
        case ValueKind::Integer:
            return "whole number";
        case ValueKind::Decimal:
            return "number";
        case ValueKind::Switch:
            return initial == "True" || initial == "False" ? "True or False" : "ON or OFF";
        case ValueKind::Date:
            return "date as MMDDYYYY";
    }
    return {};
}

// Which versions receive the parameters of a document, by the patterns of their keys.
class Receivers {
  public:
    explicit Receivers(const CIndicator& document) {
        for (const Section* section : document.Sections()) {
            for (const KeyValue& line : ReadLines(section->StoreState())) inFile_.insert(line.key);
            std::string sent;
            section->AppendLines(sent, Target::Everything());
            for (const KeyValue& line : ReadLines(sent)) sent_.insert(line.key);
            for (const Item* item : section->Items()) {
                for (std::size_t row = 0; row < item->RowCount(); ++row) {
                    auto& gate = gates_.try_emplace(KeyPattern(item->Key(row)), Gate{0}).first->second;
                    gate = gate | WidestGate(*item, row);
                }
            }
        }
        for (const KeyValue& line : ReadLines(document.Scales().GetCalibrationValues(true)))
            sent_.insert(line.key);
    }

    std::string Of(const Item& item, std::size_t row) const {
        if (item.Info(row).more.use == Use::ReadOnly) return "never sent, read only";
        if (item.Info(row).more.use == Use::State) return "never sent, no line of its own";
        const std::string key = item.Key(row);
        if (inFile_.contains(key) && !sent_.contains(key)) return "never sent, in the file only";
        return Words(gates_.at(KeyPattern(key)));
    }

  private:
    std::set<std::string> inFile_, sent_;
    std::map<std::string, Gate> gates_;
};

Parameter Describe(const ModelContext& context, const Receivers& receivers, const Section& section,
                   const Item& item, std::size_t row) {
    const RowInfo& info = item.Info(row);
    Parameter p;
    p.section = section.Name();
    p.sectionTitle = context.texts.Text(section.Title());
    p.heading = TextOf(context, info.more.group);
    p.key = KeyPattern(item.Key(row));
    p.label = TextOf(context, info.more.label);
    p.help = TextOf(context, info.more.help);
    p.initial = item.InitialText(row);
    p.form = Form(info, p.initial);
    if (info.more.HasRange()) p.range = Number(info.more.min) + " to " + Number(info.more.max);
    p.unit = info.more.unit;
    if (const CTextList* list = item.List(row)) {
        p.list = info.more.listOf != nullptr ? info.more.listOf(item.Number()) : info.more.list;
        for (const auto& entry : *list) p.words.push_back({entry.key, entry.text});
    }
    p.firmware = receivers.Of(item, row);
    return p;
}

std::string Code(std::string_view text) {
    return "`" + std::string(text) + "`";
}

// What stands in a cell of a table: a bar would end it.
std::string Cell(std::string_view text) {
    std::string cell;
    for (const char c : text) {
        if (c == '|') cell += '\\';
        cell += c == '\n' ? ' ' : c;
    }
    return cell;
}

std::string ValueCell(const Parameter& p) {
    if (p.words.empty()) return ValueWords(p);
    std::string cell;
    for (const auto& word : p.words) cell += (cell.empty() ? "" : ", ") + Code(word.key) + " " + word.text;
    return cell + " (list " + p.list + ")";
}

void AppendTable(std::string& out, const std::vector<Parameter>& parameters, const std::string& section,
                 const std::string& heading) {
    out += "\n### " + (heading.empty() ? "Further lines" : heading) +
           "\n\n| Key | Meaning | Value | Default | Firmware |\n|---|---|---|---|---|\n";
    for (const Parameter& p : parameters) {
        if (p.section != section || p.heading != heading) continue;
        out += "| " + Code(p.key) + " | " + Cell("**" + p.label + ".** " + p.help) + " | " +
               Cell(ValueCell(p)) + " | " + (p.initial.empty() ? "empty" : Cell(Code(p.initial))) + " | " +
               p.firmware + " |\n";
    }
}

// The headings of a section in the order of their first parameter; what the page does not show comes last.
std::vector<std::string> Headings(const std::vector<Parameter>& parameters, const std::string& section) {
    std::vector<std::string> headings;
    std::set<std::string> seen{""};
    bool further = false;
    for (const Parameter& p : parameters) {
        if (p.section != section) continue;
        further = further || p.heading.empty();
        if (seen.insert(p.heading).second) headings.push_back(p.heading);
    }
    if (further) headings.emplace_back();
    return headings;
}

}  // namespace

std::string ValueWords(const Parameter& p) {
    const std::string words = p.range.empty() ? p.form : p.form + ", " + p.range;
    if (p.unit.empty()) return words;
    return p.range.empty() ? words + " (" + p.unit + ")" : words + " " + p.unit;
}

std::vector<Parameter> CollectReference(const ModelContext& context) {
    const CIndicator document = FullDocument(context);
    const Receivers receivers(document);
    std::vector<Parameter> parameters;
    std::set<std::string> seen;
    for (const Section* section : document.Sections()) {
        for (const Item* item : section->Items()) {
            for (std::size_t row = 0; row < item->RowCount(); ++row) {
                // A choice on an editor page stands for other lines, which are here themselves.
                if (item->Info(row).more.use == Use::Page) continue;
                if (seen.insert(KeyPattern(item->Key(row))).second) {
                    parameters.push_back(Describe(context, receivers, *section, *item, row));
                }
            }
        }
    }
    return parameters;
}

std::string ReferenceMarkdown(const std::vector<Parameter>& parameters) {
    std::string out =
        "# Parameters\n\n"
        "Every parameter that the program knows by itself, made from its tables by `calyx-cli keys "
        "--markdown`.\n"
        "A line is written `KEY=VALUE`. \"Firmware\" names the versions that receive the line in a download; "
        "the\n"
        "file holds it always. n stands for the number of the item.\n";
    std::set<std::string> done;
    for (const Parameter& p : parameters) {
        if (!done.insert(p.section).second) continue;
        out += "\n## " + p.sectionTitle + "\n";
        for (const std::string& heading : Headings(parameters, p.section))
            AppendTable(out, parameters, p.section, heading);
    }
    return out;
}

}  // namespace calyx::cli
