// Commands, with what they print.
#pragma once
#include <functional>
#include <string>
#include <string_view>

namespace mutate {

struct Ended {
    bool well;  // status 0
    std::string output;
};

/// Runs a command line of the shell in a folder, and reads what it prints. It is killed, with all that it
/// started, when `enough` says so of its output, or after so many seconds; that is not ending well. Throws
/// when the user interrupts.
Ended run(const std::string& command, const std::string& folder, int seconds,
          const std::function<bool(std::string_view output)>& enough = {});

/// From now on an interruption ends run(), and with it what it runs.
void notice_interruptions();

/// As one word of a command line.
std::string quoted(const std::string& word);

}  // namespace mutate
