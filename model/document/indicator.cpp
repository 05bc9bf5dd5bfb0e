#include "model/document/indicator.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "model/language/text.h"

namespace calyx {

namespace {

constexpr int kUnknownParameter = 2906;  // {1} key
constexpr int kOneLineName = 2921;

std::array<Section*, 10> InOrderOfMaking(DocumentSections& s) {
    return {&s.general, &s.prompts,   &s.scales,      &s.hardware,      &s.tickets,
            &s.widgets, &s.setpoints, &s.customParms, &s.junctionBoxes, &s.fieldbusCards};
}

// Runs a change on a section and adds what it changed, parameter by parameter.
template <class Edit>
void Record(Section& section, ChangeSet& changes, Edit&& edit) {
    const auto before = section.State();
    edit();
    changes = changes.Then(Difference(before, section.State()));
}

}  // namespace

void CIndicator::Initialize() {
    As("Calyx.CIndicator.Initialize", [&] {
        DocumentSections fresh(*context_);
        for (Section* section : InOrderOfMaking(fresh)) section->Initialize();
        sections_.emplace(std::move(fresh));
        filename_ = kNewFile;
        codFilename_.clear();
        isNew_ = true;
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
    DocumentSections& s = *sections_;
    return {&s.general, &s.prompts,   &s.hardware,    &s.scales,        &s.tickets,
            &s.widgets, &s.setpoints, &s.customParms, &s.junctionBoxes, &s.fieldbusCards};
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

CIndicator::Taken CIndicator::TakeChanges(const std::vector<Change>& changes, Section::Check check) {
    Taken taken;
    std::vector<bool> owned(changes.size(), false);
    for (Section* section : Sections()) {
        std::vector<Change> own;
        for (std::size_t i = 0; i < changes.size(); ++i) {
            if (owned[i] || !section->Owns(changes[i].key)) continue;
            owned[i] = true;
            own.push_back(changes[i]);
        }
        if (own.empty()) continue;
        Record(*section, taken.changes, [&] {
            auto refused = section->Take(own, check, [this](std::string_view key) { return Value(key); });
            std::move(refused.begin(), refused.end(), std::back_inserter(taken.refused));
        });
    }
    for (std::size_t i = 0; i < changes.size(); ++i) {
        if (owned[i]) continue;
        taken.refused.push_back({changes[i].key, changes[i].after.value_or(""),
                                 context_->texts.Format(kUnknownParameter, {changes[i].key})});
    }
    indicatorVersion_ = sections_->general.Version();
    return taken;
}

CIndicator::Taken CIndicator::Import(const std::vector<KeyValue>& lines) {
    return As("Calyx.CIndicator.Import", [&] {
        NeedDocument("Import");
        std::vector<Change> changes;
        std::vector<Refusal> refused;
        for (const KeyValue& line : lines) {
            // A version that opening would reject.
            if (EqualNoCase(line.key, "VERSION") && !VersionIsAccepted(line.value)) {
                refused.push_back(
                    {line.key, line.value,
                     context_->texts.Format(code::kIndicatorRevision,
                                            {filename_, line.value, context_->programVersion})});
                continue;
            }
            changes.push_back({line.key, std::nullopt, line.value});
        }
        Taken taken = TakeChanges(changes, Section::Check::Strict);
        std::move(refused.begin(), refused.end(), std::back_inserter(taken.refused));
        return taken;
    });
}

CIndicator::Taken CIndicator::UpdateFromIndicator(std::string_view dump) {
    return As("Calyx.CIndicator.UpdateFromIndicator", [&] {
        NeedDocument("UpdateFromIndicator");
        std::vector<Change> changes;
        for (const KeyValue& line : ReadLines(dump)) changes.push_back({line.key, std::nullopt, line.value});
        return TakeChanges(changes, Section::Check::Lenient);
    });
}

CIndicator::Taken CIndicator::Apply(const ChangeSet& changes) {
    return As("Calyx.CIndicator.Apply", [&] {
        NeedDocument("Apply");
        return TakeChanges(changes.Changes(), Section::Check::None);
    });
}

std::vector<BrokenRule> CIndicator::Validate() const {
    std::vector<BrokenRule> rules;
    for (const Section* section : Sections()) {
        for (const BrokenRule& rule : section->BrokenRules()) rules.push_back(rule);
    }
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
