// Makes loaded functions known to the process's unwinder.
#pragma once
#include "loader/format/layout.h"
#include "loader/mapping.h"
#include "loader/unwinding/frame_table.h"

namespace macho {

/// Adds a description of every function that the image has unwind information for, so that exceptions pass
/// through its frames and run their clean-ups. The pointers to personality functions must be bound.
void describe_frames(const Layout& layout, const Mapping& mapping, FrameTable& table);

}  // namespace macho
