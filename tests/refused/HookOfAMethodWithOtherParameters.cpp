// refused: the selector and the behaviour's parameters disagree
#include "objc/hook.h"
#include "platform/uikit.h"

using namespace objc::behaviour;

UIColor* red() { return UIColor::redColor(); }
void opaque(double& alpha) { alpha = 1.0; }
void count(UIView*) {}

#ifdef CORRECTED
constexpr auto row = objc::hook<"-[UIView setAlpha:]", substitutes<void, opaque>>;
#else
constexpr auto row = objc::hook<"-[UIView alpha]", substitutes<void, opaque>>;
#endif
