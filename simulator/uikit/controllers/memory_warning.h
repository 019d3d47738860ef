// The system runs out of memory.
#pragma once

namespace sim {

/// Posts the notification, then warns every controller on the screen.
void warn_of_memory();

}  // namespace sim
