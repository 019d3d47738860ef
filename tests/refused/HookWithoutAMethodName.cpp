// refused: a hooked method is written -[Class selector] or +[Class selector]
#include "objc/hook.h"
#include "platform/uikit.h"

using namespace objc::behaviour;

UIColor* red() { return UIColor::redColor(); }
void opaque(double& alpha) { alpha = 1.0; }
void count(UIView*) {}

#ifdef CORRECTED
constexpr auto row = objc::hook<"-[UIView tintColor]", answers<red>>;
#else
constexpr auto row = objc::hook<"UIView tintColor", answers<red>>;
#endif
