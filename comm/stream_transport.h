#pragma once

#include <array>
#include <asio.hpp>
#include <chrono>
#include <string>
#include <utility>

#include "comm/transport.h"

namespace calyx {

// What all wires over Asio have in common. One read is always under way, so that whatever arrives, the end of
// the wire included, wakes Wait. Stream is a socket or a serial port; the wire proper opens it and then calls
// Opened.
template <class Stream>
class StreamTransport : public ITransport {
  public:
    StreamTransport() : stream_(io_) {}
    ~StreamTransport() override {
        std::error_code ignored;
        stream_.close(ignored);
    }
    StreamTransport(const StreamTransport&) = delete;
    StreamTransport& operator=(const StreamTransport&) = delete;

    bool IsOpen() const override { return open_; }

    void Close() override {
        if (!open_) return;
        open_ = false;
        std::error_code error;
        EndStream(error);
        if (error) throw std::system_error(error);
    }

    void Write(std::string_view bytes) override {
        if (!open_) return;
        // A command goes out at once; only what the system does not take, because the other end does not
        // read, is left to a write of its own.
        if (sending_.empty()) {
            std::error_code error;
            bytes.remove_prefix(WriteNow(bytes, error));
            if (error && error != asio::error::would_block && error != asio::error::try_again) {
                return Broken();
            }
        }
        unsent_ += bytes;
        if (sending_.empty() && !unsent_.empty()) StartWrite();
        if (!sending_.empty()) Poll();
    }

    // The system is asked only where nothing is at hand: every question costs as much as a short line.
    std::string Read() override {
        if (received_.empty()) Poll();
        return std::exchange(received_, {});
    }

    std::size_t Waiting() override {
        if (received_.empty()) Poll();
        return received_.size();
    }

    void ClearBuffers() override {
        if (open_) ClearSystemBuffers();
        Poll();
        received_.clear();
        unsent_.clear();
    }

    void Wait(int milliseconds) override {
        if (milliseconds <= 0) return Poll();
        if (!received_.empty() || !open_) return;
        io_.restart();
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
        while (received_.empty() && open_ && io_.run_one_until(end) > 0) continue;
    }

  protected:
    void Opened() {
        open_ = true;
        io_.restart();
        StartRead();
    }
    // As much as the system takes without waiting; none where a stream cannot tell.
    virtual std::size_t WriteNow(std::string_view, std::error_code&) { return 0; }
    virtual void ClearSystemBuffers() {}
    virtual void EndStream(std::error_code& error) { stream_.close(error); }

  private:
    void StartRead() {
        stream_.async_read_some(asio::buffer(chunk_), [this](std::error_code error, std::size_t count) {
            received_.append(chunk_.data(), count);
            error ? Broken() : StartRead();
        });
    }
    void StartWrite() {
        sending_ = std::exchange(unsent_, {});
        asio::async_write(stream_, asio::buffer(sending_), [this](std::error_code error, std::size_t) {
            sending_.clear();
            if (error) return Broken();
            if (!unsent_.empty()) StartWrite();
        });
    }
    void Poll() {
        io_.restart();
        io_.poll();
    }
    void Broken() {
        open_ = false;
        std::error_code ignored;
        stream_.close(ignored);
    }

    // What a read or write under way works on stands before the context, which ends them.
    std::array<char, 16384> chunk_{};
    std::string sending_;  // the write under way; empty: none
    std::string unsent_;   // waits for it
    std::string received_;
    bool open_ = false;

  protected:
    asio::io_context io_;
    Stream stream_;
};

}  // namespace calyx
