#include "model/ports/port_lists.h"

#include "model/language/item.h"

namespace calyx {

namespace port_list {

std::string_view Baud(int port) {
    return port >= 1 && port <= 4 ? "COM1234.BAUD" : "COM5P.BAUD";
}

std::string_view Handshake(int port) {
    return port == 2 ? "COM2.HNDSHK" : "COM.HNDSHK";
}

std::string_view Input(int port) {
    switch (port) {
        case 1:
            return "COM1.INPUT";
        case 2:
            return "COM2.INPUT";
        case 3:
            return "COM3.INPUT";
        default:
            return "COM4P.INPUT";
    }
}

}  // namespace port_list

const CTextList& CCommPortLists::Get(std::string_view name) const {
    return *detail::NeedList(name, *context_);
}

const CTextList& CCommPortLists::BaudRates(int port) const {
    return Get(port_list::Baud(port));
}

const CTextList& CCommPortLists::Handshakes(int port) const {
    return Get(port_list::Handshake(port));
}

const CTextList& CCommPortLists::InputTypes(int port) const {
    return Get(port_list::Input(port));
}

}  // namespace calyx
