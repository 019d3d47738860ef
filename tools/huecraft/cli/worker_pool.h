// Numbered pieces of work, shared out to processes.
#pragma once
#include <deque>
#include <functional>
#include <string>

#include "cli/status.h"

namespace command {

struct SharedWork {
    /// In each process, before its first piece.
    std::function<void()> begin;
    /// In a process: does the piece, and answers.
    std::function<int(size_t number)> piece;
    /// In this process: a piece's answer.
    std::function<void(size_t number, int answer)> done;
    /// In this process: the one at the piece stopped, and how.
    std::function<void(size_t number, const std::string& how)> lost;
};

/// Has the pieces done in as many processes as there are processors, each in its turn. A process that stops
/// costs the piece that it was at; another takes its place. Throws Unusable when one cannot begin. What it
/// answers is of the processes, not of the pieces.
Status share_out(std::deque<size_t> numbers, const SharedWork& work);

}  // namespace command
