#pragma once

#include <algorithm>
#include <array>
#include <asio.hpp>
#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

#include "sim/shared_simulator.h"

namespace calyx::sim {

// One open wire at a time: reads, lets the indicator answer, writes, until the host or a fault closes it.
// It goes on reading only when the answer is out, so that a host which never reads costs no memory.
//
// Stream is any Asio stream: a TCP socket, a serial port, a pseudo-terminal. Everything runs in handlers
// of the stream's executor; the session may be destroyed when its last handler has run.
template <class Stream>
class Session {
  public:
    using Handler = std::function<void()>;

    // `exchanged` is called after every run of lines answered, `closed` after the stream has been closed.
    Session(SharedSimulator& indicator, Handler exchanged, Handler closed)
        : indicator_(indicator), exchanged_(std::move(exchanged)), closed_(std::move(closed)) {}

    // Needs the stream before it, if there was one, to be closed.
    void Start(Stream stream) {
        stream_.emplace(std::move(stream));
        indicator_.NewConnection();
        Read();
    }

    // Ends the stream from this side; `closed` follows.
    void Close() {
        std::error_code ignored;
        if (stream_) stream_->close(ignored);
    }

  private:
    void Read() {
        stream_->async_read_some(asio::buffer(input_), [this](std::error_code error, std::size_t count) {
            if (error) return Finish();
            unread_ = {input_.data(), count};
            Answer();
        });
    }

    void Answer() {
        while (!unread_.empty()) {
            reply_ = indicator_.Exchange(unread_);
            if (!reply_.bytes.empty()) return Write(0);
            if (reply_.close) return Finish();
        }
        exchanged_();
        Read();
    }

    void Write(std::size_t start) {
        const auto rest = reply_.bytes.size() - start;
        const auto count = reply_.pieceBytes == 0 ? rest : std::min(rest, reply_.pieceBytes);
        asio::async_write(*stream_, asio::buffer(reply_.bytes.data() + start, count),
                          [this, start](std::error_code error, std::size_t written) {
                              if (error) return Finish();
                              if (start + written < reply_.bytes.size()) return Write(start + written);
                              if (reply_.close) return Finish();
                              Answer();
                          });
    }

    void Finish() {
        Close();
        closed_();
    }

    SharedSimulator& indicator_;
    Handler exchanged_;
    Handler closed_;
    std::optional<Stream> stream_;
    std::array<char, 16384> input_{};
    std::string_view unread_;  // the part of input_ that is still to be answered
    Reply reply_;
};

}  // namespace calyx::sim
