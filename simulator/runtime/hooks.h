// What the injection framework can and cannot replace.
#pragma once
#include <functional>
#include <set>
#include <string>

namespace sim {

/// Methods by name: "-[Class selector]", "+[Class selector]".
using MethodNames = std::set<std::string, std::less<>>;

/// Has MSHookMessageEx not find these methods from now on. Hooks of `unfound` do nothing; those of
/// `without_previous` are put in place with nothing behind them.
void hide_from_hooks(MethodNames unfound, MethodNames without_previous);

}  // namespace sim
