// refused: after<f> takes void f(Self*, A...)
#include "objc/hook.h"
#include "platform/uikit.h"

using namespace objc::behaviour;

UIColor* red() { return UIColor::redColor(); }
void opaque(double& alpha) { alpha = 1.0; }
void count(UIView*) {}

#ifdef CORRECTED
constexpr auto row = objc::hook<"-[UIView layoutSubviews]", after<count>>;
#else
constexpr auto row = objc::hook<"-[UIView layoutSubviews]", after<red>>;
#endif
