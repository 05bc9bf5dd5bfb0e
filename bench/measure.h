#pragma once

#include <functional>
#include <string>
#include <vector>

namespace calyx::bench {

// One way of doing a job. `prepare` and `clean` are not timed: what a run leaves behind goes in `clean`.
struct Contender {
    std::string name;
    std::function<void()> run;
    std::function<void()> prepare = [] {};
    std::function<void()> clean = [] {};
};

struct Time {  // microseconds
    double median = 0;
    double best = 0;
};

Time Summary(std::vector<double> microseconds);

// Runs the contenders in turn, so that whatever else the machine does hits all of them alike. The
// result is in their order.
std::vector<Time> Interleaved(const std::vector<Contender>& contenders, int rounds);

// A table in plain text: the first column to the left, the others to the right.
class Table {
  public:
    Table(std::string title, std::vector<std::string> heading);
    void Row(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }
    void Print() const;

  private:
    std::string title_;
    std::vector<std::vector<std::string>> rows_;
};

std::string Fixed(double value, int decimals);
std::string Microseconds(double value);  // "412 us", "3.41 ms"
std::string Megabytes(long kilobytes);

}  // namespace calyx::bench
