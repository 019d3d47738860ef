// The two initializers, in the order in which they run.
#pragma once

namespace hooks {

/// Decides whether this process is one to act in, and installs the hook table. Without an argument vector, in
/// any other process, and with theming off, the keyboard is left as it is.
void set_up();

/// Hooks the system's named-colour lookup, in every process.
void hook_named_colors();

}  // namespace hooks
