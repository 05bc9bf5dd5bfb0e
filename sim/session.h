#pragma once

#include <algorithm>
#include <array>
#include <asio.hpp>
#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "sim/shared_simulator.h"

namespace calyx::sim {

// What a line does to the bytes that go over it.
struct LineEffects {
    // Changes bytes on their way, in both directions: a wrong rate makes them garbage. Empty: as they are.
    std::function<void(std::span<char>)> spoil{};
    // How long so many bytes are on their way. Empty: no time.
    std::function<std::chrono::nanoseconds(std::size_t)> pace{};
};

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
    Session(SharedSimulator& indicator, Handler exchanged, Handler closed, LineEffects effects = {})
        : indicator_(indicator),
          exchanged_(std::move(exchanged)),
          closed_(std::move(closed)),
          effects_(std::move(effects)) {}

    // Needs the stream before it, if there was one, to be closed.
    void Start(Stream stream) {
        stream_.emplace(std::move(stream));
        rest_.emplace(stream_->get_executor());
        tick_.emplace(stream_->get_executor());
        lineFree_ = {};
        writing_ = false;
        indicator_.NewConnection();
        Tick();
        Read();
    }

    // Ends the stream from this side; `closed` follows.
    void Close() {
        std::error_code ignored;
        if (!stream_) return;
        rest_->cancel();
        tick_->cancel();
        stream_->close(ignored);
    }

  private:
    using Clock = std::chrono::steady_clock;

    void Read() {
        stream_->async_read_some(asio::buffer(input_), [this](std::error_code error, std::size_t count) {
            if (error) return Finish();
            unread_ = {input_.data(), count};
            if (effects_.spoil) effects_.spoil({input_.data(), count});
            After(OnTheLine(count, Gap::AsItCame), [this] { Answer(); });
        });
    }

    void Answer() {
        while (!unread_.empty()) {
            reply_ = indicator_.Exchange(unread_);
            if (!reply_.bytes.empty()) {
                if (effects_.spoil) effects_.spoil(reply_.bytes);
                return After(std::chrono::milliseconds(reply_.delayMs), [this] { Write(0); });
            }
            if (reply_.close) return Finish();
        }
        exchanged_();
        Read();
    }

    void Write(std::size_t start) {
        if (writing_) {  // the stream's own characters are going out
            waiting_ = start;
            return;
        }
        const auto rest = reply_.bytes.size() - start;
        constexpr std::size_t kPacedPiece = 16;  // a slow line brings a long answer bit by bit
        auto count = reply_.pieceBytes == 0 ? rest : std::min(rest, reply_.pieceBytes);
        if (effects_.pace) count = std::min(count, kPacedPiece);
        writing_ = true;
        After(OnTheLine(count, Gap::None), [this, start, count] {
            asio::async_write(*stream_, asio::buffer(reply_.bytes.data() + start, count),
                              [this, start](std::error_code error, std::size_t written) {
                                  writing_ = false;
                                  if (error) return Finish();
                                  if (start + written < reply_.bytes.size()) return Write(start + written);
                                  if (reply_.close) return Finish();
                                  Answer();
                              });
        });
    }

    // Characters that nobody asked for, as long as a fault sends them; it may come and go at any time.
    void Tick() {
        constexpr int kLookMs = 50;
        const Unasked streamed = indicator_.Streams();
        tick_->expires_after(std::chrono::milliseconds(streamed.everyMs > 0 ? streamed.everyMs : kLookMs));
        tick_->async_wait([this](std::error_code error) {
            if (error) return;
            streamed_ = indicator_.Streams();
            if (streamed_.everyMs == 0 || writing_) return Tick();
            if (effects_.spoil) effects_.spoil(streamed_.bytes);
            writing_ = true;
            asio::async_write(*stream_, asio::buffer(streamed_.bytes),
                              [this](std::error_code failed, std::size_t) {
                                  writing_ = false;
                                  if (failed) return;
                                  if (const auto start = std::exchange(waiting_, std::nullopt)) Write(*start);
                                  Tick();
                              });
        });
    }

    // The line carries one byte after the other: they are through when those before them are, too. What the
    // indicator sends follows without a gap, however late this thread was woken for it.
    enum class Gap { None, AsItCame };
    std::chrono::nanoseconds OnTheLine(std::size_t bytes, Gap gap) {
        if (!effects_.pace) return {};
        const auto now = Clock::now();
        const bool follows = gap == Gap::None && lineFree_ != Clock::time_point{};
        lineFree_ = (follows ? lineFree_ : std::max(lineFree_, now)) + effects_.pace(bytes);
        return lineFree_ - now;
    }

    template <class Then>
    void After(std::chrono::nanoseconds time, Then then) {
        if (time.count() <= 0) return then();
        rest_->expires_after(time);
        rest_->async_wait([this, then](std::error_code error) { error ? Finish() : then(); });
    }

    void Finish() {
        waiting_.reset();
        Close();
        closed_();
    }

    SharedSimulator& indicator_;
    Handler exchanged_;
    Handler closed_;
    LineEffects effects_;
    std::optional<Stream> stream_;
    std::optional<asio::steady_timer> rest_, tick_;
    std::array<char, 16384> input_{};
    std::string_view unread_;  // the part of input_ that is still to be answered
    Reply reply_;
    Unasked streamed_;
    bool writing_ = false;
    std::optional<std::size_t> waiting_;  // where the reply goes on once the stream's characters are out
    Clock::time_point lineFree_;
};

}  // namespace calyx::sim
