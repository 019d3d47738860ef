// refused: more arguments than both processors pass alike
#include "objc/hook.h"
#include "platform/uikit.h"

using namespace objc::behaviour;

UIColor* red() { return UIColor::redColor(); }
void opaque(double& alpha) { alpha = 1.0; }
void count(UIView*) {}

void six(UIView*, int, int, int, int, int, int) {}
void nine(UIView*, int, int, int, int, int, int, int, int, int) {}

#ifdef CORRECTED
constexpr auto row = objc::hook<"-[UIView a:b:c:d:e:f:]", after<six>>;
#else
constexpr auto row = objc::hook<"-[UIView a:b:c:d:e:f:g:h:i:]", after<nine>>;
#endif
