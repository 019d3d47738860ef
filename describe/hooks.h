// Which of the library's hooks took effect, seen in a process that loads it.
#pragma once
#include "compatibility/output.h"

namespace describe {

/// How the command runs itself in another process: `path` is its file, and the process claims to run
/// `claimed`, which the library goes by. That process writes its lines itself; if it does not come to that, a
/// line says so.
void write_hooks_seen_elsewhere(const compatibility::Output& out, const char* claimed,
                                char* const environment[]);

/// Loads the library into this process, which claims to run `claimed`, and writes a line for each hook:
///
///     hook -[UIKBEdgeEffect edges] took effect
///
/// or, where nothing can be seen, one remark that says why: "# hooks not seen: theming is off".
void write_hooks_seen_here(const compatibility::Output& out, const char* claimed);

}  // namespace describe
