// The description of the system that this process runs on, in the form that huecraft doctor reads.
#pragma once
#include "describe/output.h"
#include "objc/runtime.h"

namespace describe {

/// The listed classes that exist, all that they have by themselves, and what they derive from; then the
/// listed functions for which `exists` says so. Kinds of facts have an empty line between them.
void write_description(const Output& out, bool (*exists)(const char* function));

}  // namespace describe
