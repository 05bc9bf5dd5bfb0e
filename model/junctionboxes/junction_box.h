#pragma once

#include <string>
#include <vector>

#include "model/junctionboxes/box_fields.h"
#include "model/junctionboxes/junction_box_lists.h"
#include "model/language/broken_rules.h"
#include "model/language/row_object.h"

namespace calyx {

// One junction box on a serial port: up to 16 load cells, combined into platforms and these into a system
// that acts as one scale. Cells, platforms, systems and points count from 1.
//
// Everything before Initialize raises 10006; a number beyond its limit raises 10002.
class CJunctionBox : public RowObject<BoxFields> {
  public:
    explicit CJunctionBox(const ModelContext& context)
        : RowObject(context, kBoxTable, "CJunctionBox"), lists_(context) {}

    static constexpr int MaxLoadCells() { return BoxFields::kCells; }
    static constexpr int MaxPlatforms() { return BoxFields::kPlatforms; }
    static constexpr int MaxSystems() { return BoxFields::kSystems; }
    static constexpr int MaxDigitalIO() { return BoxFields::kPoints; }
    static constexpr int MaxLinearPoints() { return BoxFields::kLinearPoints; }  // per platform

    void Initialize(int port);                            // 1 to 32
    void Initialize(int port, const CJunctionBox& like);  // the same, quicker for many
    void ReloadDefaults() { Parameters().ReloadDefaults(); }
    int PortNumber() const { return Number(); }

    const CTextList& HardwareConfigSelections() const { return lists_.HardwareConfigs(); }
    const CTextList& SectionTypeSelections() const { return lists_.SectionTypes(); }
    const CTextList& AnalogRangeSelections() const { return lists_.AnalogRanges(); }
    const CTextList& PlatformCalTypes() const { return lists_.PlatformCalTypes(); }
    const CTextList& DiagCellEmuTypes() const { return lists_.DiagCellEmuTypes(); }
    const CTextList& DigitalIODefinitions() const { return lists_.DigitalIODefinitions(); }

    // The cells that the hardware configuration has connectors for: "8/4/0/0" gives 1 to 12.
    std::vector<int> AllowedLoadCells() const;
    // Board and place on it, "2.3"; empty for a cell without a connector.
    std::string LoadCellConnector(int cell) const;
    bool LoadCellUsed(int cell) const { return PlatformOf(cell) != 0; }
    int PlatformOf(int cell) const;  // 0: assigned to none

    std::vector<int> PlatformLoadCells(int platform) const;
    std::vector<int> SystemPlatforms(int system = 1) const;

    // A cell belongs to one platform at most: assigning it takes it from the other. A cell without a
    // connector raises 10002.
    void AssignLoadCellToPlatform(int cell, int platform);
    void UnassignLoadCellFromPlatform(int cell, int platform);  // nothing when it is not there
    void MoveLoadCell(int cell, int from, int to);              // 10002 when it is not on `from`
    void AssignPlatformToSystem(int platform, int system = 1);
    void UnAssignPlatformFromSystem(int platform, int system = 1);

    // At least one cell; each has a connector and belongs to no other platform.
    bool IsPlatformValid(int platform) const;
    // At least one platform, all of them valid.
    bool IsSystemValid(int system = 1) const;
    bool IsPlatformUsedInSystem(int platform) const;

    // What is wrong between cells, platforms and system. An empty platform outside the system is not.
    void AddBrokenRules(CBrokenRules& rules, std::string_view section) const;

  private:
    void Need(int number, int most, const char* operation) const;
    const std::string& Cells(int platform) const;
    std::string& Cells(int platform);
    bool HasConnector(int cell) const { return cell <= CellCount(); }
    int CellCount() const;

    CJunctionBoxLists lists_;
};

}  // namespace calyx
