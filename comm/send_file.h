#pragma once

#include <atomic>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "comm/indicator_comm.h"

namespace calyx {

// Sends any lines to the indicator, one after the other, each waiting for its answer: the send-file tool and
// lines typed in a terminal. "KEY=VALUE" waits for OK or ??; whatever else a line is, all that the indicator
// says to it is its answer. Blank lines are passed over.
class CSendFile : private ILinkEvents {
  public:
    struct Answer {
        std::string line;
        std::string text{};  // "OK", "??", or what was said; empty: nothing
        bool good = false;
    };
    struct Report {
        enum class End { Complete, Halted, Aborted, Lost };
        End end = End::Complete;
        std::size_t total = 0;
        std::vector<Answer> answers;  // of the lines that went out, in order

        std::size_t Failed() const;
    };
    class IEvents {
      public:
        virtual ~IEvents() = default;
        virtual void Line(const std::string& /*line*/, std::size_t /*number*/, std::size_t /*total*/) {}
        virtual void Answered(const Answer& /*answer*/) {}
    };

    CSendFile(CIndicatorComm& link, const CancelFlag& cancel, IEvents& events)
        : link_(link), cancel_(cancel), events_(events) {}

    Report Run(std::string_view text, int timeoutMs, bool haltOnError);
    Answer SendLine(const std::string& line, int timeoutMs);  // Lost() tells about the link afterwards
    bool Lost() const { return lost_; }
    void Abort() { abort_ = true; }

  private:
    void CancelSendData(bool& cancel) override { cancel |= Stopped(); }
    void CancelGetData(bool& cancel) override { cancel |= Stopped(); }
    bool Stopped() const { return abort_ || cancel_; }

    CIndicatorComm& link_;
    const CancelFlag& cancel_;
    IEvents& events_;
    std::atomic<bool> abort_{false};
    bool lost_ = false;
};

}  // namespace calyx
