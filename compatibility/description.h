// The description of the system that this process runs on, in the form that huecraft doctor reads.
#pragma once
#include "compatibility/output.h"
#include "compatibility/seen_hooks.h"

namespace compatibility {

/// Who made it and the processor, as remarks; the system's version; the listed classes that exist, all that
/// they have by themselves, and what they derive from; the listed functions that there are. Kinds of facts
/// have an empty line between them. What the library put into this process is left out.
void write_report(const Output& out, std::string_view maker, const SeenHooks& seen);

}  // namespace compatibility
