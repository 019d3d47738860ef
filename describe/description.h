// The description of the system that this process runs on, in the form that huecraft doctor reads.
#pragma once
#include "describe/list.h"
#include "describe/output.h"
#include "objc/runtime.h"

namespace describe {

/// The classes of the list that exist and those that they derive from, up to NSObject; by name, each once.
List<Class> classes_to_describe();

/// The lines of those classes, of their methods and of their instance variables.
void write_classes(const Output& out, const List<Class>& classes);

/// The listed functions for which `exists` says so.
void write_functions(const Output& out, bool (*exists)(const char* name));

}  // namespace describe
