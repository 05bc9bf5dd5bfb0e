#include "model/database/memory_card.h"

#include <algorithm>

namespace calyx {

namespace {

constexpr int kSameTable = 6704;     // {1} table
constexpr int kTablesOfCard = 6706;  // stands for the numbers allowed

constexpr std::size_t kNameWidth = 8;

std::string NameKey(int table, int slot) {
    return "DB.NAME." + std::to_string(table) + "#" + std::to_string(slot);
}

}  // namespace

void CMemoryCard::Fail(int code, const char* operation, std::initializer_list<std::string_view> words) const {
    throw Error(code, std::string("Calyx.CMemoryCard.") + operation, context_->texts.Format(code, words));
}

void CMemoryCard::Need(const char* operation) const {
    if (slot_ == 0) Fail(code::kNotInitialised, operation, {});
}

void CMemoryCard::Initialize(int slot) {
    if (slot < 1 || slot > SchemaKey::kSlots) {
        Fail(code::kOutOfRange, "Initialize", {std::to_string(slot), "1 to 14"});
    }
    slot_ = slot;
    schemas_.clear();
    present_.clear();
    saved_.clear();
}

void CMemoryCard::ReloadDefaults() {
    Need("ReloadDefaults");
    present_.clear();
}

int CMemoryCard::Position() const {
    Need("Position");
    return slot_;
}

std::vector<Item*> CMemoryCard::Items() {
    std::vector<Item*> items;
    for (const int table : present_) items.push_back(&schemas_.at(table).Parameters());
    return items;
}

void CMemoryCard::RestoreState(Dictionary& lines, ReadReport& report) {
    Need("RestoreState");
    Initialize(slot_);
    for (int table = 1; table <= SchemaKey::kMostTables; ++table) {
        if (lines.Peek(NameKey(table, slot_)) == nullptr) continue;
        Make(table);
        schemas_.at(table).RestoreState(lines, report);
    }
    MarkSaved();
}

void CMemoryCard::AppendText(std::string& out, const Target& target) const {
    Need("GetTextOutput");
    for (const int table : present_) schemas_.at(table).Parameters().Append(out, target);
}

std::string CMemoryCard::StoreState() const {
    Need("StoreState");
    std::string text;
    AppendText(text, Target::Everything());
    return text;
}

bool CMemoryCard::IsDirty() const {
    Need("IsDirty");
    return present_ != saved_ || std::any_of(present_.begin(), present_.end(),
                                             [&](int table) { return schemas_.at(table).IsDirty(); });
}

void CMemoryCard::MarkSaved() {
    std::erase_if(schemas_, [&](const auto& schema) { return !present_.contains(schema.first); });
    saved_ = present_;
    for (Item* item : Items()) item->MarkSaved();
}

bool CMemoryCard::Owns(std::string_view key) const {
    const auto found = SchemaKey::Of(key);
    return found && found->slot == Position();
}

void CMemoryCard::Prepare(const std::vector<Change>& changes, Section::Check check) {
    const bool raw = check == Section::Check::None;  // whatever comes first of a table brings it
    for (const Change& change : changes) {
        const auto key = SchemaKey::Of(change.key);
        if (!key || key->slot != Position()) continue;
        const bool there = present_.contains(key->table);
        if (change.after && !there && (key->isName || raw)) Make(key->table);
        if (!change.after && key->isName) present_.erase(key->table);
    }
}

void CMemoryCard::Make(int table) {
    const auto [place, isNew] = schemas_.try_emplace(table, *context_);
    if (isNew) {
        place->second.Initialize(Position(), table);
    } else {
        place->second.ReloadDefaults();
    }
    present_.insert(table);
}

std::vector<int> CMemoryCard::Schemas() const {
    Need("Schemas");
    return {present_.begin(), present_.end()};
}

const CSchema& CMemoryCard::Schema(int table) const {
    Need("Schema");
    if (!present_.contains(table)) {
        Fail(code::kOutOfRange, "Schema", {std::to_string(table), context_->texts.Text(kTablesOfCard)});
    }
    return schemas_.at(table);
}
CSchema& CMemoryCard::Schema(int table) {
    return const_cast<CSchema&>(std::as_const(*this).Schema(table));
}

int CMemoryCard::Add(std::string_view name) {
    Need("Add");
    if (Trim(name).size() > kNameWidth) Fail(code::kTextTooLong, "Add", {});
    int table = 1;
    while (present_.contains(table)) ++table;
    if (table > SchemaKey::kMostTables) {
        Fail(code::kOutOfRange, "Add",
             {std::to_string(table), "1 to " + std::to_string(SchemaKey::kMostTables)});
    }
    Make(table);
    schemas_.at(table).SetName(name);
    return table;
}

int CMemoryCard::AddSample() {
    const int table = Add(FreeName("Truck"));
    schemas_.at(table).SetFields({{"Truck", "STRING", true},
                                  {"Pri_Wgt", "REAL", false},
                                  {"Sec_Wgt", "REAL", false},
                                  {"Ter_Wgt", "REAL", false},
                                  {"TimeDate", "DATETIME", false},
                                  {"Scale", "SHORT", false}});
    return table;
}

void CMemoryCard::Remove(int table) {
    static_cast<void>(Schema(table));
    present_.erase(table);
}

std::string CMemoryCard::CopyText(const std::vector<int>& tables) const {
    std::string text;
    for (const int table : tables) text += Schema(table).StoreState();
    return text;
}

std::vector<int> CMemoryCard::Paste(std::string_view text) {
    Need("Paste");
    Dictionary lines{std::string(text)};
    ReadReport passedOver;
    std::vector<CSchema> pasted;
    for (const auto& entry : std::vector(lines.Entries())) {
        const auto key = SchemaKey::Of(entry.key);
        if (!key || !key->isName) continue;
        CSchema& schema = pasted.emplace_back(*context_);
        schema.Initialize(key->slot, key->table);
        schema.RestoreState(lines, passedOver);
    }
    const std::size_t count = present_.size() + pasted.size();
    if (count > SchemaKey::kMostTables) {
        Fail(code::kOutOfRange, "Paste",
             {std::to_string(count), "1 to " + std::to_string(SchemaKey::kMostTables)});
    }
    std::vector<int> tables;
    for (const CSchema& schema : pasted) {
        tables.push_back(Add(FreeName(schema.Name())));
        schemas_.at(tables.back()).SetFields(schema.AllFields());
    }
    return tables;
}

// "Truck", "Truck2", "Truck3": the first that no table here has, in 8 characters.
std::string CMemoryCard::FreeName(std::string_view name) const {
    std::set<std::string> taken;
    for (const int table : present_) taken.insert(Upper(schemas_.at(table).Name()));
    std::string free(name);
    const std::string_view base = name.substr(0, name.find_last_not_of("0123456789") + 1);
    for (int next = 2; !free.empty() && taken.contains(Upper(free)); ++next) {
        const std::string behind = std::to_string(next);
        free = std::string(base.substr(0, kNameWidth - behind.size())) + behind;
    }
    return free;
}

std::string CMemoryCard::GetIWriteImportDef() const {
    Need("GetIWriteImportDef");
    std::string text;
    for (const int table : present_) text += schemas_.at(table).GetIWriteImportDef();
    return text;
}

void CMemoryCard::AddBrokenRules(CBrokenRules& rules, std::string_view section,
                                 std::set<std::string>& names) const {
    for (const int table : present_) {
        const CSchema& schema = schemas_.at(table);
        schema.AddBrokenRules(rules, section);
        if (schema.Name().empty() || names.insert(Upper(schema.Name())).second) continue;
        rules.Add({std::string(section), table, NameKey(table, Position()),
                   context_->texts.Format(kSameTable, {schema.Name()})});
    }
}

}  // namespace calyx
