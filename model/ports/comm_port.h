#pragma once

#include <string>
#include <string_view>

#include "model/language/row_object.h"
#include "model/language/section.h"
#include "model/ports/port_lists.h"
#include "model/ports/stream.h"

namespace calyx {

// One serial port, 1 to 32. Ports 1 to 4 are the main board's; a dual serial card in slot s brings the
// ports 2s+3 and 2s+4. Everything before Initialize raises 10006.
class CCommPort : public RowObject<PortFields> {
  public:
    explicit CCommPort(const ModelContext& context)
        : RowObject(context, kPortTable, "CCommPort"), stream_(context) {}

    void Initialize(int portNumber);  // 10002 outside 1 to 32
    int PortNumber() const { return Number(); }
    // As Initialize, but the baud rate becomes 9600 on every port, port 2 included: on purpose.
    void ReloadDefaults();

    CStream& Stream() { return stream_; }
    const CStream& Stream() const { return stream_; }

    void SetAddress(int address);  // 0 to 255, else 10002
    void SetEOL(int delay);        // 0 to 255, else 10002
    void SetAlias(
        std::string_view alias);  // at most 8 characters, else 10001; an identifier or empty, else 10010

    void RestoreState(Dictionary& lines, ReadReport& report);  // with its stream
    bool IsDirty() const { return RowObject::IsDirty() || stream_.IsDirty(); }
    // The lines for the target version, and the stream's behind them where it is in use and they were taken.
    // `inputFirst`: the input type goes before all others. False: stopped by the callback.
    bool SendToIndicator(ILineSender& sender, IDownload& download, bool inputFirst = false) const;
    // What a download sends: the gated lines, and the stream's where the port uses its definition.
    void AppendSent(std::string& out, const Target& target) const;
    // One constant of the Scrivo language, the alias with its padding; nothing without an alias.
    std::string GetIWriteImportDef() const;

  private:
    CStream stream_;
};

}  // namespace calyx
