// Doing something again whenever a file is saved.
#pragma once
#include <functional>
#include <string>

#include "cli/status.h"

namespace command {

struct Watched {
    std::string file, picture;
    bool force = false;
};

/// Calls `draw` now and after every save, and has a page beside the picture show what came of it. Editors
/// write into the file, or beside it and rename; both count, when the file has stood still for a moment. What
/// cannot be drawn is complained of by `draw`, and the last picture stays. Returns on SIGINT, SIGTERM and
/// SIGHUP. Throws Unusable for what cannot be watched.
Status watch(const Watched& watched, const std::function<Status()>& draw);

}  // namespace command
