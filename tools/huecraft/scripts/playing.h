// How long a script may play.
#pragma once
#include <algorithm>
#include <ctime>
#include <string>

#include "cli/terminal.h"

namespace command {

/// A script's length says little about the time that it takes: this bounds the processor's, from its making
/// on.
class TimeLimit {
  public:
    explicit TimeLimit(int seconds) : seconds_(seconds) {}
    bool is_over() const { return static_cast<double>(std::clock() - began_) / CLOCKS_PER_SEC > seconds_; }
    std::string complaint() const {
        return counted(static_cast<size_t>(seconds_), "second") +
               " of processor time were not enough for the script up to here; expected a shorter one, or "
               "fewer "
               "pictures";
    }

  private:
    int seconds_;
    std::clock_t began_ = std::clock();
};

/// Lets time pass on the phone, in parts, since what is recorded takes its time: `advance` is called for
/// each.
template <class Advance>
void pass_time(double seconds, Advance advance) {
    constexpr double part = 1;
    for (double left = seconds; left > 0; left -= part) advance(std::min(left, part));
}

}  // namespace command
