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
        : RowObject(context, kPortTable, "CCommPort"), lists_(context), stream_(context) {}

    void Initialize(int portNumber);                              // 10002 outside 1 to 32
    void InitializeLike(const CCommPort& other, int portNumber);  // the same, quicker
    int PortNumber() const { return Number(); }
    // As Initialize, but the baud rate becomes 9600 on every port, port 2 included: on purpose.
    void ReloadDefaults();

    CStream& Stream() { return stream_; }
    const CStream& Stream() const { return stream_; }

    std::string Alias() const { return std::string(Values().alias.Trimmed()); }
    std::string InputType() const { return std::string(Values().inputType.Trimmed()); }
    std::string StreamType() const { return std::string(Values().streamType.Trimmed()); }
    std::string StreamFormat() const { return std::string(Values().streamFormat.Trimmed()); }
    int Address() const { return Values().address; }
    int EOL() const { return Values().endOfLineDelay; }
    int Source() const { return Values().source; }

    // The lists of this port's number.
    const CTextList& BaudRates() const { return lists_.BaudRates(PortNumber()); }
    const CTextList& HandshakingTypes() const { return lists_.Handshakes(PortNumber()); }
    const CTextList& InputTypes() const { return lists_.InputTypes(PortNumber()); }
    const CTextList& BitsTypes() const { return Lists("BitsTypes").BitsTypes(); }
    const CTextList& StopBitsTypes() const { return Lists("StopBitsTypes").StopBitsTypes(); }
    const CTextList& TerminatorTypes() const { return Lists("TerminatorTypes").TerminatorTypes(); }
    const CTextList& StreamTypes() const { return Lists("StreamTypes").StreamTypes(); }
    const CTextList& StreamFormats() const { return Lists("StreamFormats").StreamFormats(); }
    const CTextList& PortTypes() const { return Lists("PortTypes").PortTypes(); }
    const CTextList& DuplexTypes() const { return Lists("DuplexTypes").DuplexTypes(); }

    // The keys of these parameters for this port: "EDP.BITS#3".
    std::string BitsCommand() const { return KeyOf("BITS"); }
    std::string InputTypeCommand() const { return KeyOf("INPUT"); }
    std::string StreamTypeCommand() const { return KeyOf("STREAM"); }
    std::string StreamFormatCommand() const { return KeyOf("FORMAT"); }

    void SetAddress(int address);  // 0 to 255, else 10002
    void SetEOL(int delay);        // 0 to 255, else 10002
    void SetAlias(
        std::string_view alias);  // at most 8 characters, else 10001; an identifier or empty, else 10010

    void RestoreState(Dictionary& lines, ReadReport& report);  // with its stream
    bool IsDirty() const { return RowObject::IsDirty() || stream_.IsDirty(); }
    // The lines for the target version, and the stream's behind them where it is in use and all of them were
    // accepted. `inputFirst`: the input type goes before all others. False: stopped by the callback.
    bool SendToIndicator(ILineSender& sender, IDownload& download, bool inputFirst = false) const;
    // What a download sends: the gated lines, and the stream's where the port uses its definition.
    void AppendSent(std::string& out, const Target& target) const;
    // One constant of the Scrivo language, the alias with its padding; nothing without an alias.
    std::string GetIWriteImportDef() const;

  private:
    void CheckNumber(int portNumber) const;
    const CCommPortLists& Lists(std::string_view operation) const {
        Need(operation);
        return lists_;
    }
    std::string KeyOf(std::string_view stem) const;

    CCommPortLists lists_;
    CStream stream_;
};

}  // namespace calyx
