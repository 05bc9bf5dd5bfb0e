#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/language/section.h"
#include "model/setpoints/setpoint.h"
#include "model/setpoints/setpoint_lists.h"

namespace calyx {

// The 100 setpoints. A new one is off and writes its kind alone.
//
// An edit that turns a setpoint off clears its alias, which would not be saved; one that makes it a pulse
// rate gives it a band trip. Undo takes its values as they are.
class CSetpoints : public Section {
  public:
    explicit CSetpoints(const ModelContext& context);

    std::string_view Name() const override { return "setpoints"; }
    int Title() const override { return 2125; }
    using Section::Items;
    std::vector<calyx::Item*> Items() override;
    void Initialize() override;
    // What the lines do not say is as in a new setpoint; values, references, times and the alias stay.
    void RestoreState(Dictionary& lines, ReadReport& report) override;
    bool Owns(std::string_view key) const override;

    // By number, 1 to 100, or by key, "K1" to "K100"; any other raises 10002.
    CSetpoint& Item(int number);
    const CSetpoint& Item(int number) const;
    CSetpoint& Item(std::string_view key);
    const CSetpoint& Item(std::string_view key) const;
    int Count() const { return kSetpoints; }
    auto begin() const { return setpoints_.begin(); }
    auto end() const { return setpoints_.end(); }
    const CSetpointLists& Lists() const { return lists_; }

    // The setpoints that are configured; on request those that are off as well.
    std::string GetPrintOutput() const override { return GetPrintOutput(false); }
    std::string GetPrintOutput(bool offToo) const;
    std::string GetIWriteImportDef() const override;

  protected:
    void Prepare(std::vector<Change>& changes, Check check, const ValueOf& valueOf) override;
    void AddBrokenRules(CBrokenRules& rules) const override;

  private:
    [[noreturn]] void NoSuchSetpoint(std::string_view key) const;

    CSetpointLists lists_;
    std::vector<CSetpoint> setpoints_;
};

}  // namespace calyx
