#include "sim/tcp/port.h"

namespace calyx::sim {

// Reuse means here that the remains of a connection do not count: of two that listen the second is refused.
std::error_code TakePort(asio::ip::tcp::acceptor& acceptor, const asio::ip::tcp::endpoint& endpoint) {
    std::error_code error;
    acceptor.set_option(asio::ip::tcp::acceptor::reuse_address(true), error);
    acceptor.bind(endpoint, error);
    if (!error) acceptor.listen(asio::ip::tcp::acceptor::max_listen_connections, error);
    return error;
}

}  // namespace calyx::sim
