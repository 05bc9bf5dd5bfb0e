#pragma once

#include "model/language/context.h"

namespace calyx {

// The value lists of the serial ports, from the catalogue; some depend on the port's number. A list that
// the catalogue lacks raises 20005.
class CCommPortLists {
  public:
    explicit CCommPortLists(const ModelContext& context) : context_(&context) {}

    const CTextList& BaudRates(int port) const;   // ports 1 to 4, and every other number
    const CTextList& Handshakes(int port) const;  // port 2, and every other number
    const CTextList& InputTypes(int port) const;  // ports 1, 2, 3, and every other number
    const CTextList& BitsTypes() const { return Get("COM.BITS"); }
    const CTextList& StopBitsTypes() const { return Get("COM.STOPBITS"); }
    const CTextList& TerminatorTypes() const { return Get("COM.TERM"); }
    const CTextList& StreamTypes() const { return Get("COM.STRTYPS"); }
    const CTextList& StreamFormats() const { return Get("COM.STRFMTS"); }
    const CTextList& DuplexTypes() const { return Get("COM.DUPLEX"); }
    const CTextList& PortTypes() const { return Get("COM.TYPE"); }

  private:
    const CTextList& Get(std::string_view name) const;

    const ModelContext* context_;
};

namespace port_list {
// The catalogue's names of the lists that depend on the port.
std::string_view Baud(int port);
std::string_view Handshake(int port);
std::string_view Input(int port);
}  // namespace port_list

}  // namespace calyx
