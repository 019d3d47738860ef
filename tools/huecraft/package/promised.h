// What the repository promises of what it packs: its lists, as they were when the command was built.
#pragma once

namespace command {

/// device/exports.txt: a symbol to a line, and remarks after "#".
extern const char* const promised_exports;

/// device/stubs: the linker's text stubs, one after the other.
extern const char* const promised_imports;

/// describe/stubs: the same of huecraft-describe.
extern const char* const promised_imports_of_describe;

/// pane/exports.txt and pane/stubs: the same of the settings pane.
extern const char* const promised_exports_of_pane;
extern const char* const promised_imports_of_pane;

}  // namespace command
