#include "model/document/indicator.h"

#include <algorithm>

#include "model/language/text.h"

namespace calyx {

namespace {

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
        sections_.emplace(*context_);
        for (Section* section : Sections()) section->Initialize();
        fileVersion_ = context_->programVersion;
        indicatorVersion_ = context_->texts.Text(126);
        sections_->general.SetVersion(indicatorVersion_);
        sections_->general.MarkSaved();
    });
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

CIndicator::Taken CIndicator::Import(const std::vector<KeyValue>& lines) {
    return As("Calyx.CIndicator.Import", [&] {
        NeedDocument("Import");
        Taken taken;
        std::vector<bool> owned(lines.size(), false);
        for (Section* section : Sections()) {
            std::vector<Change> own;
            for (std::size_t i = 0; i < lines.size(); ++i) {
                if (owned[i] || !section->Owns(lines[i].key)) continue;
                owned[i] = true;
                own.push_back({lines[i].key, std::nullopt, lines[i].value});
            }
            if (own.empty()) continue;
            Record(*section, taken.changes, [&] {
                auto refused = section->Take(own, Section::Check::Strict);
                std::move(refused.begin(), refused.end(), std::back_inserter(taken.refused));
            });
        }
        for (std::size_t i = 0; i < lines.size(); ++i) {
            if (owned[i]) continue;
            taken.refused.push_back(
                {lines[i].key, lines[i].value, context_->texts.Format(2906, {lines[i].key})});
        }
        indicatorVersion_ = sections_->general.Version();
        return taken;
    });
}

ChangeSet CIndicator::Apply(const ChangeSet& changes) {
    return As("Calyx.CIndicator.Apply", [&] {
        NeedDocument("Apply");
        ChangeSet effect;
        for (Section* section : Sections()) {
            const ChangeSet own =
                changes.Where([&](const Change& change) { return section->Owns(change.key); });
            if (own.Empty()) continue;
            Record(*section, effect, [&] { section->Take(own.Changes(), Section::Check::None); });
        }
        indicatorVersion_ = sections_->general.Version();
        return effect;
    });
}

std::vector<BrokenRule> CIndicator::Validate() const {
    std::vector<BrokenRule> rules;
    for (const Section* section : Sections()) {
        for (const BrokenRule& rule : section->BrokenRules()) rules.push_back(rule);
    }
    return rules;
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
