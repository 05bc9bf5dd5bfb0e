#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "model/database/schema.h"
#include "model/language/section.h"

namespace calyx {

// The memory card in one slot, with the layouts ("schemas") of the database tables that it keeps. Tables are
// numbered from 1 to 16; a table exists when it has the line of its name. The lines are described in
// docs/database.md.
//
// It is a part of the hardware section, which asks it for its items and hands it what concerns its slot.
// Everything before Initialize raises 10006.
class CMemoryCard {
  public:
    explicit CMemoryCard(const ModelContext& context) : context_(&context) {}

    void Initialize(int slot);  // 1 to 14, else 10002; no tables
    void ReloadDefaults();      // no tables: against what was saved a change
    int Position() const;

    std::vector<Item*> Items();
    void RestoreState(Dictionary& lines, ReadReport& report);
    void AppendText(std::string& out, const Target& target) const;  // the same for every firmware
    std::string StoreState() const;
    bool IsDirty() const;
    void MarkSaved();
    // Keys of this slot, also of tables that are not there at present.
    bool Owns(std::string_view key) const;
    // Before changes are taken: tables come with their name and go with it.
    void Prepare(const std::vector<Change>& changes, Section::Check check);

    // The tables' numbers, ascending.
    std::vector<int> Schemas() const;
    const CSchema& Schema(int table) const;  // 10002 when there is none
    CSchema& Schema(int table);
    int Add(std::string_view name);  // the lowest free number; 10002 when all are taken
    int AddSample();                 // a table of truck weighings, to start from
    void Remove(int table);

    // Tables as lines of text, for the clipboard ("CalyxSchema"), and back as new tables. A name that is
    // taken here gets a number behind it. 10002 when they do not all fit; none is added then.
    std::string CopyText(const std::vector<int>& tables) const;
    std::vector<int> Paste(std::string_view text);

    // The declarations of all tables, without a heading.
    std::string GetIWriteImportDef() const;
    // What the rows do not say: tables without fields, names that occur twice. `names`: those of the tables
    // of other cards, in capitals; these are added.
    void AddBrokenRules(CBrokenRules& rules, std::string_view section, std::set<std::string>& names) const;

  private:
    void Need(const char* operation) const;
    void Make(int table);
    std::string FreeName(std::string_view name) const;
    [[noreturn]] void Fail(int code, const char* operation,
                           std::initializer_list<std::string_view> words) const;

    const ModelContext* context_;
    int slot_ = 0;
    // Tables that were removed stay here until the next save: they know what was saved.
    std::map<int, CSchema> schemas_;
    std::set<int> present_, saved_;
};

}  // namespace calyx
