// What the repository promises of the dylib: its lists, as they were when the command was built.
#pragma once

namespace command {

/// device/exports.txt: a symbol to a line, and remarks after "#".
extern const char* const promised_exports;

/// device/stubs: the linker's text stubs, one after the other.
extern const char* const promised_imports;

}  // namespace command
