// The command from its arguments to its exit status.
#pragma once
#include <functional>
#include <string>
#include <vector>

#include "cli/status.h"

namespace command {

/// Does what the arguments ask for, and answers the exit status. What cannot be done is said on standard
/// error; nothing is thrown.
int run(std::vector<std::string> arguments);

/// Does the work of a process, and answers how it ended. What it throws is said on standard error, in one
/// line.
Status complete(const std::function<Status()>& work);

}  // namespace command
