#include "sim/tcp/port.h"

namespace calyx::sim {

// Reuse would let any other program take the port over here, so it is forbidden to them.
std::error_code TakePort(asio::ip::tcp::acceptor& acceptor, const asio::ip::tcp::endpoint& endpoint) {
    const BOOL exclusive = TRUE;
    std::error_code error;
    if (setsockopt(acceptor.native_handle(), SOL_SOCKET, SO_EXCLUSIVEADDRUSE,
                   reinterpret_cast<const char*>(&exclusive), sizeof(exclusive)) != 0)
        return {WSAGetLastError(), asio::error::get_system_category()};
    acceptor.bind(endpoint, error);
    if (!error) acceptor.listen(asio::ip::tcp::acceptor::max_listen_connections, error);
    return error;
}

}  // namespace calyx::sim
