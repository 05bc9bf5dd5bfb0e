// Wires whose device goes away while they are open, as systems and drivers tell it: by all kinds of numbers,
// in a read or in a write.

#include <gtest/gtest.h>

#include <optional>

#include "comm/stream_transport.h"

namespace calyx::test {
namespace {

// A stream that brings some characters, and fails as it is told.
class FailingStream {
  public:
    using executor_type = asio::io_context::executor_type;
    explicit FailingStream(asio::io_context& io) : io_(io) {}

    executor_type get_executor() { return io_.get_executor(); }
    void close(std::error_code&) { closed = true; }

    template <class Buffer, class Handler>
    void async_read_some(const Buffer& buffer, Handler&& handler) {
        std::error_code error;
        const std::size_t count = asio::buffer_copy(buffer, asio::buffer(arriving));
        arriving.clear();
        if (count == 0) {
            if (!readError) return;  // nothing comes
            error = *readError;
        }
        asio::post(io_, [handler = std::forward<Handler>(handler), error, count]() mutable {
            handler(error, count);
        });
    }
    template <class Buffers, class Handler>
    void async_write_some(const Buffers& buffers, Handler&& handler) {
        const std::error_code error = writeError.value_or(std::error_code());
        const std::size_t count = error ? 0 : asio::buffer_size(buffers);
        asio::post(io_, [handler = std::forward<Handler>(handler), error, count]() mutable {
            handler(error, count);
        });
    }

    std::string arriving;
    std::optional<std::error_code> readError, writeError;
    bool closed = false;

  private:
    asio::io_context& io_;
};

class FailingWire : public StreamTransport<FailingStream> {
  public:
    using StreamTransport::Opened;
    FailingStream& Device() { return stream_; }
};

// Windows' own, of drivers whose adapter was pulled out, and those of POSIX.
constexpr int kNumbers[] = {5, 6, 19, 22, 31, 433, 995, 1117, 1167, 1617};

TEST(LostWire, IsClosedByAnyFailureOfARead) {
    for (const int number : kNumbers) {
        FailingWire wire;
        wire.Device().arriving = "OK\r";
        wire.Device().readError.emplace(number, std::system_category());
        wire.Opened();
        wire.Wait(1000);
        EXPECT_EQ(wire.Read(), "OK\r") << "what came before is not lost";
        wire.Wait(1000);
        EXPECT_FALSE(wire.IsOpen()) << number;
        EXPECT_TRUE(wire.Device().closed) << "so that the port can be opened again";
        wire.Write("UID=1\r");
        EXPECT_EQ(wire.Read(), "");
        EXPECT_NO_THROW(wire.Close());
    }
}

TEST(LostWire, IsClosedByAnyFailureOfAWrite) {
    for (const int number : kNumbers) {
        FailingWire wire;
        wire.Opened();
        wire.Write("UID=1\r");
        EXPECT_TRUE(wire.IsOpen());
        wire.Device().writeError.emplace(number, std::system_category());
        wire.Write("UID=2\r");
        wire.Wait(0);
        EXPECT_FALSE(wire.IsOpen()) << number;
    }
}

}  // namespace
}  // namespace calyx::test
