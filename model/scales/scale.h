#pragma once

#include <string>
#include <string_view>

#include "model/language/row_object.h"
#include "model/language/section.h"
#include "model/scales/scale_fields.h"

namespace calyx {

// One scale, 1 to 32. Its kind decides where the weight comes from and which parameters it has. The
// calibration lines are kept apart from the parameters, so that a download can leave an indicator's
// calibration as it is. Everything before Initialize raises 10006.
//
// A value: a copy is a scale of its own.
class CScale : public RowObject<ScaleFields> {
  public:
    explicit CScale(const ModelContext& context) : RowObject(context, kScaleTable, "CScale") {}

    void Initialize(int scaleNumber);  // 10002 outside 1 to 32
    void InitializeLike(const CScale& other, int scaleNumber);
    int ScaleNumber() const { return Number(); }
    void ReloadDefaults() { Parameters().ReloadDefaults(); }

    std::int32_t ScaleType() const;
    // 10002 outside 1 to 8; 10008 while sources are assigned, a programmable scale excepted. Sources,
    // graduations and calibration values become those that the kind starts with; the alias, which has no
    // line then, goes with kind 1.
    void SetScaleType(std::int32_t kind);
    std::string KindName() const;

    // The sources: channels, scales or a port, as the kind says; for a Vexal scale VexalSource. A scale that
    // is not configured takes some as well, but has no line for them.
    std::int32_t ComponentCount() const { return Values().sourceCount; }
    std::int32_t Components(int place) const;   // 1 to ComponentCount, else 10002
    void AddComponent(std::int32_t source);     // 10002 when the kind takes no more
    void RemoveComponent(std::int32_t source);  // 10002 for one that is not there

    // A parameter by the stem of its key ("PRI.UNITS"), as it stands in the line; 10002 for a stem that
    // scales do not have and for a value that the parameter does not take. A source of another kind brings
    // what SetScaleType brings.
    std::string Command(std::string_view stem) const;
    void SetCommand(std::string_view stem, std::string_view text);
    std::string Pri_UnitsCommand() const { return Command("PRI.UNITS"); }
    std::string Pri_DecimalPointCommand() const { return Command("PRI.DECPNT"); }
    std::string AnalogInputRangeCommand() const { return Command("INPRNG"); }
    std::string SplitValueCommand() const { return Command("SPLIT"); }

    // The value of a line by its full name, "SC.GRADS#3"; `absent` where there is none.
    static std::string FindParameter(Dictionary& lines, std::string_view name, std::string_view absent) {
        return lines.FindParameter(name, absent);
    }

    // The calibration lines; GetTextOutput has the others.
    std::string GetCalibrationValues(bool allParameters) const;
    std::string GetPrintOutput() const;      // empty for a scale that is not configured
    std::string GetIWriteImportDef() const;  // empty without an alias
    // False: stopped by the callback.
    bool SendToIndicator(ILineSender& sender, IDownload& download) const;
    bool SendCalibrationToIndicator(ILineSender& sender, IDownload& download) const;

    // All fields, for a dialog that can be cancelled.
    CScale Clone() const { return *this; }
    ScaleFields StoreState() const { return Values(); }
    void RestoreState(const ScaleFields& stored);
    // Reads the scale's lines. What an "S" source is, the line EDP.INPUT of its port says. Of a scale
    // that is not configured nothing else is read, and the other fields stay as they are.
    void RestoreState(Dictionary& lines, ReadReport& report);

  private:
    void CheckNumber(int scaleNumber) const;
    std::size_t RowOf(std::string_view stem, std::string_view operation) const;
    void PassOver(Dictionary& lines, ReadReport& report);
    std::string WhyNotConfigured(std::string_view source, const Dictionary& lines) const;
    void AppendPrinted(std::string& out, std::size_t row) const;
};

}  // namespace calyx
