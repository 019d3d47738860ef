// refused: more arguments than both processors pass in registers
#include "objc/hook.h"
#include "platform/uikit.h"

using namespace objc::behaviour;

UIColor* red() { return UIColor::redColor(); }
void opaque(double& alpha) { alpha = 1.0; }
void count(UIView*) {}

#ifdef CORRECTED
using Arguments = void(int, int, int, int, int, int);
#else
using Arguments = void(int, int, int, int, int, int, int, int, int);
#endif
#ifdef CORRECTED
constexpr auto row = objc::hook<"-[UIView a:b:c:d:e:f:]", passes_through<Arguments>>;
#else
constexpr auto row = objc::hook<"-[UIView a:b:c:d:e:f:g:h:i:]", passes_through<Arguments>>;
#endif
