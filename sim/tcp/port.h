#pragma once

#include <asio.hpp>
#include <system_error>

namespace calyx::sim {

// Gives the acceptor this port and no other program with it, now or later; the remains of a connection that
// has ended may hold the port and do not count. One file a system.
std::error_code TakePort(asio::ip::tcp::acceptor& acceptor, const asio::ip::tcp::endpoint& endpoint);

}  // namespace calyx::sim
