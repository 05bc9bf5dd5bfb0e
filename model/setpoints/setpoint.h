#pragma once

#include <string>
#include <string_view>

#include "model/language/row_object.h"
#include "model/language/section.h"
#include "model/setpoints/setpoint_fields.h"

namespace calyx {

// One setpoint, 1 to 100: a trip point or a step of the batch. Its parameters are the rows of
// kSetpointTable; only those with a check of their own have a setter. Everything before Initialize raises
// 10006.
class CSetpoint : public RowObject<SetpointFields> {
  public:
    explicit CSetpoint(const ModelContext& context) : RowObject(context, kSetpointTable, "CSetpoint") {}

    void Initialize(int setpointNumber);  // 10002 outside 1 to 100
    // The same with the value lists of another setpoint, which must be initialised: for many at a time.
    void InitializeLike(const CSetpoint& other, int setpointNumber);

    // Keeps all other fields but what the new kind cannot do: an alias when it is off, a trip that is no
    // band for a pulse rate. 10002 outside 1 to 32.
    void SetKind(int kind);
    int Kind() const;
    static int FindKindByCommand(std::string_view command) { return calyx::FindKindByCommand(command); }
    // At most 8 characters, else 10001; an identifier or empty, else 10010.
    void SetAlias(std::string_view alias);

    // The value of a line by its full name, "SP.VALUE#3"; `absent` where there is none.
    static std::string FindParameter(Dictionary& lines, std::string_view name, std::string_view absent) {
        return lines.FindParameter(name, absent);
    }
    // Number, kind and alias, then a line a parameter that the setpoint writes.
    std::string GetPrintOutput() const;
    // One constant of the Scrivo language; nothing without an alias.
    std::string GetIWriteImportDef() const;
    // False: stopped by the callback.
    bool SendToIndicator(ILineSender& sender, IDownload& download) const;

    CSetpoint Clone() const { return *this; }
};

}  // namespace calyx
