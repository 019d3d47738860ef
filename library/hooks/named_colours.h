// The system's named-colour lookup, answering the theme's colours.
#pragma once

namespace hooks {

/// Hooks `UIKBGetNamedColor`, in every process: it may be asked on any thread. Where addresses are
/// authenticated, in those with theming on.
void hook_named_colours();

}  // namespace hooks
