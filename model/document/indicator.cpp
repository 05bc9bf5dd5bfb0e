#include "model/document/indicator.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "model/document/cross_checks.h"
#include "model/language/text.h"

namespace calyx {

namespace {

constexpr int kOneLineName = 2921;

std::array<Section*, 10> InOrderOfMaking(DocumentSections& s) {
    return {&s.general, &s.prompts,   &s.scales,      &s.hardware,      &s.tickets,
            &s.widgets, &s.setpoints, &s.customParms, &s.junctionBoxes, &s.fieldbusCards};
}

}  // namespace

std::array<Section*, 10> InBodyOrder(DocumentSections& s) {
    return {&s.general, &s.prompts,   &s.hardware,    &s.scales,        &s.tickets,
            &s.widgets, &s.setpoints, &s.customParms, &s.junctionBoxes, &s.fieldbusCards};
}

std::vector<int> BoxPorts(const DocumentSections& sections) {
    std::vector<int> ports = sections.hardware.CommPorts();
    std::erase_if(ports, [&](int port) { return sections.hardware.InputOf(port) != "VEXAL"; });
    return ports;
}

void CIndicator::Initialize() {
    As("Calyx.CIndicator.Initialize", [&] {
        DocumentSections fresh(*context_);
        for (Section* section : InOrderOfMaking(fresh)) section->Initialize();
        sections_.emplace(std::move(fresh));
        filename_ = kNewFile;
        codFilename_.clear();
        isNew_ = true;
        onFile_.reset();
        fileVersion_ = context_->programVersion;
        indicatorVersion_ = context_->texts.Text(126);
        sections_->general.SetVersion(indicatorVersion_);
        sections_->general.MarkSaved();
    });
}

void CIndicator::SetCODFilename(std::string name) {
    const bool fits =
        name.find_first_of("\r\n") == std::string::npos && name.find("[BEGIN]") == std::string::npos;
    if (!fits) Fail(code::kOutOfRange, "CODFilename", {name, context_->texts.Text(kOneLineName)});
    codFilename_ = std::move(name);
}

std::vector<Section*> CIndicator::Sections() {
    if (!sections_) return {};
    const auto all = InBodyOrder(*sections_);
    return {all.begin(), all.end()};
}

std::vector<const Section*> CIndicator::Sections() const {
    const auto sections = const_cast<CIndicator*>(this)->Sections();
    return {sections.begin(), sections.end()};
}

Section* CIndicator::FindSection(std::string_view name) {
    for (Section* section : Sections()) {
        if (section->Name() == name) return section;
    }
    return nullptr;
}

Section* CIndicator::OwnerOf(std::string_view key) {
    for (Section* section : Sections()) {
        if (section->Owns(key)) return section;
    }
    return nullptr;
}

bool CIndicator::IsDirty() const {
    const auto sections = Sections();
    return std::any_of(sections.begin(), sections.end(),
                       [](const Section* section) { return section->IsDirty(); });
}

std::string CIndicator::Body() const {
    std::string body;
    body.reserve(1 << 18);
    for (const Section* section : Sections()) section->AppendState(body);
    return body;
}

std::optional<std::string> CIndicator::Value(std::string_view key) const {
    for (const Section* section : Sections()) {
        for (const Item* item : section->Items()) {
            if (const auto row = item->Find(key)) return item->Text(*row);
        }
    }
    return std::nullopt;
}

std::vector<BrokenRule> CIndicator::Validate() const {
    std::vector<BrokenRule> rules;
    for (const Section* section : Sections()) {
        for (const BrokenRule& rule : section->BrokenRules()) rules.push_back(rule);
    }
    CBrokenRules between;
    if (sections_) CrossCheck(*this, between);
    rules.insert(rules.end(), between.begin(), between.end());
    return rules;
}

std::vector<BrokenRule> CIndicator::ValidateLiveHardware(std::string_view dump) const {
    NeedDocument("ValidateLiveHardware");
    const Dictionary live{std::string(dump)};
    const Dictionary::Entry* reported = live.Peek("HARDWARE");
    if (reported == nullptr) return {};
    CHardware hardware = Hardware();
    hardware.UpdateFromIndicator(reported->value);
    const CBrokenRules rules = hardware.ValidateLiveHardware();
    return {rules.begin(), rules.end()};
}

std::string CIndicator::GetPrintOutput() const {
    std::string listing;
    for (const Section* section : Sections()) {
        const std::string part = section->GetPrintOutput();
        if (!listing.empty() && !part.empty()) listing += "\r\n";
        listing += part;
    }
    return listing;
}

std::string CIndicator::ImportFileText() const {
    NeedDocument("GenerateImportFile");
    const std::string rule(49, '-');
    std::string text =
        rule + "\r\n-- Used with Calyx Configuration File\r\n-- " + filename_ + "\r\n" + rule + "\r\n";
    const DocumentSections& s = *sections_;
    for (const Section* section :
         std::initializer_list<const Section*>{&s.scales, &s.setpoints, &s.widgets, &s.hardware}) {
        text += section->GetIWriteImportDef();
    }
    return text;
}

void CIndicator::Fail(int code, const char* operation,
                      std::initializer_list<std::string_view> arguments) const {
    throw Error(code, std::string("Calyx.CIndicator.") + operation, context_->texts.Format(code, arguments));
}

void CIndicator::NeedDocument(const char* operation) const {
    if (!sections_) Fail(code::kNotInitialised, operation, {});
}

}  // namespace calyx
