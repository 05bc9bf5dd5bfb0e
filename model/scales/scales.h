#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/language/section.h"
#include "model/scales/scale.h"
#include "model/scales/scale_lists.h"
#include "model/scales/scale_source.h"

namespace calyx {

// The scales 1 to 32 of a configuration. In the file each scale's parameter lines are followed by its
// calibration lines; the text for an indicator holds no calibration, which is a step of its own.
class CScales : public Section {
  public:
    explicit CScales(const ModelContext& context);

    std::string_view Name() const override { return "scales"; }
    int Title() const override { return 2122; }
    std::vector<Item*> Items() override;
    void RestoreState(Dictionary& lines, ReadReport& report) override;
    void AppendState(std::string& out) const override;
    void AppendText(std::string& out, const Target& target) const override;
    std::string GetPrintOutput() const override;
    std::string GetIWriteImportDef() const override;

    // The calibration lines of all configured scales.
    void AppendCalibration(std::string& out, const Target& target) const;
    std::string GetCalibrationValues(bool allParameters) const;
    bool SendCalibrationToIndicator(ILineSender& sender, IDownload& download) const;

    CScale& Scale(int number);  // 1 to 32, else 10002
    const CScale& Scale(int number) const;
    const CScaleLists& Lists() const { return lists_; }

    using Section::IsValid;
    bool IsValid(int number) const;  // of one scale
    // All that is wrong, the serial ports included: entries "message ( #3)" with "|" between them.
    std::string Validate(const PortInput& inputOf) const;

  protected:
    // Another source brings its kind, another kind what goes with it. The kind of an "S" source is that
    // of the port's input type; where that does not fit, the form of the source decides.
    void Prepare(std::vector<Change>& changes, Check check, const ValueOf& valueOf) override;
    void AddBrokenRules(CBrokenRules& rules) const override;

  private:
    CScaleLists lists_;
    std::vector<CScale> scales_;
};

}  // namespace calyx
