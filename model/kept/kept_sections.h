#pragma once

#include <span>
#include <string_view>

#include "model/kept/kept_lines.h"
#include "model/language/section.h"

namespace calyx {

// Which alias lines a section turns into constants of the import file.
struct AliasBlock {
    std::string_view heading;  // "-- Scale Aliases"
    std::string_view start;    // "SC.ALIAS#"
    std::size_t padTo = 0;     // the alias padded to this width; 0: as it stands
};

// What a section of kept lines is.
struct KeptKind {
    std::string_view name;
    int title;
    std::span<const std::string_view> starts;    // keys it owns
    std::span<const std::string_view> withheld;  // of these, what its text for an indicator leaves out
    std::span<const AliasBlock> aliases;
};

// A section that keeps the lines it owns. Its text for an indicator is ungated and holds no lines
// that are not the program's to send: calibration, statistics, serial numbers.
class KeptSection : public Section {
  public:
    KeptSection(const ModelContext& context, const KeptKind& kind)
        : Section(context), kind_(&kind), lines_(kind.starts) {}

    std::string_view Name() const override { return kind_->name; }
    int Title() const override { return kind_->title; }
    std::vector<Item*> Items() override { return {&lines_}; }
    void AppendText(std::string& out, const Target& target) const override;
    std::string GetIWriteImportDef() const override;

    const std::vector<KeyValue>& Lines() const { return lines_.Lines(); }
    // The lines whose key begins with one of the starts, each ended by CR LF.
    std::string LinesOf(std::span<const std::string_view> starts) const;

  private:
    const KeptKind* kind_;
    KeptLines lines_;
};

class CPrompts : public KeptSection {
  public:
    explicit CPrompts(const ModelContext& context);
};
class CScales : public KeptSection {
  public:
    explicit CScales(const ModelContext& context);
    std::string GetCalibrationValues() const;
};
class CTickets : public KeptSection {
  public:
    explicit CTickets(const ModelContext& context);
};
class CWidgets : public KeptSection {
  public:
    explicit CWidgets(const ModelContext& context);
};
class CSetpoints : public KeptSection {
  public:
    explicit CSetpoints(const ModelContext& context);
};
class CCustomParms : public KeptSection {
  public:
    explicit CCustomParms(const ModelContext& context);
};
class CJunctionBoxes : public KeptSection {
  public:
    explicit CJunctionBoxes(const ModelContext& context);
};

}  // namespace calyx
